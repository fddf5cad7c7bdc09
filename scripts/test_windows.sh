#!/usr/bin/env bash
# Builds both Windows controls and runs their tests: of the one of 64 bits by this machine's Wine, of the one of 32 bits by the Wine of
# scripts/wine32.sh. Both at once, each on a screen of its own, since they wait more than they compute. Where there is no
# such Wine, of the control of 32 bits only what needs no Wine is tested, and the last line tells so.
#   scripts/test_windows.sh [CTEST ARGUMENT...]
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

# run PRESET FIRST_SCREEN [CTEST ARGUMENT...]
run() {
  local preset=$1 first=$2
  shift 2
  xvfb-run -a -n "$first" -s "-screen 0 2000x1500x24" ctest --preset "$preset" "$@"
}

reason=
only=()
if ! reason=$(scripts/wine32.sh --make 2>&1 >&3); then
  only=(-L without_wine)
fi 3>&1

configure_and_build windows
configure_and_build windows32
echo "Testing by Wine, on 32 and on 64 bits"
output=$(mktemp)
run windows32 150 "${only[@]}" "$@" >"$output" 2>&1 &
on32=$!
trap 'kill "$on32" 2>/dev/null || true; rm -f "$output"' EXIT
status64=0
status32=0
run windows 99 "$@" || status64=$?
wait "$on32" || status32=$?
echo "On 32 bits:"
cat "$output"
if [ ${#only[@]} -gt 0 ]; then
  echo "NOT TESTED: the Windows control of 32 bits was built and looked at, and never ran: ${reason//$'\n'/ }" >&2
fi
exit $((status64 > 0 || status32 > 0))
