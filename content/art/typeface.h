// Free typefaces, rasterised for small cells or as outlines on a canvas.
#pragma once
#include <cairo.h>

#include <string>

#include "draw/font_table.h"

struct glyph_bitmap {
    int width;                                // step to the next character, pixels
    unsigned char alpha[glyph_dy][glyph_dx];  // row 0 lowest
};

// Proportional: the reading face, its widest letters drawn narrower so that they keep to the cell.
glyph_bitmap text_glyph(int code);
// All of one width, within mono_width.
glyph_bitmap mono_glyph(int code);
// Korean letters and syllables by Unicode: each fills a cell of its own.
constexpr int korean_cell = 13;  // pixels, both ways
struct korean_bitmap {
    unsigned char alpha[korean_cell][korean_cell];  // row 0 lowest
};
korean_bitmap korean_glyph(unsigned code);
// For lettering; stays valid until the program ends.
cairo_font_face_t* lettering_face();
