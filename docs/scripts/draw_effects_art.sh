#!/bin/bash
# Draws docs/pictures/effects-art.jpg from the content of a build folder, build by default.
set -e
cd "$(dirname "$0")/../.."
build=$(realpath "${1:-build}")
target=$PWD/docs/pictures/effects-art.jpg
cd "$build/Orvelle/Resources/bitmaps/world"
montage clouds/*.png fire/*.png overlays/{fence,ice,prop_disc,scratches,snow,static,wake,win_damage}.png powerlines.png \
    lites/landing_light.png buildings/*.png movie.png cars.png person.png chute.png balloons/*.png maps/{rad_land,sec_water,sec_colors}.png \
    "../../default scenery/Tarvane objects/custom object textures/airport_signs.png" \
    -background '#5a7896' -resize 140x140 -geometry 140x140+3+3 -tile 8x -quality 84 -strip "$target"
