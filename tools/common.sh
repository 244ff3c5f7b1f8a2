# Sourced by the commands in tools/: stop at the first failure and say what
# failed, and helpers for the build tree's own Wine prefix.
set -Eeuo pipefail
trap 'status=$?; echo "$(basename "$0"): FAILED (exit $status) at line $LINENO: $BASH_COMMAND" >&2; exit $status' ERR

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# Ends any wineserver of the build tree's prefix and waits until it is gone:
# one left persistent by an interrupted test run, or one still shutting down
# after the previous command (a few seconds after its last program ended).
stop_wineserver() {
  WINEPREFIX="$1/wineprefix" wineserver -k >/dev/null 2>&1 || true
  WINEPREFIX="$1/wineprefix" wineserver -w >/dev/null 2>&1 || true
}
