#!/usr/bin/env bash
# Configures the build tree and builds the given targets (all when none).
#   tools/configure.sh [build dir] [target...]
# DRAWTOOL_BUILD_TYPE chooses Release (the default) or Debug.
source "$(dirname "$0")/common.sh"
build=${1:-$root/build}
shift || true
cmake -S "$root" -B "$build" -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-x86_64.cmake" \
  -DCMAKE_BUILD_TYPE="${DRAWTOOL_BUILD_TYPE:-Release}" >/dev/null
targets=()
for target in "$@"; do targets+=(--target "$target"); done
cmake --build "$build" -j "$(nproc)" "${targets[@]}"
