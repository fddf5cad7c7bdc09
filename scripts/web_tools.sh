# shellcheck shell=bash
# Sourced by the checks of scripts and style sheets, from the root: installs the packages that tests/web/package.json lists in
# $web_tools, and again when their list has changed. Biome is listed as its program for Linux: the package of that name lists those
# for all systems.

web_tools=build/tools

need_web_tools() {
  if ! cmp -s tests/web/package-lock.json "$web_tools/installed.json"; then
    echo "Installing the packages of tests/web/package.json"
    mkdir -p "$web_tools"
    cp tests/web/package.json tests/web/package-lock.json "$web_tools"
    (cd "$web_tools" && npm ci --no-audit --no-fund --loglevel=error)
    biome --version >/dev/null
    cp tests/web/package-lock.json "$web_tools/installed.json"
  fi
}

biome() {
  local programs=("$web_tools"/node_modules/@biomejs/cli-*/biome)
  "${programs[0]}" "$@"
}
