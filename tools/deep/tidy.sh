#!/bin/bash
# clang-tidy over all sources of src, by the rules of .clang-tidy: any warning is a fault, and so is its own failure.
set -e
cmake -S . -B build -G Ninja -DCMAKE_EXPORT_COMPILE_COMMANDS=ON >/dev/null
status=0
run-clang-tidy -p build -quiet -j "$(nproc)" "^$PWD/src/.*\.cpp$" >build-deep/clang-tidy.out 2>build-deep/clang-tidy.err ||
    status=$?
read_count=$(grep -c '^clang-tidy' build-deep/clang-tidy.out || true)
warnings=$(sed 's/\x1b\[[0-9;]*m//g' build-deep/clang-tidy.out | grep -E '(warning|error): ' | sort -u || true)
[ -z "$warnings" ] || echo "$warnings"
found=$(printf '%s' "$warnings" | grep -c '' || true)
echo "summary: $read_count sources read, $found warnings"
[ "$status" -eq 0 ] || { tail -5 build-deep/clang-tidy.err; echo "clang-tidy ended with $status"; }
[ "$status" -eq 0 ] && [ "$found" -eq 0 ] && [ "$read_count" -gt 0 ]
