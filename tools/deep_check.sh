#!/bin/bash
# The slow part of ./check --deep, or those of its parts that are named: every part runs, whatever became of
# the others, and a line each tells the end. Each is a script of tools/deep/ that fails when it finds a fault;
# what it says is kept in build-deep/PART.log.
#   FUZZ_SECONDS   for each fuzz target, 600 by default
#   MUTANTS        faults planted in each folder, 40 by default
#   SOAK_SECONDS   of flight for each aircraft, 3600 by default
cd "$(dirname "$0")/.." || exit 2
parts=("$@")
[ $# -gt 0 ] || parts=(hash sanitizers fuzz tidy coverage mutants soak)
for part in "${parts[@]}"; do
    [ -x "tools/deep/$part.sh" ] || { echo "no part $part; there are:" tools/deep/*.sh; exit 2; }
done

mkdir -p build-deep
summary=()
status=0
for part in "${parts[@]}"; do
    echo "== $part"
    start=$SECONDS
    if "tools/deep/$part.sh" 2>&1 | tee "build-deep/$part.log"; [ "${PIPESTATUS[0]}" -eq 0 ]; then
        end=good
    else
        end=FAILED
        status=1
    fi
    summary+=("$(printf '%-12s %-7s %5d s  %s' "$part" $end $((SECONDS - start)) \
        "$(sed -n 's/^summary: //p' "build-deep/$part.log" | tail -1)")")
done
echo "== summary"
printf '%s\n' "${summary[@]}"
exit $status
