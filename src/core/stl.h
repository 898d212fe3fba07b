// Text of the interface.
#pragma once
#include <string>

#include "core/dims.h"

struct stl_struct {
    std::string win_name;
    std::string text[textDIM];       // strings of the current language
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

// First of the four strings that tell about a low frame rate.
constexpr int text_frame_rate = 1360;
