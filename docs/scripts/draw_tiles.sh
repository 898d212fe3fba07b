#!/bin/bash
# Draws the pictures in docs/tile-info.md from the world "scene". Takes the build folder, build by default.
set -e
cd "$(dirname "$0")/../.."
build=$(realpath "${1:-build}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$build"/tools/world_make scene "$work/scene"
"$build"/tools/tile_info --area 34.05,34.17,-117.385,-117.235 "$work"/scene/*/+30-120/+34-118.dsf \
    docs/pictures/tile-info.png >/dev/null
(cd "$work" && LIBGL_ALWAYS_SOFTWARE=1 xvfb-run -a -s "-screen 0 1024x768x24" "$build"/tools/tile_view scene 34 -118 \
    view.png 34.0918 -117.3085 300 10 -12 34.0968 -117.3 2 20 -4 34.1184 -117.2842 9 75 -8 34.05 -117.32 3000 10 -25)
cd "$work"
convert \( view_1.png view_2.png +append \) \( view_3.png view_4.png +append \) -append -resize 50% -strip -quality 80 sheet.jpg
cd - >/dev/null
mv "$work/sheet.jpg" docs/pictures/tile-view.jpg
