#!/usr/bin/env bash
# Walks every session to a depth over the smallest catalogue that has all kinds, with the control and its plain walks side by side
# (tests/explore). A session in which the two differ goes to build/explore/difference.jsonl, as short as it gets.
#
#   scripts/explore.sh                         a fixed number of states in each topic, always the same ones; about two minutes
#   scripts/explore.sh --states N [TOPIC]      walks on from N states, in each topic or in one
#   scripts/explore.sh --play FILE             leads both through a session of zolt20-host and tells in what they differ
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

usage() {
  sed -n '2,/^set/s/^# \?//p' "$0" >&2
  exit 2
}

states=2000
topic=()
play=""
case "${1:-}" in
  "") ;;
  --states)
    [[ "${2:-}" =~ ^[1-9][0-9]*$ ]] || usage
    states=$2
    [ -z "${3:-}" ] || topic=(--topic "$3")
    ;;
  --play)
    [ -f "${2:-}" ] || usage
    play=$(realpath "$2")
    ;;
  *) usage ;;
esac

need_packages "${build_packages[@]}"
configure_and_build release zolt20-explore
program=build/release/tests/zolt20-explore
if [ -n "$play" ]; then
  exec "$program" --play "$play"
fi

mkdir -p build/explore
found=build/explore/difference.jsonl
rm -f "$found"
if ! "$program" --states "$states" --found "$found" "${topic[@]}"; then
  [ ! -f "$found" ] || ./shorten "$found" -- "$program" --play
  exit 1
fi
