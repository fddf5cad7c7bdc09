#!/usr/bin/env bash
# Measures the query builders of package.json in a scratch folder, where it installs them when these versions are not there
# yet. Prints one line of JSON for each. Exit status 3 when Node, npm or the registry is not there.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

[ $# -eq 1 ] || {
  echo "usage: $0 SCRATCH" >&2
  exit 2
}
scratch=$1

absent() {
  echo "No comparison with other query builders: $1" >&2
  exit 3
}
command -v node >/dev/null || absent "node is not installed"
command -v npm >/dev/null || absent "npm is not installed"
[ "$(node -p 'parseInt(process.versions.node)')" -ge 20 ] || absent "node is older than 20"

mkdir -p "$scratch"
# The copy under the name "installed" is made once an installation is through.
if ! cmp -s "$here/package.json" "$scratch/package.json.installed"; then
  rm -f "$scratch/package.json.installed"
  cp "$here/package.json" "$scratch/package.json"
  (cd "$scratch" && npm install --no-audit --no-fund --no-package-lock --ignore-scripts --fetch-retries=1 >npm.log 2>&1) ||
    absent "npm could not install its packages, see $scratch/npm.log"
  cp "$here/package.json" "$scratch/package.json.installed"
fi
cp "$here/compare.mjs" "$scratch/compare.mjs"
cd "$scratch"
NODE_ENV=production node compare.mjs
