#!/bin/bash
# Measures how frames grow with visibility and with objects, and draws docs/pictures/performance.png. The tiles of the
# starter region hold no objects of their own, so the world "scene" joins it. Takes the build folder, build by default.
set -e
cd "$(dirname "$0")/../.."
build=$(realpath "${1:-build}")
work=$(mktemp -d)
package=$build/Orvelle/Custom\ Scenery/performance
trap 'rm -rf "$work" "$package"' EXIT
bench() { LIBGL_ALWAYS_SOFTWARE=1 xvfb-run -a -s "-screen 0 1024x768x24" "$build"/benchmarks/bench_frame "$@"; }
bench --visibility "$work/visibility"
mkdir -p "$package"
"$build"/tools/world_make scene "$package"
bench --objects "$work/objects"
gnuplot <<PLOT
set terminal pngcairo size 1000,380 font "DejaVu Sans,10"
set output "docs/pictures/performance.png"
set datafile separator ","
set multiplot layout 1,2
set grid lc rgb "#dddddd"
set yrange [0:*]
set y2range [0:*]
set ytics nomirror
set y2tics
set ylabel "ms a frame"
set y2label "thousand triangles"
set key bottom right
set xlabel "visibility, nautical miles"
plot "$work/visibility" skip 1 using 1:2 with linespoints pt 7 lc rgb "#1f5fa8" title "time", \
     "" skip 1 using 1:(\$3/1000) axes x1y2 with linespoints pt 6 lc rgb "#c05020" title "triangles"
set xlabel "number of objects (setting)"
plot "$work/objects" skip 1 using 1:2 with linespoints pt 7 lc rgb "#1f5fa8" title "time", \
     "" skip 1 using 1:(\$3/1000) axes x1y2 with linespoints pt 6 lc rgb "#c05020" title "triangles"
PLOT
