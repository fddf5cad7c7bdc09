#!/usr/bin/env bash
# Checks the types of TypeScript and JavaScript: the element, the pages of examples/, the tests and the scripts around them. Nothing
# has to be built for it. And the numbers that the element's scripts share with C++ are what C++ has.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/web_tools.sh
need_web_tools

node tests/web/make_types.mjs build/types/package/zolt20-map-control.d.ts
node faces/web/package/numbers.mjs
status=0
for project in faces/web examples/web tests/web; do
  "$web_tools/node_modules/.bin/tsc" -p "$project" || status=1
done
exit "$status"
