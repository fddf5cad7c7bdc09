#!/usr/bin/env bash
# Runs the fuzzers of fuzz/. What they find goes to build/fuzz/: inputs that end in a finding to findings/, inputs that reach
# something new to finds/.
#
#   scripts/fuzz.sh                        each target over its corpus and a fixed number of runs, always the same ones
#   scripts/fuzz.sh --minutes N [TARGET]   as many runs as fit in N minutes, of each target or of one
#   scripts/fuzz.sh --merge [TARGET]       takes what is new in finds/ into the corpus, and leaves out what others cover
#   scripts/fuzz.sh --shrink TARGET FILE   makes an input that ends in a finding as short as it gets, beside FILE, and prints it
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

usage() {
  sed -n '2,/^set/s/^# \?//p' "$0" >&2
  exit 2
}

minutes=""
merge=""
shrink=""
case "${1:-}" in
  "") ;;
  --minutes)
    [[ "${2:-}" =~ ^[1-9][0-9]*$ ]] || usage
    minutes=$2
    shift 2
    ;;
  --merge)
    merge=yes
    shift
    ;;
  --shrink)
    if [ $# -ne 3 ] || [ ! -f "$3" ]; then usage; fi
    shrink=$(realpath "$3")
    set -- "$2"
    ;;
  *) usage ;;
esac
targets=("${@:-host_lines}")
[ $# -gt 0 ] || targets+=(sessions outlines edits openings)
for target in "${targets[@]}"; do
  [ -d "fuzz/corpus/$target" ] || usage
done

need_packages "${build_packages[@]}" clang-14 libclang-rt-14-dev
configure_and_build fuzz "${targets[@]}"

# Comparing type names by strcmp, as casts do, is half of the time when each comparison is recorded.
export ASAN_OPTIONS=intercept_strcmp=0
build=build/fuzz
mkdir -p "$build/findings" "$build/finds"

# How many runs are about half a minute, and the longest input.
declare -A runs=([host_lines]=900 [sessions]=500 [outlines]=100000 [edits]=20000 [openings]=1000)
declare -A longest=([host_lines]=9000 [sessions]=600 [outlines]=2000 [edits]=1000 [openings]=1000)

# run TARGET FOLDER OPTION...: finds go to the folder.
run() {
  local target=$1 folder=$2
  shift 2
  local options=(-use_value_profile=1 -timeout=25 -rss_limit_mb=4096 "-max_len=${longest[$target]}"
    "-artifact_prefix=$build/findings/$target-" -print_final_stats=1 -verbosity=0)
  [ ! -f "fuzz/$target.dict" ] || options+=("-dict=fuzz/$target.dict")
  if ! "$build/fuzz/$target" "${options[@]}" "$@" "$folder" "fuzz/corpus/$target" >"$build/$target.log" 2>&1; then
    cat "$build/$target.log" >&2
    exit 1
  fi
  echo "$target: $(sed -n 's/^stat::number_of_executed_units: *//p' "$build/$target.log") runs, no finding"
}

# What stays covers all edges that the corpus and the finds reach; how often an edge is taken does not count.
merge_finds() {
  local target=$1 merged
  merged=$(mktemp -d "$build/merged.XXXXXX")
  "$build/fuzz/$target" -set_cover_merge=1 -use_counters=0 -timeout=25 -rss_limit_mb=4096 "-max_len=${longest[$target]}" \
    "$merged" "fuzz/corpus/$target" "$build/finds/$target" >"$build/$target.log" 2>&1
  rm -f "fuzz/corpus/$target"/*
  mv "$merged"/* "fuzz/corpus/$target/"
  rmdir "$merged"
  echo "$target: $(find "fuzz/corpus/$target" -type f | wc -l) files, $(du -sb "fuzz/corpus/$target" | cut -f1) bytes"
}

# libFuzzer makes the input shorter again and again until so many changes in a row make it no shorter.
if [ -n "$shrink" ]; then
  target=${targets[0]}
  "$build/fuzz/$target" -minimize_crash=1 -runs=20000 -timeout=25 "-exact_artifact_path=$shrink.short" "$shrink" \
    >"$build/$target.log" 2>&1 || true
  if [ ! -f "$shrink.short" ]; then
    echo "$target ends without a finding on $shrink, or it gets no shorter; $build/$target.log tells more" >&2
    exit 1
  fi
  "$build/fuzz/$target" "$shrink.short" 2>&1 | sed '/^==/,$d' || true
  echo "$shrink.short: $(wc -c <"$shrink.short") bytes of $(wc -c <"$shrink")"
  exit
fi

for target in "${targets[@]}"; do
  mkdir -p "$build/finds/$target"
  if [ -n "$merge" ]; then
    merge_finds "$target"
  elif [ -n "$minutes" ]; then
    run "$target" "$build/finds/$target" "-max_total_time=$((minutes * 60))"
  else
    forgotten=$(mktemp -d "$build/forgotten.XXXXXX")
    run "$target" "$forgotten" "-runs=${runs[$target]}" -seed=1
    rm -rf "$forgotten"
  fi
done
