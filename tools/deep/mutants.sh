#!/bin/bash
# MUTANTS planted faults a folder; the share that the tests catch must not fall below its floor, in percent.
# A floor is the score of the folder's last long run, less what a sample of 40 may scatter (twice its deviation).
set -e
floors="
flight          84
weather         82
aircraft/derive 80
core/math       86
scenery/decode  83
"
status=0
scores=""
while read -r folder floor; do
    [ -n "$folder" ] || continue
    tools/mutate "src/$folder" --sample "${MUTANTS:-40}" --floor "$floor" >"build-deep/mutants.out" </dev/null || status=$?
    cat build-deep/mutants.out
    scores+=" $folder $(sed -n 's/.*score \([0-9]*\) percent$/\1/p' build-deep/mutants.out)/$floor"
done <<<"$floors"
echo "summary: caught/floor in percent:$scores"
exit $status
