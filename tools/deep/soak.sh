#!/bin/bash
# An hour (SOAK_SECONDS) of flight by random controls for every aircraft.
set -e
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build --target flightlab content >/dev/null
mapfile -t aircraft < <(find build/Orvelle/Aircraft -name '*.acf' | sort)
failed=0
for file in "${aircraft[@]}"; do
    echo "-- $file"
    build/tools/flightlab fly --seconds "${SOAK_SECONDS:-3600}" --script random --restart "$file" </dev/null ||
        { echo "flightlab ended with $?"; failed=$((failed + 1)); }
done
echo "summary: ${#aircraft[@]} aircraft, ${SOAK_SECONDS:-3600} s each, $failed failed"
[ ${#aircraft[@]} -gt 0 ] && [ $failed -eq 0 ]
