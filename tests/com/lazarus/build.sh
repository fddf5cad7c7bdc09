#!/usr/bin/env bash
# Builds container.exe with the Lazarus component library, from the sources that Debian has of it and of the Free Pascal
# run-time library, which it has no Windows build of.
#   build.sh DIRECTORY
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$1"
cd "$1"

pascal=(/usr/share/fpcsrc/*)
libraries=(/usr/lib/lazarus/*/lcl)
lazarus=${libraries[0]%/lcl}
compiler=(ppcx64 -n -Twin64 -Px86_64 -Sg -Sc -O1 -v0e -vw-)

if [ ! -f rtl/done ]; then
  rm -rf rtl source
  mkdir rtl
  cp -r "${pascal[0]}/rtl" source
  (
    cd source/win64
    rtl=("${compiler[@]}" "-FU../../rtl" "-FE../../rtl" -Fi../inc -Fi../x86_64 -Fi../win -Fi../win/wininc -Fi../objpas
      -Fi../objpas/sysutils -Fi../objpas/classes -Fu../win -Fu../inc -Fu../objpas -Fu../x86_64 -Fu../charmaps)
    "${rtl[@]}" -Us system.pp
    for unit in ../inc/uuchar.pp ../objpas/objpas.pp ../inc/macpas.pp ../inc/iso7185.pp ../inc/extpas.pp sysinit.pp \
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
