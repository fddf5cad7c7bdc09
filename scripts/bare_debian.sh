#!/usr/bin/env bash
# Tries the last commit as a newcomer would: runs a command in a fresh clone of it, inside a Debian 12 that has nothing else
# installed. Only root can.
#   scripts/bare_debian.sh DIR COMMAND [ARGUMENT...]       such as scripts/bare_debian.sh /var/tmp/bare ./test
# DIR is made by debootstrap, from the package sources of this machine, unless it was made before; what a command installs stays in
# it. With COMPILER_CACHE set to a folder, the cache of ccache is kept there. With TAKE_ALONG set to a folder, the command finds that
# folder, read-only, as /along.
set -euo pipefail

fail() {
  echo "$1" >&2
  exit 1
}

[ $# -ge 2 ] || fail "Usage: scripts/bare_debian.sh DIR COMMAND [ARGUMENT...]"
[ "$(id -u)" -eq 0 ] || fail "Only root can make a Debian in a folder and go into it"
repository=$(cd "$(dirname "$0")/.." && pwd)

# In a namespace of its own, whose mounts and processes end with it, however that comes.
if [ "${ZOLT20_IN_NAMESPACE:-}" != yes ]; then
  ZOLT20_IN_NAMESPACE=yes exec unshare --mount --pid --fork --kill-child -- "$0" "$@"
fi
unset ZOLT20_IN_NAMESPACE

source "$repository/scripts/packages.sh"
need_packages debootstrap git >&2

mkdir -p "$1"
bare=$(cd "$1" && pwd)
shift
made=$bare/var/lib/made-by-bare-debian
[ "$bare" != / ] || fail "The folder is this machine's own root"
[ -e "$made" ] || [ -z "$(ls -A "$bare")" ] || fail "$bare is neither empty nor made by this script"

sources=$(debian_sources)
mirror=$(awk '$3 == "bookworm" && $4 == "main" {print $2; exit}' <<<"$sources")
[ -n "$mirror" ] || fail "No package source of this machine has bookworm; apt-get update may be missing"

if [ ! -e "$made" ]; then
  echo "Making a bare Debian 12 in $bare" >&2
  log=$(mktemp)
  debootstrap --variant=minbase bookworm "$bare" "$mirror" >"$log" 2>&1 || {
    tail -n 20 "$log" >&2
    rm -rf "${bare:?}"
    fail "debootstrap failed, and $bare is gone"
  }
  rm "$log"
  # No service is started while it is installed.
  printf '#!/bin/sh\nexit 101\n' >"$bare/usr/sbin/policy-rc.d"
  chmod +x "$bare/usr/sbin/policy-rc.d"
  touch "$made"
fi

# How the machine gets at the network: sources, settings such as a proxy, names, certificates.
echo "$sources" >"$bare/etc/apt/sources.list"
apt-config dump Acquire >"$bare/etc/apt/apt.conf.d/90machine"
cp -L /etc/resolv.conf /etc/hosts "$bare/etc/"
environment=(HOME=/root LANG=C.UTF-8 PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin "TERM=${TERM:-dumb}")
for name in http_proxy https_proxy no_proxy HTTP_PROXY HTTPS_PROXY NO_PROXY; do
  [ -z "${!name:-}" ] || environment+=("$name=${!name}")
done
if command -v npm >/dev/null; then
  environment+=("npm_config_registry=$(npm config get registry 2>/dev/null)")
fi
# Under a name of its own: the package ca-certificates writes the usual one.
if [ -e /etc/ssl/certs/ca-certificates.crt ]; then
  mkdir -p "$bare/etc/ssl/certs"
  cp -L /etc/ssl/certs/ca-certificates.crt "$bare/etc/ssl/certs/of-the-machine.crt"
  for name in NODE_EXTRA_CA_CERTS SSL_CERT_FILE CURL_CA_BUNDLE npm_config_cafile; do
    environment+=("$name=/etc/ssl/certs/of-the-machine.crt")
  done
fi

# A mount of its own, so that this script can be run inside as well.
mount --bind "$bare" "$bare"
mount -t proc proc "$bare/proc"
mount -t sysfs -o ro sysfs "$bare/sys"
mount --bind /dev "$bare/dev"
mount -t devpts -o newinstance,ptmxmode=0666,mode=620 devpts "$bare/dev/pts"
mount -t tmpfs -o mode=1777 tmpfs "$bare/dev/shm"
if [ -n "${COMPILER_CACHE:-}" ]; then
  mkdir -p "$COMPILER_CACHE" "$bare/root/.cache/ccache"
  mount --bind "$COMPILER_CACHE" "$bare/root/.cache/ccache"
fi
if [ -n "${TAKE_ALONG:-}" ]; then
  mkdir -p "$bare/along"
  mount --bind -o ro "$TAKE_ALONG" "$bare/along"
fi

clone=/root/zolt20
rm -rf "${bare:?}$clone"
git clone --quiet --no-checkout "$repository" "$bare$clone"
git -C "$bare$clone" checkout --quiet --detach "$(git -C "$repository" rev-parse HEAD)"

echo "In $bare, at commit $(git -C "$repository" rev-parse --short HEAD): $*" >&2
# Not by exec: this shell is the first process of the namespace, and takes the others along.
status=0
# shellcheck disable=SC2016  # for the shell inside
env -i "${environment[@]}" chroot "$bare" /bin/bash -c 'cd "$0" && exec "$@"' "$clone" "$@" || status=$?
exit "$status"
