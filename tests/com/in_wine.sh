#!/usr/bin/env bash
# Runs a program of Windows by Wine, in a prefix of its own that is made with the first call.
#   in_wine.sh PREFIX PROGRAM [ARGUMENT...]
# With ZOLT20_DPI set to a number the screen has that many pixels for each inch, 96 otherwise. With ZOLT20_LETTERS set to a
# family of fonts the letters of the form are of that family, otherwise of what Wine finds for it.
set -euo pipefail
export WINEPREFIX=$1 WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
shift
wine=$(command -v wine64 || command -v wine)
if [ ! -f "$WINEPREFIX/made" ]; then
  mkdir -p "$WINEPREFIX"
  "$wine" wineboot --init >/dev/null 2>&1
  # No window manager is there to wait for.
  "$wine" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null
  # Nor does anybody sit at a debugger, which a program that ends badly would wait for.
  "$wine" reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' /v Debugger /d none /f >/dev/null
  wineserver --wait || true
  touch "$WINEPREFIX/made"
fi
set_resolution() {
  "$wine" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f >/dev/null
}
[ -z "${ZOLT20_DPI:-}" ] || set_resolution "$ZOLT20_DPI"
replacements='HKCU\Software\Wine\Fonts\Replacements'
if [ -n "${ZOLT20_LETTERS:-}" ]; then
  for family in Verdana Arial; do
    "$wine" reg add "$replacements" /v "$family" /d "$ZOLT20_LETTERS" /f >/dev/null
  done
fi

# By way of a file: Wine's own processes outlive the program for some seconds, and would keep a pipe open.
status=0
"$wine" "$@" >"$WINEPREFIX/output" 2>&1 || status=$?
cat "$WINEPREFIX/output"
[ -z "${ZOLT20_DPI:-}" ] || set_resolution 96
[ -z "${ZOLT20_LETTERS:-}" ] || "$wine" reg delete "$replacements" /f >/dev/null
exit "$status"
