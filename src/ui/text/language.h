// Language files: the strings by number, and the menus.
// Role: read at the start and when the user changes the language; users may edit the files.
#pragma once
#include <string>

enum language_code : int {
    lang_english = 0,
    lang_french = 1,
    lang_german = 2,
    lang_italian = 3,
    lang_spanish = 4,
    lang_korean = 5,
    lang_portuguese = 6,
};
constexpr int languageDIM = 7;

// Strings and menus of mnw.lang. hard_reset also loads the user's aircraft and the region again and starts
// the flight anew, so that names made of strings follow.
void MACIBM_setupforlang(int hard_reset);
// The strings alone.
void MACIBM_read_texts();
// Menus from the language's folder, numbered in the order of the file.
void MACIBM_read_menus(const std::string& name);

// The glyph image of Korean into its texture: 1 done, 0 when there is none.
int load_korean_glyphs();
