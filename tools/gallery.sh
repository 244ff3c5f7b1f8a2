#!/usr/bin/env bash
# The main job: builds the library and the gallery host only (no tests), runs
# the gallery under Wine and leaves its pages in build/gallery: chart, shapes
# and map as PNG and EMF, the chart's namelist and the gallery's log.
#   tools/gallery.sh [gallery options]   (see examples/Gallery.cpp)
source "$(dirname "$0")/common.sh"
build=$root/build
"$root/tools/install-deps.sh"
"$root/tools/configure.sh" "$build" gallery
stop_wineserver "$build"
cd "$build"
"$root/cmake/wine-run.sh" bin/gallery.exe "$@" gallery
