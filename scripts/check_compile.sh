#!/usr/bin/env bash
# Compiles every header alone but those of the Windows control and those that the builds prove (lone_headers.sh), and the six folders
# of logic with clang 14 and libc++, as the browser's build does.
set -euo pipefail
cd "$(dirname "$0")/.."

qt=$(qmake6 -query QT_INSTALL_HEADERS)
qt_includes="-isystem $qt"
for module in QtCore QtGui QtWidgets QtNetwork QtSql QtPrintSupport QtTest QtUiPlugin; do
  qt_includes+=" -isystem $qt/$module"
done
# What the build defines for those who use these modules.
qt_includes+=" -DQT_GUI_LIB -DQT_WIDGETS_LIB"
export qt_includes

compile_header() {
  local options
  read -ra options <<<"$qt_includes"
  echo "#include \"$1\"" | g++ -std=c++20 -Wall -Wextra -Werror -fPIC -I. "${options[@]}" -fsyntax-only -x c++ - || {
    echo "$1 does not compile alone" >&2
    return 1
  }
}
compile_logic() {
  clang++-14 -std=c++20 -stdlib=libc++ -Wall -Wextra -Wshadow -Wconversion -Werror -I. -fsyntax-only "$1"
}
export -f compile_header compile_logic

# The Windows control has a compiler of its own. The headers of Qt Designer come with another package.
without='^(faces|tests)/com/'
[ -d "$qt/QtUiPlugin" ] || without+='|^faces/qt/designer/'
scripts/lone_headers.sh '*.h' | grep -vE "$without" | xargs -P "$(nproc)" -I{} bash -c 'compile_header {}'
git ls-files -co --exclude-standard '*.cpp' | grep -E '^(surface|shell|select|where|statement|condition|language)/' |
  xargs -P "$(nproc)" -I{} bash -c 'compile_logic {}'
