#!/usr/bin/env bash
# Builds everything and runs the whole test suite under Wine, with one
# persistent wineserver for the run. Exits non-zero on any failure.
#   tools/test.sh [build dir]
source "$(dirname "$0")/common.sh"
build=${1:-$root/build}
"$root/tools/install-deps.sh"
start=$(date +%s)
"$root/tools/configure.sh" "$build"

# Make the prefix once, then keep one wineserver up for every test program;
# a server left by an earlier command is ended first, since a second one
# cannot start beside it.
export WINEPREFIX="$build/wineprefix" DRAWTOOL_BUILD_DIR="$build"
"$root/cmake/wine-run.sh" --version >/dev/null
stop_wineserver "$build"
WINEDEBUG=-all wineserver -p
trap 'stop_wineserver "$build"' EXIT
# Start Wine's system services now, detached from ctest's output pipes: a
# service started by the first test would hold the pipes open and ctest
# would wait for it forever.
"$root/cmake/wine-run.sh" cmd.exe /c exit </dev/null >/dev/null 2>&1

cd "$build"
if ! ctest --output-on-failure --timeout 900; then
  # A program that ends during a death test leaves the error output the test
  # was capturing in the prefix's temp folder; show what it said.
  for f in "$WINEPREFIX"/drive_c/users/*/Temp/gte*.tmp; do
    if [ -s "$f" ]; then echo "== captured error output left in $f:"; cat "$f"; fi
  done
  echo "test.sh: FAILED: ctest reported failing tests" >&2
  exit 1
fi
echo "test run took $(( $(date +%s) - start )) s"
