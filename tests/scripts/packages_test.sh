#!/usr/bin/env bash
# need_packages with an apt-get, a dpkg-query and a sleep made up here: what it installs, how long it waits, and what it says when
# something stays missing. Prints a line for each case that fails.
#   packages_test.sh SOURCES
# shellcheck disable=SC2016,SC2317  # programs are written out in single quotes, and expect calls the functions
set -u
sources=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

# What is installed is a file each in installed/; apt-get does what the lines of script say, one a call: "ok", "lock" or "fail TEXT".
mkdir "$work/bin"
cat >"$work/bin/dpkg-query" <<'END'
#!/bin/sh
for package; do :; done
[ -e "$WORK/installed/$package" ] && printf 'install ok installed'
END
cat >"$work/bin/apt-get" <<'END'
#!/bin/bash
while [[ $1 = -* ]]; do
  case $1 in -o) shift ;; esac
  shift
done
read -r how text < <(sed -n 1p "$WORK/script.$1")
[ "$(wc -l <"$WORK/script.$1")" -eq 1 ] || sed -i 1d "$WORK/script.$1"
echo "$1" >>"$WORK/calls"
case $how in
  lock) echo 'E: Could not get lock /var/lib/dpkg/lock-frontend. It is held by process 7' >&2; exit 100 ;;
  fail) echo "$text" >&2; exit 100 ;;
esac
[ "$1" = install ] || exit 0
shift
cp "$WORK/root/etc/postgresql-common/createcluster.conf" "$WORK/seen" 2>/dev/null
for package; do
  case $package in -*) ;; *) grep -qx "$package" "$WORK/offered" && : >"$WORK/installed/$package" ;; esac
done
END
cat >"$work/bin/apt-cache" <<'END'
#!/bin/sh
candidate='(none)'
! grep -qx "$2" "$WORK/offered" || candidate=1.0
printf '%s:\n  Candidate: %s\n' "$2" "$candidate"
END
cat >"$work/bin/sleep" <<'END'
#!/bin/sh
echo "$1" >>"$WORK/slept"
END
printf '#!/bin/sh\necho "${USER_NUMBER:-0}"\n' >"$work/bin/id"
chmod +x "$work"/bin/*

# begin NAME: nothing is installed; a, b and c are offered; all calls work.
begin() {
  name=$1
  rm -rf "$work/installed" "$work"/script.* "$work/calls" "$work/slept" "$work/root" "$work/seen"
  mkdir -p "$work/installed" "$work/root/usr/share/postgresql-common"
  echo original >"$work/root/usr/share/postgresql-common/createcluster.conf"
  touch "$work/calls" "$work/slept"
  printf 'a\nb\nc\n' >"$work/offered"
  echo ok >"$work/script.update"
  echo ok >"$work/script.install"
}
run() {
  output=$(WORK=$work ZOLT20_ROOT=$work/root PATH="$work/bin:$PATH" bash -c 'source "$1/scripts/packages.sh"; shift; need_packages "$@"; echo went on' _ "$sources" "$@" 2>&1)
  status=$?
}
expect() {
  if ! "${@:2}"; then
    echo "$name: $1. Status $status, and this was said:"
    echo "$output"
    failed=$((failed + 1))
  fi
}
says() { grep -qF -- "$1" <<<"$output"; }
silent() { ! says "$1"; }
calls() { [ "$(paste -sd' ' "$work/calls")" = "$1" ]; }
slept() { [ "$(awk '{ sum += $1 } END { print sum + 0 }' "$work/slept")" -eq "$1" ]; }
ends_with() { [ "$status" -eq "$1" ]; }

begin 'nothing is missing'
touch "$work/installed/a" "$work/installed/b"
run a b
expect 'apt-get stays alone' calls ''
expect 'the command goes on' says 'went on'

begin 'some are missing'
touch "$work/installed/a"
run a b c
expect 'those are named' says 'Installing b c'
expect 'apt-get is called twice' calls 'update install'
expect 'the command goes on' says 'went on'

begin 'the lists stay out of date'
echo 'fail E: Failed to fetch main/InRelease' >"$work/script.update"
run a
expect 'it is tried three times' calls 'update update update install'
expect 'the reason is told' says 'E: Failed to fetch main/InRelease'
expect 'the command goes on' says 'went on'

begin 'the lists are out of date for a moment'
printf 'fail E: moment\nok\n' >"$work/script.update"
run a
expect 'it is tried again' calls 'update update install'
expect 'nobody hears of it' silent moment
expect 'the command goes on' says 'went on'

begin 'apt is locked for a while'
printf 'lock\nlock\nok\n' >"$work/script.install"
run a
expect 'it waits' slept 10
expect 'it says so once' says 'Waiting for another program that installs packages'
expect 'the command goes on' says 'went on'

begin 'apt stays locked'
echo lock >"$work/script.install"
run a
expect 'it waits ten minutes' slept 600
expect 'the package is named' says 'a could not be installed'
expect 'the lock is told' says 'It is held by process 7'
expect 'the command ends' ends_with 1

begin 'a package that is not offered'
printf 'a\n' >"$work/offered"
printf 'fail E: Unable to locate package b\n' >"$work/script.install"
run a b
expect 'it is named with the reason' says 'b could not be installed: the lists of packages do not have it'
expect 'so is the other one' says 'a could not be installed'
expect 'the words of apt-get are there' says 'E: Unable to locate package b'
expect 'the command ends' ends_with 1
expect 'and does no more' silent 'went on'

begin 'apt-get says nothing and does nothing'
printf 'a\n' >"$work/offered"
run a b
expect 'what is missing is named' says 'b could not be installed: the lists'
expect 'what is there is not' silent 'a could not be installed'
expect 'the command ends' ends_with 1

settings=$work/root/etc/postgresql-common
begin 'PostgreSQL where it never was'
echo postgresql-15 >>"$work/offered"
run a postgresql-15
expect 'it makes no database' grep -qx 'create_main_cluster = false' "$work/seen"
expect 'its settings are its own afterwards' grep -qx original "$settings/createcluster.conf"
expect 'the command goes on' says 'went on'

begin 'PostgreSQL where it was'
echo postgresql-15 >>"$work/offered"
mkdir -p "$settings"
echo mine >"$settings/createcluster.conf"
run postgresql-15
expect 'its settings stay' grep -qx mine "$work/seen"
expect 'afterwards too' grep -qx mine "$settings/createcluster.conf"

begin 'no PostgreSQL'
run a
expect 'there are no settings of it' test ! -e "$settings"

begin 'neither root nor sudo'
mkdir -p "$work/few"
for tool in bash mktemp grep cat sed paste; do ln -sf "$(command -v "$tool")" "$work/few/$tool"; done
output=$(WORK=$work USER_NUMBER=1000 PATH="$work/bin:$work/few" bash -c 'source "$1/scripts/packages.sh"; need_packages a b; echo went on' _ "$sources" 2>&1)
status=$?
expect 'the packages are named' says 'only root can install them: a b'
expect 'apt-get stays alone' calls ''
expect 'the command ends' ends_with 1

[ $failed -eq 0 ] && echo 'All cases pass'
exit $((failed > 0))
