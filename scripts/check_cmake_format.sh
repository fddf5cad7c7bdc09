#!/usr/bin/env bash
# Checks the format of the CMake files by .cmake-format; with --write formats them.
#   scripts/check_cmake_format.sh [--write]
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t files < <(git ls-files -co --exclude-standard '*CMakeLists.txt' '*.cmake' '*.cmake.in')
if [ "${1:-}" = --write ]; then
  cmake-format --in-place "${files[@]}"
else
  cmake-format --check "${files[@]}" || {
    echo "scripts/check_cmake_format.sh --write formats them" >&2
    exit 1
  }
fi
