# shellcheck shell=bash
# Sourced by the commands at the top of the repository: installs the Debian packages that a command needs and that are missing.
# shellcheck disable=SC2034 # the lists of packages are for those who source it

# need_packages PACKAGE...
need_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
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
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# What building and testing take.
build_packages=(ccache g++ cmake ninja-build nlohmann-json3-dev libgtest-dev qt6-base-dev libsqlite3-dev)
# What testing takes beside that.
test_packages=(xvfb xauth)

# What the Windows control and its tests take: compilers, the system by Wine with what type libraries are made of, a container of
# controls in source.
windows_packages=(ccache cmake ninja-build nlohmann-json3-dev googletest g++-mingw-w64-x86-64-posix mingw-w64-tools wine wine64
  libwine-dev xvfb xauth fp-compiler fp-utils fpc-source lazarus-src)

# What building the browser element and serving its page take. A node of version 18 or later will do, wherever it comes from.
web_build_packages=(ccache cmake ninja-build emscripten esbuild)
node -e 'process.exit(Number(parseInt(process.versions.node) < 18))' 2>/dev/null || web_build_packages+=(nodejs)

# What testing it takes beside that: a browser with letters to draw, and the way to the npm registry.
web_test_packages=(chromium fonts-dejavu-core fonts-liberation)
command -v npm >/dev/null || web_test_packages+=(npm)

# Object files come from the compiler cache where the same source was compiled before, in whatever folder. The cache lives in the
# home folder (ccache -s tells of it); CCACHE_DISABLE=1 does without.
use_compiler_cache() {
  export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
  export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
  export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
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
