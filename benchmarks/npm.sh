# shellcheck shell=bash
# Sourced by what is measured beside packages of the npm registry.

# absent REASON: ends the command, with exit status 3.
absent() {
  echo "No comparison with packages of the registry: $1" >&2
  exit 3
}

# install_from_npm PACKAGE.JSON SCRATCH: installs what it lists in a scratch folder, when these versions are not there yet.
install_from_npm() {
  command -v node >/dev/null || absent "node is not installed"
  command -v npm >/dev/null || absent "npm is not installed"
  [ "$(node -p 'parseInt(process.versions.node)')" -ge 20 ] || absent "node is older than 20"
  mkdir -p "$2"
  # The copy under the name "installed" is made once an installation is through.
  cmp -s "$1" "$2/package.json.installed" && return
  rm -f "$2/package.json.installed"
  cp "$1" "$2/package.json"
  (cd "$2" && npm install --no-audit --no-fund --no-package-lock --ignore-scripts --fetch-retries=1 >npm.log 2>&1) ||
    absent "npm could not install its packages, see $2/npm.log"
  cp "$1" "$2/package.json.installed"
}
