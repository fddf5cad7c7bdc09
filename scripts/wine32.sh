#!/usr/bin/env bash
# Runs a command inside a Debian 12 of 32 bits that has Wine in it, for programs of Windows of 32 bits, and a compiler of Pascal. Neither
# is installed on the machine itself, whose own packages they would have to agree with.
#   scripts/wine32.sh --make                     makes it unless it is there; ends with 1, and the reason, where it can't be made
#   scripts/wine32.sh --where                    prints the folder it stands in, or would
#   scripts/wine32.sh COMMAND [ARGUMENT...]      such as scripts/wine32.sh wine cmd /c ver
# It stands in the folder ZOLT20_WINE32, /var/tmp/zolt20-wine32 unless that is set, and is kept; delete the folder and it is made anew.
# Inside, this repository, /tmp and the fonts stand where they stand outside. Making and entering it takes root, or sudo.
set -euo pipefail
repository=$(cd "$(dirname "$0")/.." && pwd)
root=${ZOLT20_WINE32:-/var/tmp/zolt20-wine32}
made=var/lib/made-by-wine32

fail() {
  echo "$1" >&2
  exit 1
}

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || fail "Wine of 32 bits takes root or sudo"
  as_root=(sudo)
fi

# Nobody but root put it there.
is_made() {
  [ -e "$root/$made" ] && [ "$(stat -c %u "$root")" -eq 0 ]
}

# A second process that wants to make it waits for the first.
make() {
  source "$repository/scripts/packages.sh"
  (need_packages "${wine32_packages[@]}") || fail "What makes a Debian of 32 bits is missing"
  local mirror settings log
  mirror=$(debian_sources | awk '$3 == "bookworm" && $4 == "main" {print $2; exit}')
  [ -n "$mirror" ] || fail "No package source of this machine has bookworm; apt-get update may be missing"
  settings=$(mktemp)
  log=$(mktemp)
  # How the machine gets at the network.
  apt-config dump Acquire >"$settings"
  echo "Making a Debian of 32 bits with Wine in $root"
  # shellcheck disable=SC2016  # for the shell inside
  "${as_root[@]}" flock "$root.lock" bash -c '
    root=$1 made=$2 mirror=$3 settings=$4
    if [ -e "$root/$made" ] && [ "$(stat -c %u "$root")" -eq 0 ]; then exit 0; fi
    rm -rf --one-file-system "$root.new"
    mmdebstrap --quiet --mode=root --variant=essential --architectures=i386 --include=wine,wine32,fp-compiler \
      --hook-dir=/usr/share/mmdebstrap/hooks/eatmydata --aptopt="$settings" --aptopt="APT::Install-Recommends \"false\"" \
      --aptopt="Acquire::Retries \"3\"" --dpkgopt="path-exclude=/usr/share/doc/*" --dpkgopt="path-exclude=/usr/share/man/*" \
      bookworm "$root.new" "deb $mirror bookworm main" || exit 1
    touch "$root.new/$made"
    rm -rf --one-file-system "$root"
    mv "$root.new" "$root"
  ' wine32 "$root" "$made" "$mirror" "$settings" >"$log" 2>&1 || {
    tail -n 5 "$log" >&2
    rm -f "$settings" "$log"
    fail "mmdebstrap could not make a Debian of 32 bits"
  }
  rm -f "$settings" "$log"
}

# enter COMMAND [ARGUMENT...]: in a namespace of its own, whose mounts end with it. Everything of the environment goes along.
enter() {
  local environment
  mapfile -d '' environment < <(env -0)
  # shellcheck disable=SC2016  # for the shell inside
  "${as_root[@]}" unshare --mount --propagation unchanged bash -c '
    set -euo pipefail
    # In a folder that is no mount of its own, such as another Debian, nothing is there to be made private.
    mount --make-rprivate / 2>/dev/null || ! grep -q " shared:" /proc/self/mountinfo
    root=$1 repository=$2 folder=$3 user=$4 group=$5
    shift 5
    for place in /dev /proc /tmp /usr/share/fonts "$repository"; do
      [ -d "$place" ] || continue
      mkdir -p "$root$place"
      mount --rbind "$place" "$root$place"
    done
    exec unshare --root="$root" --wd="$folder" --setgid="$group" --setuid="$user" env -i "$@"
  ' wine32 "$root" "$repository" "$PWD" "$(id -u)" "$(id -g)" "${environment[@]}" \
    PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin "$@"
}

case "${1:-}" in
  '') fail "Usage: scripts/wine32.sh --make | --where | COMMAND [ARGUMENT...]" ;;
  --where) echo "$root" ;;
  --make)
    is_made || make
    enter wine --version >/dev/null 2>&1 || fail "This machine runs no programs of 32 bits, or lets nobody into the folder $root"
    ;;
  *)
    is_made || fail "There is no Debian of 32 bits in $root; scripts/wine32.sh --make makes it"
    enter "$@"
    ;;
esac
