#!/bin/bash
# Draws the sheet of land classes by day and night, docs/pictures/land-classes.jpg, from the content of a build
# folder, build by default.
set -e
cd "$(dirname "$0")/../.."
build=$(realpath "${1:-build}")
cd "$build/Orvelle/Resources/bitmaps/terrain"
names=$("$build/content/land_make" list)
files=()
for name in $names; do
    files+=(-label "$name" "$name.png")
    [ -e "${name}_LIT.png" ] && files+=(-label "$name, night" "${name}_LIT.png")
done
montage -font DejaVu-Sans -pointsize 11 "${files[@]}" -resize 150x150 -geometry +3+3 -tile 8x -quality 72 -strip \
    "$OLDPWD/docs/pictures/land-classes.jpg"
