// The two fonts of the interface image: where a character's cell lies and how wide it is.
// Role: goes with the image; the program that draws the image measures the typeface and refuses another
// table.
#pragma once

constexpr int first_glyph_code = 32, last_glyph_code = 124;  // of ASCII
constexpr int glyph_columns = 21, glyph_rows = 5;            // of cells, row 0 lowest
constexpr int glyph_dx = 8, glyph_dy = 11;                   // of a cell, pixels
constexpr int glyph_base = 2;                                // rows of a cell below the base line
constexpr int mono_font_s = 168;  // of the mono-spaced font's first cell; the other's is 0
constexpr int mono_width = 6;     // widest glyph of the mono-spaced font

// Code first_glyph_code to last_glyph_code.
constexpr int glyph_cell(int code) { return code - first_glyph_code; }

// Step to the next character, virtual units, by ASCII code; 0 for what has no glyph.
extern const unsigned char chr_width[128];
