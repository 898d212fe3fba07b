#!/bin/bash
# An hour (SOAK_SECONDS) of flight by random controls for every aircraft; long walks of the region, whose memory stays
# flat.
set -e
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build --target flightlab content test_scenery >/dev/null
mapfile -t aircraft < <(find build/Orvelle/Aircraft -name '*.acf' | sort)
failed=0
TARVANE_WALK_STEPS=1000000 TARVANE_REAL_SHIFTS=200 build/tests/test_scenery --gtest_brief=1 \
    --gtest_filter='region_test.a_random_walk*:region_fill_test.*leave_the_memory*' ||
    { echo "the region's walks failed"; failed=$((failed + 1)); }
for file in "${aircraft[@]}"; do
    echo "-- $file"
    build/tools/flightlab fly --seconds "${SOAK_SECONDS:-3600}" --script random --restart "$file" </dev/null ||
        { echo "flightlab ended with $?"; failed=$((failed + 1)); }
done
echo "summary: ${#aircraft[@]} aircraft, ${SOAK_SECONDS:-3600} s each, $failed failed"
[ ${#aircraft[@]} -gt 0 ] && [ $failed -eq 0 ]
