#!/usr/bin/env bash
# Builds everything and runs the whole test suite under Wine, with one
# persistent wineserver for the run. Exits non-zero on any failure.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build}
"$root/tools/install-deps.sh"
start=$(date +%s)
"$root/tools/configure.sh" "$build"

# Make the prefix once, then keep its wineserver up for every test program.
export WINEPREFIX="$build/wineprefix" DRAWTOOL_BUILD_DIR="$build"
"$root/cmake/wine-run.sh" --version >/dev/null
( cd "$build" && WINEDEBUG=-all wineserver -p )
trap 'WINEPREFIX="$build/wineprefix" wineserver -k 2>/dev/null || true' EXIT
# Start Wine's system services now, detached from ctest's output pipes: a
# service started by the first test would hold the pipes open and ctest
# would wait for it forever.
"$root/cmake/wine-run.sh" cmd.exe /c exit </dev/null >/dev/null 2>&1

cd "$build"
ctest --output-on-failure --timeout 900
echo "test run took $(( $(date +%s) - start )) s"
