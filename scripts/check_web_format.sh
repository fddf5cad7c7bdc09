#!/usr/bin/env bash
# Checks format and style of TypeScript, JavaScript, JSON and CSS; with --write puts right what can be put right by itself.
#   scripts/check_web_format.sh [--write]
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/web_tools.sh
need_web_tools

if [ "${1:-}" = --write ]; then
  biome check --write --error-on-warnings .
else
  biome ci --colors=off --error-on-warnings .
fi
