#!/usr/bin/env bash
# Prints those headers among the named ones (patterns as git has them) that only a compiler run of their own can prove to compile
# alone. The other headers are the first thing that a source of the product includes, and the builds compile it as it stands.
set -euo pipefail
cd "$(dirname "$0")/.."

# shellcheck disable=SC2016 # awk has its own $.
git ls-files -co --exclude-standard "$@" | grep -vxFf <(
  git ls-files -co --exclude-standard '*.cpp' | grep -E '^(surface|shell|select|where|statement|condition|language|faces|hosts)/' |
    xargs awk 'FNR == 1 { seen = 0 } !seen && /^#/ { seen = 1; if ($1 == "#include" && $2 ~ /^"/) { gsub(/"/, "", $2); print $2 } }'
)
