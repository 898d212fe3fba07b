#!/bin/bash
# Lays the built interface image on a checkerboard: docs/pictures/interface.png. Takes the build folder, build by default.
set -e
cd "$(dirname "$0")/../.."
image=${1:-build}/Orvelle/Resources/bitmaps/interface.png
convert -size 512x512 tile:pattern:checkerboard -colorspace sRGB -fill '#3d4a58' -colorize 70 "$image" -composite \
    -strip -depth 8 -define png:compression-level=9 docs/pictures/interface.png
