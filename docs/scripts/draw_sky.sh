#!/bin/bash
# Draws docs/pictures/sky-sets.jpg from the sky sets of a build folder, build by default: of each set the frames of
# its sky over the day, and below them its columns of light from night to night.
set -e
cd "$(dirname "$0")/../.."
build=$(realpath "${1:-build}")
rows=$(mktemp -d)
trap 'rm -rf "$rows"' EXIT
width=1200 frame_dy=56 band_dy=9
draw_set() { # PLANET NAME
    local colours="$build/Orvelle/Resources/bitmaps/skycolors/$1" frames=() bands=() k x
    for k in {0..15}; do # the first frame is the lowest
        frames+=('(' "$colours/sky_colors_$2.png" +gravity -crop "64x16+0+$((256 - 16 * (k + 1)))" +repage
            -resize "$((width / 16 - 1))x$frame_dy!" -bordercolor black -gravity west -background black
            -extent "$((width / 16))x$((frame_dy + 1))" ')')
    done
    for x in 3 8 13 18 23 28 33 38; do # night's end, the lowest row, comes to the left
        bands+=('(' "$colours/light_colors_$2.png" +gravity -crop "1x512+$x+0" +repage -rotate 90
            -resize "${width}x$((band_dy - 1))!" -background black -gravity north -extent "${width}x$band_dy" ')')
    done
    convert '(' "${frames[@]}" +append ')' "${bands[@]}" -append -background black -gravity north -splice 0x8 \
        "$rows/$1_$2.png"
}
for set in clean misty foggy hialt ocast; do draw_set Earth "earth_$set"; done
for set in clean hialt; do draw_set Mars "mars_$set"; done
sets=()
for set in Earth_earth_{clean,misty,foggy,hialt,ocast} Mars_mars_{clean,hialt}; do sets+=("$rows/$set.png"); done
convert "${sets[@]}" -append -quality 85 -strip docs/pictures/sky-sets.jpg
