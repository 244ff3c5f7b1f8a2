#!/usr/bin/env bash
# The main job: builds the library and the demo host, runs the host under
# Wine, and leaves its pictures in build/pictures (drawing.png, drawing.emf).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/tools/install-deps.sh"
"$root/tools/configure.sh" "$root/build"
cd "$root/build"
rm -rf pictures
"$root/cmake/wine-run.sh" bin/demo_host.exe pictures
ls -l pictures
