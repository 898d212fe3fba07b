#!/bin/bash
# Draws docs/pictures/sky-bodies.jpg from the content of a build folder, build by default: moons, lights and glow,
# northern lights, squares of the Earth.
set -e
cd "$(dirname "$0")/../.."
build=$(realpath "${1:-build}")
target=$PWD/docs/pictures/sky-bodies.jpg
rows=$(mktemp -d)
trap 'rm -rf "$rows"' EXIT
cd "$build/Orvelle/Resources/bitmaps"
row() { montage "${@:2}" -background '#101820' -resize 190x150 -geometry 190x150+3+3 -tile 6x "$rows/$1.png"; }
row 1 world/moon/moon{02,05,07,09,12,17}.png
row 2 world/lites/lights.png world/lites/sun_glow.png world/overlays/aurora_{1,2,3,4}.png
row 3 'earth orbit textures'/{+30-120,+40+000,+40+010,-40+170,+30+130,+20+080}.png
convert "$rows"/*.png -append -quality 84 -strip "$target"
