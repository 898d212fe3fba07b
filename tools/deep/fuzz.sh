#!/bin/bash
# Every fuzz target for FUZZ_SECONDS, from the seeds of fuzz_seeds.sh.
set -e
cmake -S . -B build-fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Release -DTARVANE_FUZZ=ON \
    -DTARVANE_SANITIZE=ON -DTARVANE_TESTS=OFF >/dev/null
cmake --build build-fuzz
corpus=$(mktemp -d)
trap 'rm -rf "$corpus"' EXIT
count=0
failed=""
for target in build-fuzz/fuzz/fuzz_*; do
    if [ ! -x "$target" ] || [ ! -f "$target" ]; then continue; fi
    name=$(basename "$target")
    rm -rf "${corpus:?}"/*
    tools/deep/fuzz_seeds.sh "$name" build-fuzz/Orvelle "$corpus"
    case $name in
        fuzz_acf) longest=400 ;;
        fuzz_http) longest=70000 ;;  # beyond the longest header
        *) longest=40000 ;;
    esac
    echo "-- $name"
    "$target" -max_total_time="${FUZZ_SECONDS:-600}" -timeout=60 -rss_limit_mb=4096 -print_final_stats=1 \
        -max_len=$longest -len_control=0 "$corpus" >"build-fuzz/$name.log" 2>&1 ||
        { tail -40 "build-fuzz/$name.log"; failed+=" $name"; }
    grep 'stat::number_of_executed_units' "build-fuzz/$name.log" || true
    count=$((count + 1))
done
echo "summary: $count targets, ${FUZZ_SECONDS:-600} s each; faults in:${failed:- none}"
[ "$count" -gt 0 ] && [ -z "$failed" ]
