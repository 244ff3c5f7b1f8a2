#!/usr/bin/env bash
# Runs a Windows program under Wine in this build tree's own headless prefix.
# The prefix is made on first use; HOME points at a scratch folder because the
# prefix's Desktop and Documents folders link into $HOME.
set -euo pipefail
build="${DRAWTOOL_BUILD_DIR:-$PWD}"
while [ ! -f "$build/CMakeCache.txt" ] && [ "$build" != / ]; do build=$(dirname "$build"); done
[ -f "$build/CMakeCache.txt" ] || build="$PWD"
export WINEPREFIX="${WINEPREFIX:-$build/wineprefix}"
export WINEDEBUG=-all
# No Mono or Gecko installs; and no debugger: a program that crashes ends at
# once (winedbg --auto would wait forever without a console to talk to).
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml,winedbg.exe=}"
export HOME="${DRAWTOOL_WINE_HOME:-$build/wine-home}"
unset TZ
unset DISPLAY
mkdir -p "$HOME"
wine=/usr/lib/wine/wine64
[ -x "$wine" ] || wine=wine
if [ ! -f "$WINEPREFIX/.drawtool-ready" ]; then
  (
    flock 9
    if [ ! -f "$WINEPREFIX/.drawtool-ready" ]; then
      wineboot -i >/dev/null 2>&1 || "$wine" wineboot -i >/dev/null 2>&1
      # No X: windows, message boxes and the clipboard go through the null driver.
      "$wine" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1
      wineserver -w
      touch "$WINEPREFIX/.drawtool-ready"
    fi
  ) 9>"$build/.wineprefix.lock"
fi
exec "$wine" "$@"
