#!/usr/bin/env bash
# Tests ./release on the last commit: makes it in two clones in different folders, the second time without the compiler cache,
# compares the bytes, and uses each archive as its users would. Only root can, since the package for Debian is installed in a bare
# Debian. That one is made once and kept in BARE_DEBIAN, /var/tmp/zolt20-bare-debian unless it is set.
#   scripts/test_release.sh
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
root=$PWD
bare=${BARE_DEBIAN:-/var/tmp/zolt20-bare-debian}

fail() {
  echo "FAILED: $1" >&2
  exit 1
}
quietly() {
  local log=$work/last.log
  "$@" >"$log" 2>&1 || {
    cat "$log" >&2
    fail "$*"
  }
}

[ "$(id -u)" -eq 0 ] || fail "only root can install the package in a bare Debian"
need_packages "${build_packages[@]}" "${windows_packages[@]}" "${web_build_packages[@]}" "${web_test_packages[@]}" \
  "${release_packages[@]}" debootstrap unzip
[ -z "$(git status --porcelain)" ] || echo "Testing the last commit, without the changes that are not committed"

work=$root/build/release-test
rm -rf "$work"
mkdir -p "$work"
first=$work/first
second=$work/a/second/clone
for clone in "$first" "$second"; do
  git clone --quiet --no-checkout "$root" "$clone"
  git -C "$clone" checkout --quiet --detach "$(git rev-parse HEAD)"
done
version=$(<"$first/VERSION")

echo "== A release of changes that are not committed is refused"
echo "changed" >>"$first/README.md"
if "$first/release" >"$work/refused.log" 2>&1; then fail "./release took a changed README.md"; fi
for word in 'not committed' README.md; do
  grep -q "$word" "$work/refused.log" || fail "./release refuses without the words $word: $(<"$work/refused.log")"
done
[ ! -e "$first/build/release-files" ] || fail "./release made files of a changed README.md"
git -C "$first" checkout --quiet -- README.md

echo "== Twice, in two folders"
quietly "$first/release"
CCACHE_DISABLE=1 quietly "$second/release"
files=$first/build/release-files
diff -r "$files" "$second/build/release-files" || fail "the second release has other bytes"

echo "== Names and checksums"
sources=zolt20-$version.tar.gz
debian=libzolt20-dev_${version}_amd64.deb
windows=ZOLT20MapControl-$version-windows
npm=zolt20-map-control-$version.tgz
pages=zolt20-$version-docs
diff <(printf '%s\n' SHA256SUMS "$debian" "$npm" "$pages.zip" "$sources" "$windows.zip" | LC_ALL=C sort) <(LC_ALL=C ls "$files") ||
  fail "other files than expected"
(cd "$files" && quietly sha256sum --check --strict SHA256SUMS)
[ "$(wc -l <"$files/SHA256SUMS")" -eq 5 ] || fail "SHA256SUMS does not tell of every archive"

echo "== The pages"
unzip -q "$files/$pages.zip" -d "$work/pages"
[ -f "$work/pages/$pages/index.html" ] || fail "the pages have no first one"
quietly python3 "$first/scripts/site/links.py" "$work/pages/$pages"

echo "== The source archive"
mkdir "$work/sources"
tar -xzf "$files/$sources" -C "$work/sources"
diff <(git ls-tree -r --name-only HEAD | LC_ALL=C sort) \
  <(cd "$work/sources/zolt20-$version" && find . ! -type d -printf '%P\n' | LC_ALL=C sort) || fail "other files than the commit's"
use_compiler_cache
quietly cmake -S "$work/sources/zolt20-$version" -B "$work/sources/build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DZOLT20_QT=OFF \
  -DZOLT20_TESTS=OFF
quietly cmake --build "$work/sources/build" --target zolt20-host
sessions=$work/sources/zolt20-$version/examples/sessions
"$work/sources/build/hosts/zolt20-host" --result "$sessions/full-statement.jsonl" >"$work/sources/result.txt"
cmp "$work/sources/result.txt" "$sessions/full-statement.result.txt" || fail "the session ends with another Result"

echo "== The package for Debian, unpacked in another folder than its own"
dpkg-deb -x "$files/$debian" "$work/elsewhere"
quietly cmake -S examples/embedding -B "$work/embedding" -G Ninja -DCMAKE_PREFIX_PATH="$work/elsewhere/usr"
quietly cmake --build "$work/embedding"
grep -q "^zolt20_DIR:PATH=$work/elsewhere/" "$work/embedding/CMakeCache.txt" || fail "another installed control was found"
"$work/embedding/embedding" >"$work/embedding.txt"
cmp "$work/embedding.txt" examples/embedding/expected.txt || fail "the program prints another text"

echo "== The package for Debian, installed in a bare Debian 12"
quietly scripts/bare_debian.sh "$bare" true
# A copy, since a Debian in which the package was once installed would have what it depends on.
cp -a --reflink=auto "$bare" "$work/bare"
TAKE_ALONG=$files quietly scripts/bare_debian.sh "$work/bare" tests/package/installed_deb.sh "/along/$debian"
rm -rf "$work/bare"

echo "== The Windows control"
unzip -q "$files/$windows.zip" -d "$work/windows"
control=$work/windows/$windows
notes=$control/REGISTERING.txt
[ "$(grep -c $'\r$' "$notes")" -eq "$(wc -l <"$notes")" ] || fail "REGISTERING.txt has other line ends than those of Windows"
# use_control BITS TRIPLE TOOLCHAIN COMMAND...: the file of that width, with Wine of that width behind the command.
use_control() {
  local bits=$1 triple=$2 toolchain=$3
  local wine=("${@:4}" "$root/tests/com/in_wine.sh" "$work/wine$bits")
  local server="Z:$control/$bits-bit/ZOLT20MappingCtrl.ocx" own=$work/windows/$bits
  in_wine() {
    quietly xvfb-run -a "${wine[@]}" "$@"
  }
  mkdir "$own"
  in_wine regsvr32 /s "$server"
  in_wine reg export 'HKLM\Software\Classes' "Z:$own/classes.reg" /y
  iconv -f UTF-16 -t UTF-8 "$own/classes.reg" >"$own/classes.txt"
  names=$(grep -oE '\{[0-9A-F-]{36}\}|ProgID +\S+' "$notes" | sed 's/^ProgID *//; s/\r$//')
  [ "$(wc -l <<<"$names")" -eq 6 ] || fail "REGISTERING.txt does not tell six names"
  while read -r name; do
    grep -qiF "$name" "$own/classes.txt" || fail "$name of REGISTERING.txt is not in the registry"
  done <<<"$names"
  in_wine cscript //nologo "Z:$root/tests/com/client.js"
  [ "$(tr -d '\r' <"$work/last.log")" = "0 failures" ] || fail "the script client did not come to its end: $(<"$work/last.log")"
  # The notes' own first try.
  sed -n 's/\r$//; /ActiveXObject/,/Echo/p' "$notes" >"$own/try.js"
  in_wine cscript //nologo "Z:$own/try.js"
  diff <(tr -d '\r' <"$work/last.log") <(printf 'select CUSTOMER.C_LAST\nfrom  CUSTOMER\nendselect\n') ||
    fail "the first try of REGISTERING.txt"
  # The program of the examples, with somebody at its mouse.
  quietly cmake -S examples/windows -B "$own/build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$root/cmake/$toolchain.cmake" \
    -DZOLT20_INSTALLED="$control"
  quietly cmake --build "$own/build"
  quietly "$triple-g++-posix" -std=c++20 -DUNICODE -D_UNICODE -municode -static -o "$own/driver.exe" tests/com/example_driver.cpp \
    -lole32 -luser32
  in_wine "$own/driver.exe" "Z:$own/build/windows_embedding.exe"
  grep -qF 'char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*name' "$work/last.log" || {
    cat "$work/last.log" >&2
    fail "the program prints no field records"
  }
  in_wine regsvr32 /s /u "$server"
}
use_control 64 x86_64-w64-mingw32 mingw-w64
not_used=
if reason=$(scripts/wine32.sh --make 2>&1); then
  use_control 32 i686-w64-mingw32 mingw-w64-32 "$root/scripts/wine32.sh"
else
  perl tests/com/inspect.pl i686-w64-mingw32-objdump "$control/32-bit/ZOLT20MappingCtrl.ocx" 4 || fail "the control of 32 bits"
  not_used=", but for the Windows control of 32 bits, which was NOT TRIED: ${reason//$'\n'/ }"
fi

echo "== The package for npm"
mkdir "$work/site" "$work/tools"
cd "$work/site"
quietly npm init --yes
quietly npm install --offline --no-audit --no-fund "$files/$npm"
cp "$root/tests/web/package.json" "$root/tests/web/package-lock.json" "$work/tools/"
(cd "$work/tools" && quietly npm ci --no-audit --no-fund)
cp "$root/tests/web/typed_host.ts" "$root/tests/package/installed_element.mjs" .
echo '{"compilerOptions": {"strict": true, "noEmit": true, "target": "es2022", "module": "esnext", "moduleResolution": "bundler",
  "lib": ["es2022", "dom", "dom.iterable"], "types": [], "exactOptionalPropertyTypes": true}, "files": ["typed_host.ts"]}' >tsconfig.json
quietly node "$work/tools/node_modules/typescript/bin/tsc" -p .
quietly node installed_element.mjs "$work/tools/package.json"

cd "$root"
rm -rf "$work"
echo "The release of $version is the same twice, and each of its archives works$not_used"
