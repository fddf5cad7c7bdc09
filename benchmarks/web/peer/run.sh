#!/usr/bin/env bash
# Bundles react-querybuilder in a scratch folder, where it installs it when this version is not there yet, and measures the browser
# element beside it. Takes the environment of the tests of tests/web. Exit status 3 when npm or the registry is not there.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=benchmarks/npm.sh
source "$here/../../npm.sh"

[ $# -eq 1 ] || {
  echo "usage: $0 SCRATCH" >&2
  exit 2
}
install_from_npm "$here/package.json" "$1"
NODE_PATH=$1/node_modules esbuild --bundle --minify --format=esm '--define:process.env.NODE_ENV="production"' --log-level=warning \
  "--outfile=$1/pages/peer.js" "$here/peer.js"
node "$here/../../web_peer.mjs" "$1/pages"
