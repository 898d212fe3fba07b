#!/bin/bash
# fuzz_seeds.sh TARGET INSTALL CORPUS: lays the inputs that a fuzz target starts from into the folder CORPUS.
set -e
install=$2 corpus=$3
case $1 in
    fuzz_afl) cp "$install"/Airfoils/*.afl "$corpus" ;;
    fuzz_png) cp "$install/Resources/bitmaps/interface.png" "$corpus" ;;
    fuzz_menu_text)  # the first byte tells strings from menus
        (printf '\1'; cat "$install/Resources/text/german/Tarvane.txt") >"$corpus/text"
        (printf '\0'; cat "$install/Resources/menus/german/Tarvane.txt") >"$corpus/menus" ;;
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
    fuzz_apt|fuzz_nav|fuzz_fix|fuzz_awy|fuzz_astro)  # an even first byte: a whole file; an odd one: rows
        table="$install/Resources/Earth nav data/${1#fuzz_}.dat"
        (printf '\0'; head -c 20000 "$table") >"$corpus/whole"
        (printf '\1'; tail -c 20000 "$table") >"$corpus/rows" ;;
    fuzz_obj)  # an even first byte: a whole file; an odd one: commands
        find "$install/Resources" -name '*.obj' -size -20k | while read -r object; do
            (printf '\0'; cat "$object") >"$corpus/$(basename "$object")"
            (printf '\1'; tail -n +7 "$object") >"$corpus/$(basename "$object").commands"
        done ;;
esac
