#!/bin/bash
# The hash of every aircraft's flight over two compilers and two levels of optimisation.
set -e
hashes=()
for compiler in g++ clang++; do
    for level in O0 O2; do
        folder=build-hash-$compiler-$level
        cmake -S . -B "$folder" -G Ninja -DCMAKE_CXX_COMPILER=$compiler -DCMAKE_BUILD_TYPE=None \
            -DCMAKE_CXX_FLAGS="-$level" -DTARVANE_TESTS=OFF >/dev/null
        cmake --build "$folder" >/dev/null
        mapfile -t aircraft < <(find "$folder/Orvelle/Aircraft" -name '*.acf' | sort)
        [ ${#aircraft[@]} -gt 0 ] || { echo "no aircraft in $folder"; exit 1; }
        hash=""
        for file in "${aircraft[@]}"; do
            one=$("$folder/tools/flightlab" hash --passes 3000 "$file" </dev/null)
            [ -n "$one" ] || { echo "no hash of $file"; exit 1; }
            hash+=" $one"
        done
        echo "$compiler -$level: $hash"
        hashes+=("$hash")
    done
done
different=$(printf '%s\n' "${hashes[@]}" | sort -u | wc -l)
echo "summary: ${#aircraft[@]} aircraft, $different outcome(s) of ${#hashes[@]} builds"
[ "$different" -eq 1 ]
