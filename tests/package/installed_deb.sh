#!/usr/bin/env bash
# Installs the package for Debian, with what it says that it depends on, and builds and runs the examples that it brings. For a bare
# Debian, as root, in a clone of the repository.
#   installed_deb.sh FILE.deb
set -euo pipefail
clone=$(cd "$(dirname "$0")/../.." && pwd)
export DEBIAN_FRONTEND=noninteractive
apt-get update -qq
apt-get install -y -qq --no-install-recommends "$1"
# What every program is built with.
apt-get install -y -qq --no-install-recommends cmake g++ make

examples=/usr/share/doc/libzolt20-dev/examples
work=$(mktemp -d)
build() {
  cmake -S "$1" -B "$work/$2"
  cmake --build "$work/$2"
}
build "$examples/embedding" embedding
"$work/embedding/embedding" >"$work/output.txt"
cmp "$work/output.txt" "$examples/embedding/expected.txt"
build "$examples/outline" outline
"$work/outline/outline" | cmp - "$examples/outline/expected.txt"
build "$examples/check" check
"$work/check/check" | cmp - "$examples/check/expected.txt"

build "$examples/qt" qt
build "$clone/tests/package/driven_qt" driven_qt
QT_QPA_PLATFORM=offscreen "$work/driven_qt/driven_qt" >"$work/output.txt"
printf 'select CUSTOMER.C_LAST\r\nfrom  CUSTOMER\r\nendselect\nchar*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*name\n' |
  cmp - "$work/output.txt"

# The plugin for Qt Designer finds all the libraries that it was linked with.
plugin=$(find /usr/lib -path '*/qt6/plugins/designer/libzolt20_designer.so')
[ -n "$plugin" ]
ldd "$plugin"
if ldd "$plugin" | grep -q 'not found'; then exit 1; fi

dpkg --purge libzolt20-dev
[ ! -e /usr/include/zolt20 ]
