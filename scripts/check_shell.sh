#!/usr/bin/env bash
# Runs shellcheck over all shell scripts, named so or not.
set -euo pipefail
cd "$(dirname "$0")/.."

git ls-files -co --exclude-standard |
  xargs -d '\n' awk 'FILENAME ~ /\.sh$/ || /^#!.*[\/ ](ba)?sh/ { print FILENAME } { nextfile }' |
  xargs -d '\n' shellcheck -x
