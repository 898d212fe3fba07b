#!/bin/bash
# Draws the picture in docs/worlds.md from the tiles of the first flight: from 300, 3,000, 1,500 and 10,000 m. Takes the build folder, build by default.
set -e
cd "$(dirname "$0")/../.."
build=$(realpath "${1:-build}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
view() {
    (cd "$work" && LIBGL_ALWAYS_SOFTWARE=1 xvfb-run -a -s "-screen 0 1024x768x24" "$build"/tools/tile_view \
        "$build/Orvelle/Resources" "$@")
}
view 34 -118 view.png 34.06 -117.66 300 20 -5 34.45 -117.55 3000 215 -14 34.6 -118.0 10000 50 -30
view 33 -119 coast.png 33.30 -118.55 1500 75 -10
cd "$work"
convert \( view_1.png view_2.png +append \) \( coast.png view_3.png +append \) -append -resize 50% -strip \
    -quality 82 sheet.jpg
cd - >/dev/null
mv "$work/sheet.jpg" docs/pictures/land-views.jpg
