// Text of the interface.
#pragma once
#include <string>

#include "core/craft/dims.h"

struct stl_struct {
    std::string win_name;
    std::string text[textDIM];       // strings of the current language, by text_number
    int glyph_text;                  // menu texts are pairs of bytes that name glyphs of the Korean image
    std::string help_message;        // filled by what the mouse is over, cleared each frame
    std::string verbal_string;
    float verbal_timeout;
    int has_text_disp, show_text_disp;
    std::string buff_text_disp;
    int has_checklist, show_checklist;
    std::string buff_checklist[200];
    std::string movie_entered_name, movie_entered_path, movie_actual_path;
    std::string nav_name[fixDIM];
};
extern stl_struct stl;

constexpr size_t text_len_max = 500;  // longest string of a language
