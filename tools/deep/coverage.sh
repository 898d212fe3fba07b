#!/bin/bash
# The tests with coverage counters: they pass, and reach most lines of src.
set -e
floor=88  # percent of lines
cmake -S . -B build-cov -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTARVANE_COVERAGE=ON >/dev/null
cmake --build build-cov >/dev/null
find build-cov -name '*.gcda' -delete
LIBGL_ALWAYS_SOFTWARE=1 ctest --test-dir build-cov --output-on-failure -j "$(nproc)" >build-deep/ctest-cov.log || status=$?
grep -A100 'tests passed' build-deep/ctest-cov.log
gcovr -r . --filter src/ build-cov --fail-under-line $floor >build-deep/gcovr.out || status=$?
tail -5 build-deep/gcovr.out
echo "summary: $(grep 'tests passed' build-deep/ctest-cov.log); lines $(awk '/^TOTAL/ {print $NF}' build-deep/gcovr.out)," \
    "floor $floor%"
exit "${status:-0}"
