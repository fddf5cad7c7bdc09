#!/usr/bin/env bash
# tidy.py with a clang-tidy made up here, which finds the word BAD in a file or in the header next to it: what it runs, what it leaves
# out, and how it ends. Prints a line for each case that fails.
#   tidy_test.sh SOURCES
# shellcheck disable=SC2016,SC2317  # programs are written out in single quotes, and expect calls the functions
set -u
sources=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

mkdir "$work/bin"
cat >"$work/bin/clang-tidy-14" <<'END'
#!/bin/bash
[ "$1" != --version ] || { cat "$WORK/version"; exit; }
for file; do [ "$file" != -- ] || break; [[ $file != *.cpp ]] || input=$file; done
echo "$input" >>"$WORK/ran"
! grep -h BAD "$input" "${input%.cpp}.h"
END
printf '#!/bin/sh\nexec c++ "$@"\n' >"$work/bin/clang++-14"
sed -i 's/"\$@"/$(printf "%s\\n" "$@" | grep -v everything)/' "$work/bin/clang++-14"
chmod +x "$work"/bin/*

# begin NAME: two sources with a header each in a folder of their own, nothing remembered.
begin() {
  name=$1
  rm -rf "${work:?}/home" "$work/tree" "$work/other"
  mkdir "$work/tree"
  cd "$work/tree" || exit
  echo 'Checks: all' >.clang-tidy
  echo 14 >"$work/version"
  for each in one two; do
    echo "int $each();" >$each.h
    printf '#include "%s.h"\nint %s() { return 1; }\n' $each $each >$each.cpp
  done
}

# tidy STATUS RAN [ARGUMENT...]: one run must end so, and have looked at these files.
tidy() {
  local status=$1 ran=$2
  shift 2
  : >"$work/ran"
  env PATH="$work/bin:$PATH" WORK="$work" XDG_CACHE_HOME="$work/home" "$sources/scripts/tidy.py" "${@:-one.cpp}" two.cpp -- -I. -Iinclude \
    >"$work/said" 2>&1
  local is=$?
  ran_now=$(sort "$work/ran" | tr '\n' ' ')
  if [ $is -ne "$status" ] || [ "$ran_now" != "$ran" ]; then
    echo "$name: ended with $is, not $status; looked at \"$ran_now\", not at \"$ran\""
    cat "$work/said"
    failed=1
  fi
}

begin 'clean files are looked at once'
tidy 0 'one.cpp two.cpp '
tidy 0 ''
begin 'a finding fails each time until it is mended'
echo '// BAD' >>one.cpp
tidy 1 'one.cpp two.cpp '
grep -q BAD "$work/said" || { echo "$name: the finding is not told"; failed=1; }
tidy 1 'one.cpp '
sed -i /BAD/d one.cpp
tidy 0 'one.cpp '
tidy 0 ''
begin 'a header counts'
tidy 0 'one.cpp two.cpp '
echo '// BAD' >>two.h
tidy 1 'two.cpp '
begin 'a header that is gone counts'
tidy 0 'one.cpp two.cpp '
rm two.h
mkdir include && echo 'int two();' >include/two.h
tidy 0 'two.cpp '
begin 'the checks count'
tidy 0 'one.cpp two.cpp '
echo 'Checks: none' >.clang-tidy
tidy 0 'one.cpp two.cpp '
begin 'the options count'
tidy 0 'one.cpp two.cpp '
tidy 0 'one.cpp two.cpp ' --extra-arg=-DA one.cpp
tidy 0 '' --extra-arg=-DA one.cpp
begin 'the program counts'
tidy 0 'one.cpp two.cpp '
echo 15 >"$work/version"
tidy 0 'one.cpp two.cpp '
begin 'the folder does not count'
tidy 0 'one.cpp two.cpp '
mv "$work/tree" "$work/other" && cd "$work/other" || exit
tidy 0 ''
begin 'what was remembered can be forgotten'
tidy 0 'one.cpp two.cpp '
TIDY_AFRESH=1 tidy 0 'one.cpp two.cpp '
exit $failed
