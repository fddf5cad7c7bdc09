# shellcheck shell=bash
# Sourced by the commands at the top of the repository: installs the Debian packages that a command needs and that are missing.
# shellcheck disable=SC2034 # the lists of packages are for those who source it

# need_packages PACKAGE...: installs those that are missing. Waits up to ten minutes for another program that installs packages, tries
# again what fails for a moment, and goes on with the lists of packages that are there when they can't be brought up to date. When
# something stays missing it says which package and why, and ends the command.
need_packages() {
  local missing=() package
  mapfile -t missing < <(missing_of "$@")
  [ ${#missing[@]} -gt 0 ] || return 0

  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing, and only root can install them: ${missing[*]}" >&2
      exit 1
    fi
    as_root=(sudo)
  fi
  echo "Installing ${missing[*]}"
  local complaint
  complaint=$(mktemp)
  apt_get "$complaint" update -qq || {
    echo "The lists of packages could not be brought up to date; going on with those that are there:" >&2
    reasons_in "$complaint"
  }
  keep_out_cluster "${missing[@]}"
  if apt_get "$complaint" install -y -qq --no-install-recommends "${missing[@]}"; then
    mapfile -t missing < <(missing_of "${missing[@]}")
  fi
  let_in_cluster
  if [ ${#missing[@]} -eq 0 ]; then
    rm "$complaint"
    return 0
  fi
  for package in $(missing_of "${missing[@]}"); do
    if [[ "$(apt-cache policy "$package" 2>/dev/null)" == *'Candidate: '[!\(]* ]]; then
      echo "$package could not be installed" >&2
    else
      echo "$package could not be installed: the lists of packages do not have it" >&2
    fi
  done
  echo "What apt-get said:" >&2
  reasons_in "$complaint"
  rm "$complaint"
  exit 1
}

# PostgreSQL makes a database of its own when it is installed, and starts it with the machine. Nobody asked for one here, so it is told not
# to where it was never installed; afterwards its settings are those of its package.
postgresql_settings=${ZOLT20_ROOT:-}/etc/postgresql-common
keep_out_cluster() {
  cluster_kept_out=no
  [[ " $* " == *" $postgresql_package "* ]] && [ ! -e "$postgresql_settings" ] || return 0
  cluster_kept_out=yes
  "${as_root[@]}" mkdir -p "$postgresql_settings"
  echo 'create_main_cluster = false' | "${as_root[@]}" tee "$postgresql_settings/createcluster.conf" >/dev/null
}
let_in_cluster() {
  [ "$cluster_kept_out" = yes ] || return 0
  local original=${ZOLT20_ROOT:-}/usr/share/postgresql-common/createcluster.conf
  [ ! -e "$original" ] || "${as_root[@]}" cp "$original" "$postgresql_settings/"
}

# missing_of PACKAGE...: those that are not installed, a line each.
missing_of() {
  local package
  for package in "$@"; do
    [ "$(dpkg-query -W -f '${Status}' "$package" 2>/dev/null)" = 'install ok installed' ] || echo "$package"
  done
}

# reasons_in FILE: the lines in which apt-get told what was wrong, or all when none did.
reasons_in() {
  grep -E '^(E|Err|W):' "$1" >&2 || cat "$1" >&2
}

# apt_get COMPLAINT ARGUMENT...: apt-get, with what it says in the file COMPLAINT. While another program has apt or dpkg locked it
# waits, ten minutes in all; anything else that fails is tried three times.
apt_get() {
  local complaint=$1 waited=0 tries=0
  shift
  until "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive LC_ALL=C apt-get -o DPkg::Lock::Timeout=600 -o Acquire::Retries=3 \
    "$@" >"$complaint" 2>&1; do
    if grep -qE 'Could not get lock|Unable to (acquire|lock)' "$complaint"; then
      [ $waited -gt 0 ] || echo "Waiting for another program that installs packages" >&2
      [ $waited -lt 600 ] || return 1
      sleep 5
      waited=$((waited + 5))
    else
      tries=$((tries + 1))
      [ $tries -lt 3 ] || return 1
      sleep $((tries * 5))
    fi
  done
}

# The machine's sources of Debian 12 itself, whatever others it has, as lines of a list of sources.
debian_sources() {
  # shellcheck disable=SC2016  # apt takes these words as they stand
  apt-get indextargets --format 'deb $(SITE) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' 'Origin: Debian' |
    { grep -E ' bookworm(-updates|-security)? ' || true; } | sort -u
}

# What building takes, tests included: Qt's way to screen readers is in its private headers.
build_packages=(ccache g++ cmake ninja-build nlohmann-json3-dev rapidjson-dev libgtest-dev qt6-base-dev qt6-base-private-dev
  qt6-l10n-tools libsqlite3-dev)
# What counting instructions takes beside that.
counts_packages=(libbenchmark-dev valgrind python3)
# What testing takes beside that: a display, Qt's own texts in other languages, the letters that pages are looked at in, and servers of
# databases with the ways to them.
font_packages=(fonts-dejavu-core fonts-liberation fonts-noto-core)
postgresql_package=postgresql-15
server_packages=("$postgresql_package" mariadb-server-core mariadb-client-core libqt6sql6-psql libqt6sql6-mysql libqt6sql6-odbc odbc-postgresql
  odbc-mariadb libsqliteodbc)
test_packages=(xvfb xauth qt6-translations-l10n "${font_packages[@]}" "${server_packages[@]}")

# What building the Windows control takes: compilers, and what type libraries are made of.
windows_build_packages=(ccache cmake ninja-build g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools libwine-dev)

# That, and what its tests take: the system by Wine, a container of controls in source, letters.
windows_packages=("${windows_build_packages[@]}" nlohmann-json3-dev googletest wine wine64 xvfb xauth fp-compiler fp-utils fpc-source
  lazarus-src "${font_packages[@]}")

# What makes the Debian of 32 bits in which its tests for 32 bits run.
wine32_packages=(mmdebstrap arch-test dpkg-dev)

# What building the browser element and serving its page take. A node of version 18 or later will do, wherever it comes from.
node_packages=()
node -e 'process.exit(Number(parseInt(process.versions.node) < 18))' 2>/dev/null || node_packages=(nodejs)
web_build_packages=(ccache cmake ninja-build emscripten esbuild "${node_packages[@]}")

# What testing it takes beside that: three browsers with letters to draw, a display with a keyboard for those that need one, and the way
# to the npm registry.
npm_packages=()
command -v npm >/dev/null || npm_packages=(npm)
web_test_packages=(chromium firefox-esr webkit2gtk-driver xvfb xdotool "${font_packages[@]}" "${npm_packages[@]}")

# What listening to a screen reader takes beside both: the screen reader, its bus, a window manager, and keys.
orca_packages=(orca at-spi2-core dbus openbox xdotool xvfb)

# What ./site makes pages with.
site_packages=(doxygen git python3)

# What ./release takes beside all that builds: the plugin for Qt Designer, and what makes archives.
release_packages=(qt6-tools-dev git dpkg-dev file zip "${npm_packages[@]}")

# Object files come from the compiler cache where the same source was compiled before, in whatever folder. The cache lives in the
# home folder (ccache -s tells of it); CCACHE_DISABLE=1 does without. What is compiled while a header changes under it is not kept: the
# object would be found again under the header's older text.
use_compiler_cache() {
  export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
  export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
  export CCACHE_SLOPPINESS=pch_defines,time_macros
}

# configure_and_build PRESET [TARGET...]: all targets when none is named.
configure_and_build() {
  local preset=$1
  shift
  use_compiler_cache
  echo "Building ($preset)"
  cmake --preset "$preset" -Wno-dev --log-level=WARNING >/dev/null
  cmake --build --preset "$preset" ${1:+--target "$@"} -- --quiet
}
