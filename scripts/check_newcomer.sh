#!/usr/bin/env bash
# Tries ./run as somebody with a fresh machine would: on the last commit, inside a Debian 12 that has nothing else installed. Machines
# that build this project every day have packages that no list here names. Where no such Debian can be made, it says so and passes.
#   scripts/check_newcomer.sh
set -euo pipefail
cd "$(dirname "$0")/.."

bare=$(mktemp -d /var/tmp/zolt20-newcomer.XXXXXX)
trap 'rm -rf --one-file-system "$bare"' EXIT
chmod 755 "$bare" # it becomes a root folder, which everybody reads
if ! reason=$(scripts/bare_debian.sh "$bare" true 2>&1); then
  echo "NOT TRIED: ${reason//$'\n'/ }"
  exit 0
fi

# What was compiled before, on whatever machine, is taken from the compiler cache.
cache=$(ccache --get-config cache_dir)
COMPILER_CACHE=$cache scripts/bare_debian.sh "$bare" ./run
[ -s "$bare/root/zolt20/build/release/mapping-rule.png" ] || {
  echo "./run has drawn no picture of the composer" >&2
  exit 1
}
