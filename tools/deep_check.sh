#!/bin/bash
# The slow part of ./check --deep. Seconds per fuzz target: FUZZ_SECONDS, 600 by default.
set -e
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
fuzz_seconds=${FUZZ_SECONDS:-600}

echo "== flight hash over two compilers and two optimisation levels"
hashes=()
for compiler in g++ clang++; do
    for level in O0 O2; do
        folder=build-hash-$compiler-$level
        cmake -S . -B "$folder" -G Ninja -DCMAKE_CXX_COMPILER=$compiler -DCMAKE_BUILD_TYPE=None \
            -DCMAKE_CXX_FLAGS="-$level" -DTARVANE_TESTS=OFF >/dev/null
        cmake --build "$folder" >/dev/null
        hash=""
        while read -r aircraft; do
            hash+=" $("$folder/tools/flightlab" hash --passes 3000 "$aircraft" </dev/null)"
        done < <(find "$folder/Orvelle/Aircraft" -name '*.acf' | sort)
        echo "$compiler -$level: $hash"
        hashes+=("$hash")
    done
done
[ "$(printf '%s\n' "${hashes[@]}" | sort -u | wc -l)" -eq 1 ] || { echo "the hashes differ"; exit 1; }

echo "== tests under address and undefined-behaviour sanitizers"
cmake -S . -B build-asan -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Debug -DTARVANE_SANITIZE=ON >/dev/null
cmake --build build-asan
ASAN_OPTIONS=detect_leaks=0 ctest --test-dir build-asan --output-on-failure -j "$(nproc)"

echo "== fuzz targets, $fuzz_seconds s each"
cmake -S . -B build-fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Release -DTARVANE_FUZZ=ON \
    -DTARVANE_SANITIZE=ON -DTARVANE_TESTS=OFF >/dev/null
cmake --build build-fuzz
for target in build-fuzz/fuzz/fuzz_*; do
    [ -x "$target" ] && [ -f "$target" ] || continue
    name=$(basename "$target")
    corpus=$(mktemp -d)
    case $name in
        fuzz_afl) cp build-fuzz/Orvelle/Airfoils/*.afl "$corpus" ;;
        fuzz_png) cp build-fuzz/Orvelle/Resources/bitmaps/interface.png "$corpus" ;;
        fuzz_menu_text)  # the first byte tells strings from menus
            (printf '\1'; cat build-fuzz/Orvelle/Resources/text/german/Tarvane.txt) >"$corpus/text"
            (printf '\0'; cat build-fuzz/Orvelle/Resources/menus/german/Tarvane.txt) >"$corpus/menus" ;;
        fuzz_http)  # the first two bytes pick the target of the body and the split
            printf '\0\7HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nhello' \
                >"$corpus/answer" ;;
        fuzz_dsf)  # the first byte 2: the contents of each atom behind its length
            (printf "\2\4\0a\0b\0\2\0w\0\2\0o\0\2\0p\0\2\0n\0"
             printf "\27\0\1\0\0\3\0\20\31\0\0\2\0\2\0\0\0\0\12\0\0\2\0\26\25"
             printf "\16\0\2\0\0\0\2\0\1\0\2\0\2\202\3\0"
             printf "\20\0\0\0\200\77\0\0\0\0\0\0\200\77\0\0\0\0"
             printf "\43\0\2\0\0\0\4\0\1\0\0\0\2\0\0\0\2\202\3\0\0\0\2\202\4\0\0\0\0\5\0\0\0\6\0\0\0"
             printf "\40\0"; head -c 32 /dev/zero) >"$corpus/tree" ;;
        fuzz_apt|fuzz_nav|fuzz_fix|fuzz_awy)  # an even first byte: a whole file; an odd one: rows
            table="build-fuzz/Orvelle/Resources/Earth nav data/${name#fuzz_}.dat"
            (printf '\0'; head -c 20000 "$table") >"$corpus/whole"
            (printf '\1'; tail -c 20000 "$table") >"$corpus/rows" ;;
        fuzz_obj)  # an even first byte: a whole file; an odd one: commands
            find build-fuzz/Orvelle/Resources -name '*.obj' -size -20k | while read -r object; do
                (printf '\0'; cat "$object") >"$corpus/$(basename "$object")"
                (printf '\1'; tail -n +7 "$object") >"$corpus/$(basename "$object").commands"
            done ;;
    esac
    extra="-max_len=40000 -len_control=0"
    [[ $name == fuzz_acf ]] && extra="-max_len=400 -len_control=0"
    [[ $name == fuzz_http ]] && extra="-max_len=70000"  # beyond the longest header
    echo "-- $name"
    "$target" -max_total_time="$fuzz_seconds" -timeout=60 -rss_limit_mb=4096 -print_final_stats=1 $extra "$corpus" \
        >"build-fuzz/$name.log" 2>&1 || { tail -40 "build-fuzz/$name.log"; exit 1; }
    grep 'stat::number_of_executed_units' "build-fuzz/$name.log" || true
    rm -rf "$corpus"
done

echo "== clang-tidy"
cmake -S . -B build -DCMAKE_EXPORT_COMPILE_COMMANDS=ON >/dev/null
clang-tidy -p build --quiet $(git ls-files 'src/*.cpp') 2>/dev/null | grep -E 'warning|error' | sort -u | head -50 || true

echo "== coverage"
cmake -S . -B build-cov -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTARVANE_COVERAGE=ON >/dev/null
cmake --build build-cov >/dev/null
ctest --test-dir build-cov -j "$(nproc)" >/dev/null || true
gcovr -r . --filter src/ build-cov | tail -5

echo "== soak: an hour of flight of every aircraft"
find build/Orvelle/Aircraft -name '*.acf' | sort | while read -r aircraft; do
    echo "-- $aircraft"
    build/tools/flightlab fly --seconds 3600 --script random --restart "$aircraft" </dev/null
done
