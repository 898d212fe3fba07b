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
// intro.cpp: the start-up picture.
void draw_intro(canvas& c);
