#!/usr/bin/env bash
# check_map.py over trees made up here: what it says of a map that is wrong, and how it writes one. Prints a line for each case that
# fails.
#   map_test.sh SOURCES
set -u
sources=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

# begin NAME ROW...: a tree with a long file in surface/, another in shell/, a short one, and a map of these rows.
begin() {
  name=$1
  shift
  rm -rf "$work/tree"
  mkdir -p "$work/tree/surface" "$work/tree/shell" "$work/tree/docs"
  cd "$work/tree" || exit
  git init -q .
  seq -f '// Focus, and %.0f.' 151 >surface/surface.cpp
  seq -f '// Handlers. %.0f' 151 >shell/control.cpp
  echo '// Small.' >shell/control.h
  # shellcheck disable=SC2016  # the backquotes are those of the map
  printf '# Where what stands\n\n| folder | what |\n| --- | --- |\n| `surface/` | the form |\n\n| file | what |\n| --- | --- |\n' >docs/code-map.md
  printf '%s\n' "$@" >>docs/code-map.md
}

# says STATUS WORDS: the check ends so and prints exactly this.
says() {
  local said status
  said=$(python3 "$sources/scripts/check_map.py" 2>&1)
  status=$?
  if [ $status -ne "$1" ] || [ "$said" != "$2" ]; then
    echo "$name: ended with $status, not $1, and said \"$said\", not \"$2\""
    failed=1
  fi
}

# shellcheck disable=SC2016  # the backquotes are those of the map
{
  control='| `shell/control.h` | the class |'
  surface='| `surface/surface.cpp` | focus |'
  begin 'a map that is whole, with a header for its source file' "$control" "$surface"
  says 0 ''
  begin 'a long file that is not named' "$control"
  says 1 'docs/code-map.md: does not name surface/surface.cpp, which has 151 lines'
  begin 'a long file that is named beside another' '| `shell/control.h` | the class; `../surface/surface.cpp` is no such name |'
  says 1 'docs/code-map.md:9: there is no ../surface/surface.cpp
docs/code-map.md: does not name surface/surface.cpp, which has 151 lines'
  begin 'a row of a file that is gone' "$control" '| `shell/gone.h` | gone |' "$surface"
  says 1 'docs/code-map.md:10: there is no shell/gone.h'
  begin 'a file that is gone within a row' '| `shell/control.h` | the class; `gone.cpp` too |' "$surface"
  says 1 'docs/code-map.md:9: there is no gone.cpp'
  begin 'a folder that is gone' "$control" "$surface"
  sed -i 's|`surface/` |`nowhere/` |' docs/code-map.md
  says 1 'docs/code-map.md:5: there is no nowhere/'
  begin 'rows out of order' "$surface" "$control"
  says 1 'docs/code-map.md: surface/surface.cpp stands where shell/control.h belongs, by their paths'
  begin 'a map that is put right' "$control"
  python3 "$sources/scripts/check_map.py" --write
  says 0 ''
  grep -qF '| `surface/surface.cpp` | focus, and 1 |' docs/code-map.md || {
    echo "$name: the row is missing"
    failed=1
  }
}

exit $failed
