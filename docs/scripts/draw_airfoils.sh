#!/bin/bash
# Draws the polars of every foil of content/airfoils anew into docs/pictures/airfoils, for docs/airfoils.md.
# Usage: docs/scripts/draw_airfoils.sh [BUILD_FOLDER]
set -e
cd "$(dirname "$0")/../.."
tool=${1:-build}/tools/afl_make
scratch=$(mktemp -d)
trap 'rm -r "$scratch"' EXIT
mkdir -p docs/pictures/airfoils
for source in content/airfoils/*.toml; do
    name=$(basename "$source" .toml)
    "$tool" "$source" "$scratch/$name.afl" --plot "$scratch/plot.png" >/dev/null
    # few colours and no time stamps: a small file that only changes with the foil
    convert "$scratch/plot.png" -resize 900x -colors 24 -strip -define png:exclude-chunks=date,time \
        "PNG8:docs/pictures/airfoils/$(tr ' ' '_' <<<"$name" | tr -d '()').png"
    grep -qF "airfoils/$(tr ' ' '_' <<<"$name" | tr -d '()').png" docs/airfoils.md ||
        echo "docs/airfoils.md does not show $name" >&2
done
