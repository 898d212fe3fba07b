#!/bin/bash
# Draws the sheet of the sky's sets over the day, docs/pictures/sky-sets.jpg, with the programs of a build folder,
# build by default.
set -e
cd "$(dirname "$0")/../.."
build=$(realpath "${1:-build}")
sheet=$(mktemp --suffix=.png)
trap 'rm -f "$sheet"' EXIT
"$build/content/sky_make" --sheet "$sheet"
convert "$sheet" -resize 1200x -quality 80 -strip docs/pictures/sky-sets.jpg
