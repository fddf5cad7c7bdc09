#!/usr/bin/env bash
# Compiles those headers of the Windows control and its tests alone that the builds do not prove (lone_headers.sh), runs clang-tidy
# over the control, and builds it a second time in another folder, which must give the same files bit for bit. Takes builds by the
# presets "windows" and "windows32".
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
made=build/windows/faces/com/made

compile_header() {
  echo "#include \"$1\"" | x86_64-w64-mingw32-g++-posix -std=c++20 -Wall -Wextra -Werror -I. "-I$2" -DUNICODE -D_UNICODE \
    -D_WIN32_WINNT=0x0601 -isystem /usr/src/googletest/googletest/include -isystem build/windows/tests/com/json -fsyntax-only -x c++ - || {
    echo "$1 does not compile alone" >&2
    return 1
  }
}
export -f compile_header
scripts/lone_headers.sh 'faces/com/*.h' 'tests/com/*.h' |
  xargs -P "$(nproc)" -I{} bash -c "compile_header {} $made"

# The headers of the compiler are found by its own driver only. The type library's class has the name of the control's, handles
# are pointers by another name, and messages carry pointers as numbers.
standard=$(echo /usr/lib/gcc/x86_64-w64-mingw32/*-posix/include/c++)
git ls-files -co --exclude-standard 'faces/com/*.cpp' |
  xargs scripts/tidy.py -p build/windows \
    --checks=-bugprone-forward-declaration-namespace,-misc-misplaced-const,-performance-no-int-to-ptr --extra-arg-before=--target=x86_64-w64-mingw32 \
    --extra-arg=-isystem"$standard" --extra-arg=-isystem"$standard/x86_64-w64-mingw32" --extra-arg=-Wno-unknown-warning-option

again=$(mktemp -d)
trap 'rm -rf "$again"' EXIT
git ls-files -co --exclude-standard -z | xargs -0 cp --parents -t "$again"
# Object files of the second build have a cache of their own, so each was compiled twice.
(
  cd "$again"
  export CCACHE_NAMESPACE=second
  configure_and_build windows zolt20_com
  configure_and_build windows32 zolt20_com
)
for preset in windows windows32; do
  for server in ZOLT20MappingCtrl.ocx text_box/ZOLT21TextBox.ocx; do
    cmp "build/$preset/faces/com/$server" "$again/build/$preset/faces/com/$server"
  done
done
