// Text of the interface.
#pragma once
#include <string>

#include "core/craft/dims.h"

struct stl_struct {
    std::string win_name;            // title of the open window; set_window
    std::string text[textDIM];       // strings of the current language, by text_number
    int glyph_text;                  // menu texts are pairs of bytes that name glyphs of the Korean image
    std::string help_message;        // filled by what the mouse is over, cleared each frame
    std::string verbal_string;       // sentence spoken last; speech
    float verbal_timeout;            // real_time until which it is being spoken, s
    // board of text on the picture; commands
    int has_text_disp, show_text_disp;  // 0 or 1: there is one, it shows
    std::string buff_text_disp;         // its text
    int has_checklist, show_checklist;  // 0 or 1: there is one, it shows
    std::string buff_checklist[200];    // its items
    std::string movie_entered_name, movie_entered_path, movie_actual_path;  // film's files; film screen
    std::string nav_name[fixDIM];    // name of the station received, by radio slot; radios
};
extern stl_struct stl;

constexpr size_t text_len_max = 500;  // longest string of a language
