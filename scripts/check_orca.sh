#!/usr/bin/env bash
# Orca beside the Qt widget and beside the element in Chromium: what it says in recorded sessions that are played by keys, against
# tests/orca/approved, and that it says something of every change that keys at random make. With --approve what it says becomes what is
# approved: read the difference before it is committed.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
need_packages "${build_packages[@]}" "${test_packages[@]}" "${web_build_packages[@]}" "${web_test_packages[@]}" "${orca_packages[@]}"

configure_and_build release orca_qt_window zolt20-host
configure_and_build web

if [ "${1:-}" = --approve ]; then
  export ORCA_QUIET=330
  node tests/orca/sessions.mjs qt --write build/check/orca/qt
  node tests/orca/sessions.mjs web --write build/check/orca/web
  node tests/orca/approve.mjs build/check/orca/qt build/check/orca/web
  exit
fi

# They wait more than they work, so all of them at once.
logs=build/check/orca
mkdir -p "$logs"
pids=()
names=()
begin() {
  "${@:2}" >"$logs/$1.log" 2>&1 &
  pids+=($!)
  names+=("$1")
}
for face in qt web; do
  begin "sessions-$face" node tests/orca/sessions.mjs "$face"
  begin "walk-$face" node tests/orca/walk.mjs "$face" 500
done
status=0
for at in "${!pids[@]}"; do
  wait "${pids[$at]}" || status=1
  cat "$logs/${names[$at]}.log"
done
exit "$status"
