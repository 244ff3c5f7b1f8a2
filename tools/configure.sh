#!/usr/bin/env bash
# Configures and builds the project in a build tree (default: build/).
#   tools/configure.sh [build dir] [Release|Debug]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build}
type=${2:-Release}
cmake -S "$root" -B "$build" -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-x86_64.cmake" \
  -DCMAKE_BUILD_TYPE="$type" >/dev/null
cmake --build "$build" -j "$(nproc)"
