#!/bin/bash
# Draws the plan in docs/nav-info.md. Takes the build folder, build by default.
set -e
cd "$(dirname "$0")/../.."
"${1:-build}"/tools/nav_info KEDW --type apt --picture docs/pictures/nav-info.png >/dev/null
convert docs/pictures/nav-info.png -strip -colors 96 -define png:compression-level=9 docs/pictures/nav-info.png
