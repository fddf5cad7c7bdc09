#!/usr/bin/env bash
# check_sizes.py over files made up here: which of them it refuses, by which file, line and length. Prints a line for each case that
# fails.
#   sizes_test.sh SOURCES
set -u
sources=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

# begin NAME: a tree with one short file.
begin() {
  name=$1
  rm -rf "$work/tree"
  mkdir -p "$work/tree/surface" "$work/tree/faces/web/src" "$work/tree/scripts" "$work/tree/tests"
  cd "$work/tree" || exit
  echo 'int one();' >surface/short.h
}

# lines NUMBER TEXT: the text so many times, a line each.
lines() {
  for ((line = 0; line < $1; ++line)); do printf '%s\n' "$2"; done
}

# sizes STATUS SAID: one run must end so, and say exactly this.
sizes() {
  local said status
  said=$(python3 "$sources/scripts/check_sizes.py" 2>&1)
  status=$?
  if [ $status -ne "$1" ] || [ "$said" != "$2" ]; then
    echo "$name: ended with $status, not $1, and said \"$said\", not \"$2\""
    failed=1
  fi
}

# function_of LENGTH BEGINNING STATEMENT END: a function of that many lines.
function_of() {
  echo "$2"
  lines $(($1 - 2)) "$3"
  echo "$4"
}

begin 'an empty tree'
rm surface/short.h
sizes 1 'There is no file of the product here'

begin 'files of 500 lines'
lines 500 'int one();' >surface/form.h
lines 500 'a {}' >faces/web/src/form.css
lines 500 'one()' >scripts/one.py
sizes 0 ''
begin 'files of 501 lines'
lines 501 'int one();' >surface/form.h
lines 501 'a {}' >faces/web/src/form.css
lines 501 'one()' >scripts/one.py
sizes 1 'surface/form.h:1: 501 lines, and a file has at most 500
faces/web/src/form.css:1: 501 lines, and a file has at most 500
scripts/one.py:1: 501 lines, and a file has at most 500'
begin 'files that are no sources of the product'
lines 501 'int one();' >tests/form.h
lines 501 'export const kOne = 1;' >faces/web/src/numbers.ts
lines 501 'ONE(1)' >surface/form.def
sizes 0 ''

begin 'functions of 60 lines'
{
  printf 'namespace zolt20 {\n\n'
  function_of 60 'int One() {' '  Two();' '}'
  function_of 60 'int Two() {' '  Two();' '}'
} >surface/form.cpp
function_of 60 'function one() {' '  two();' '}' >faces/web/src/form.ts
function_of 60 'def one():' '    two()' '    two()' >scripts/one.py
sizes 0 ''
begin 'a function of 61 lines'
{
  printf '#include "surface/form.h"\n\nnamespace zolt20 {\n\n'
  function_of 61 'int One() {' '  if (two) {' '}'
  printf '\n}  // namespace zolt20\n'
} >surface/form.cpp
sizes 1 'surface/form.cpp:5: 61 lines, and a function has at most 60'
begin 'a function whose head goes over several lines'
function_of 59 $'Form::Form(int one,\n           int two)\n    : one_(one), two_{two} {' '  Two();' '}' >surface/form.cpp
sizes 1 'surface/form.cpp:1: 61 lines, and a function has at most 60'
begin 'a function within a class'
{
  printf 'namespace zolt20 {\n\nclass Form final : public Base {\n public:\n'
  lines 70 '  int one_ = 1;'
  function_of 61 '  int One() const override {' '    Two();' '  }'
  printf '};\n\n}  // namespace zolt20\n'
} >surface/form.h
sizes 1 'surface/form.h:75: 61 lines, and a function has at most 60'
begin 'classes, namespaces and tables that are long'
{
  printf 'namespace zolt20 {\nnamespace {\n\n'
  function_of 90 'constexpr auto kOnes = std::to_array<One>({' '    {1, 2},' '});'
  function_of 90 'class Form {' '  int one_ = 1;' '};'
  printf '\n}  // namespace\n}  // namespace zolt20\n'
} >surface/form.cpp
sizes 0 ''

begin 'a method of TypeScript'
{
  echo 'export class Form {'
  lines 70 '  readonly one = 1;'
  function_of 61 '  async *#show<T>(one: T): Promise<void> {' '    two();' '  }'
  echo '}'
} >faces/web/src/form.ts
sizes 1 'faces/web/src/form.ts:72: 61 lines, and a function has at most 60'
begin 'a function of TypeScript with parameters on lines of their own'
function_of 58 $'export function one(\n  two: number,\n  three: number,\n): number {' '  two();' '}' >faces/web/src/form.ts
sizes 1 'faces/web/src/form.ts:1: 61 lines, and a function has at most 60'
begin 'a function without a name'
{
  echo 'export class Form {'
  function_of 61 "  one.addEventListener('two', (event) => {" '    two();' '  });'
  echo '}'
} >faces/web/src/form.ts
sizes 1 'faces/web/src/form.ts:2: 61 lines, and a function has at most 60'
begin 'objects and loops that are long'
{
  function_of 90 'export const kOnes = {' '  one: 1,' '};'
  function_of 90 'for (const one of two()) {' '  two();' '}'
} >scripts/one.mjs
sizes 0 ''

begin 'a function of Python'
{
  printf 'class One:\n    one = 1\n\n'
  function_of 61 '    def one(self):' '        two()' '        two()'
} >scripts/one.py
sizes 1 'scripts/one.py:4: 61 lines, and a function has at most 60'

exit $failed
