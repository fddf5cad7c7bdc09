#!/usr/bin/env bash
# Builds container.exe with the Lazarus component library, from the sources that Debian has of it and of the Free Pascal
# run-time library, which it has no Windows build of.
#   build.sh DIRECTORY [COMPILER]       for 64 bits, or with the compiler of i386 for 32
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$1"
cd "$1"

pascal=(/usr/share/fpcsrc/*)
libraries=(/usr/lib/lazarus/*/lcl)
lazarus=${libraries[0]%/lcl}
platform=win64
processor=x86_64
start=sysinit.pp
if [ $# -gt 1 ]; then
  platform=win32
  processor=i386
  start=sysinitpas.pp
fi
compiler=("${2:-ppcx64}" -n "-T$platform" "-P$processor" -Sg -Sc -O1 -v0e -vw-)

if [ ! -f rtl/done ]; then
  rm -rf rtl source
  mkdir rtl
  cp -r "${pascal[0]}/rtl" source
  (
    cd "source/$platform"
    rtl=("${compiler[@]}" "-FU../../rtl" "-FE../../rtl" -Fi../inc "-Fi../$processor" -Fi../win -Fi../win/wininc -Fi../objpas
      -Fi../objpas/sysutils -Fi../objpas/classes -Fu../win -Fu../inc -Fu../objpas "-Fu../$processor" -Fu../charmaps)
    "${rtl[@]}" -Us system.pp
    for unit in ../inc/uuchar.pp ../objpas/objpas.pp ../inc/macpas.pp ../inc/iso7185.pp ../inc/extpas.pp "$start" \
      buildrtl.pp; do
      "${rtl[@]}" -Fu../../rtl "$unit"
    done
  )
  rm -rf source
  touch rtl/done
fi

mkdir -p units
paths=(-Furtl -FUunits -FE.)
for folder in rtl-objpas/src rtl-objpas/src/inc rtl-objpas/src/win rtl-objpas/src/common rtl-extra/src rtl-unicode/src \
  rtl-generics/src fcl-base/src fcl-base/src/win fcl-image/src fcl-res/src fcl-registry/src fcl-xml/src fcl-json/src \
  fcl-process/src fcl-process/src/win paszlib/src pasjpeg/src hash/src winunits-base/src chm/src; do
  paths+=("-Fu${pascal[0]}/packages/$folder" "-Fi${pascal[0]}/packages/$folder")
done
for folder in lcl lcl/include lcl/widgetset lcl/interfaces/win32 lcl/forms components/lazutils components/freetype \
  components/activex; do
  paths+=("-Fu$lazarus/$folder" "-Fi$lazarus/$folder")
done
"${compiler[@]}" -Mobjfpc -Sh -dLCL -dLCLwin32 "${paths[@]}" "$here/container.lpr"
