#!/usr/bin/env bash
# Bundles react-querybuilder and CodeMirror in a scratch folder, where it installs them when these versions are not there yet, and
# measures the browser element beside them. Takes the environment of the tests of tests/web. Exit status 3 when npm or the registry is not there.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=benchmarks/npm.sh
source "$here/../../npm.sh"

[ $# -eq 1 ] || {
  echo "usage: $0 SCRATCH" >&2
  exit 2
}
install_from_npm "$here/package.json" "$1"
bundle() {
  NODE_PATH=$scratch/node_modules esbuild --bundle --minify --format=esm '--define:process.env.NODE_ENV="production"' \
    --log-level=warning "--outfile=$scratch/pages/$1" "$here/$1"
}
scratch=$1
bundle peer.js
bundle editor.js
echo "Measuring another query builder beside it"
node "$here/../../web_peer.mjs" "$scratch/pages"
echo
echo "Measuring a key beside CodeMirror"
node "$here/../../web_keys.mjs" "$scratch/pages"
