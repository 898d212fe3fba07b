#!/bin/bash
# All tests under the address and undefined-behaviour sanitizers.
set -e
cmake -S . -B build-asan -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Debug -DTARVANE_SANITIZE=ON >/dev/null
cmake --build build-asan
ASAN_OPTIONS=detect_leaks=0 LIBGL_ALWAYS_SOFTWARE=1 \
    ctest --test-dir build-asan --output-on-failure -j "$(nproc)" >build-deep/ctest-asan.log || status=$?
grep -A100 'tests passed' build-deep/ctest-asan.log
echo "summary: $(grep 'tests passed' build-deep/ctest-asan.log)"
exit "${status:-0}"
