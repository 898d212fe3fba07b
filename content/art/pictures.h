// The parts of the art program.
#pragma once
#include <string>

#include "canvas.h"

// interface.cpp: the whole interface image, its fonts first; a table of widths that does not fit the
// typeface, a piece that overlaps another or leaves the image is an error.
void draw_interface(canvas& c);
void draw_fonts(canvas& c);
void draw_frames(canvas& c);
void draw_controls(canvas& c);
// icons.cpp: pictures of lists and files; cursors.cpp: cursors; map_icons.cpp: what stands on the maps
void draw_list_icons(canvas& c);
void draw_cursors(canvas& c);
void draw_map_icons(canvas& c);
// korean.cpp: the glyphs of a menu file's texts, each where ui/text/korean.cpp will look for it.
constexpr int korean_size = 1024;
void draw_korean(canvas& c, const std::string& menu_file);
// intro.cpp: the start-up picture.
void draw_intro(canvas& c);
