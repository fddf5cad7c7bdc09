#!/usr/bin/env bash
# Runs the logic's tests in a build that counts, and fails unless they run every line and every branch of the six folders and of
# language/.
# Out of the count are the branches that the compiler makes for exceptions passing by and on lines of nothing but braces,
# asserts, and what scripts/not_covered.txt lists with a reason.
set -euo pipefail
cd "$(dirname "$0")/.."

build=build/coverage
folders=(surface shell select where statement condition language)
programs=()
for folder in "${folders[@]}" torture; do
  programs+=("${folder}_tests")
done

cmake --preset coverage -Wno-dev --log-level=WARNING >/dev/null
cmake --build --preset coverage --target "${programs[@]}" -- --quiet

# What an earlier run counted is no proof.
find "$build" -name '*.gcda' -delete

run_tests() {
  "$build/tests/$1" --gtest_brief=1 >"$build/$1.log" 2>&1 || {
    cat "$build/$1.log" >&2
    return 1
  }
}
export -f run_tests
export build
printf '%s\n' "${programs[@]}" | xargs -P "$(nproc)" -I{} bash -c 'run_tests {}'

logic=$(IFS='|' && echo "(${folders[*]})/")
gcovr --root . --object-directory "$build" --filter "$logic" --exclude-unreachable-branches -j "$(nproc)" \
  --json "$build/all_branches.json" "$build"
scripts/count_out.py scripts/not_covered.txt <"$build/all_branches.json" >"$build/coverage.json"

report() {
  gcovr --root . --add-tracefile "$build/coverage.json" "$@"
}
if ! report --fail-under-line 100 --fail-under-branch 100 --txt "$build/lines.txt" --print-summary; then
  report --branches >"$build/branches.txt"
  echo "The last column has the lines that no test runs, then those with a branch that no test takes:" >&2
  grep -vh '100%' "$build/lines.txt" "$build/branches.txt" >&2
  exit 1
fi
