#!/bin/bash
# Draws docs/pictures/sky-views.jpg, the places and hours of sky_views.txt in its order, with the programs and the
# content of a build folder, build by default.
set -e
cd "$(dirname "$0")/../.."
build=$(realpath "${1:-build}")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
LIBGL_ALWAYS_SOFTWARE=1 xvfb-run -a -s "-screen 0 1024x768x24" \
    "$build/tools/sky_view" docs/scripts/sky_views.txt "$folder"
files=()
for name in $(sed 's/#.*//' docs/scripts/sky_views.txt | awk 'NF {print $1}'); do files+=("$folder/$name.png"); done
montage "${files[@]}" -resize 360x270 -geometry +2+2 -tile 4x -quality 82 -strip docs/pictures/sky-views.jpg
