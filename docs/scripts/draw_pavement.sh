#!/bin/bash
# Draws docs/pictures/pavement.jpg from the content of a build folder, build by default: rows of asphalt and concrete in
# the order of a runway, then pads, shoulders, natural runways and skid marks.
set -e
cd "$(dirname "$0")/../.."
build=$(realpath "${1:-build}")
target=$PWD/docs/pictures/pavement.jpg
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$build/Orvelle/Resources/bitmaps/runways"
strip() {
    local parts=()
    for row in rway_blas:144 rway_dis1:144 rway_dis3:144 rway_thr2:144 numbers/rway_L:36 numbers/rway_24:36 numbers/rway_semi:72 \
               rway_tdz3:144 rway_line:144 rway_fdmk:144; do
        convert "$1/${row%:*}.png" -resize "144x${row#*:}!" "$work/${row##*/}.png"
        parts=("$work/${row##*/}.png" "${parts[@]}")
    done
    convert "${parts[@]}" -append -rotate 90 "$work/strip_$1.png"
}
strip asphalt
strip concrete
montage asphalt/{helipad,rway_turn,rway_shoulder_l}.png concrete/{rway_pave,rway_shoulder_r}.png grass/rway_thr1.png \
    dirt/rway_line.png grav/rway_line.png lakebed/rway_thr1.png grass/helipad.png taxiline.png skids.png \
    -background '#6a6f55' -resize 184x184 -geometry 184x184+3+3 -tile 6x "$work/rest.png"
convert "$work"/strip_*.png "$work/rest.png" -append -quality 84 -strip "$target"
