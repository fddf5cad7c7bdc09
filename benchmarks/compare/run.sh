#!/usr/bin/env bash
# Measures the query builders of package.json in a scratch folder, where it installs them when these versions are not there
# yet. Prints one line of JSON for each. Exit status 3 when Node, npm or the registry is not there.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=benchmarks/npm.sh
source "$here/../npm.sh"

[ $# -eq 1 ] || {
  echo "usage: $0 SCRATCH" >&2
  exit 2
}
install_from_npm "$here/package.json" "$1"
cp "$here/compare.mjs" "$1/compare.mjs"
cd "$1"
NODE_ENV=production node compare.mjs
