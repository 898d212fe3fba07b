// Text and numbers in the fonts of the interface image.
// Role: one begin and end a string. Bytes outside 32 to 124 draw nothing, so text from anywhere may come
// here.
#pragma once
#include <string>

enum charset_kind : int {
    charset_text = 100,    // running text, proportional
    charset_small = 101,   // small digits, 6 a character
    charset_digits = 102,  // digit boxes, 10 a character
    charset_korean = 103,  // pairs of bytes
};
constexpr float no_wrap = 9999.0f;  // from this width on

// At the base line (x, y) of the open window, rounded, 2 lower. A charset of none of these kinds is fatal;
// those of panels (109 to 117) show as small digits until panels have their fonts.
void OGL_string(int color, float x, float y, const std::string& input, float dx, int charset);
float str_dx(const std::string& text);  // width, virtual units
float chr_dx(char c);
// A fixed field of dig digits with dec decimals, mono-spaced sets only; what does not fit shows as d.dd x e,
// what is no number as dashes.
void OGL_number(int color, float x, float y, float input, int dig, int dec, int charset);

// The same for callers with character arrays.
void OLD_OGL_string(int color, float x, float y, const char* input, float dx, int charset);
void OLD_OGL_number(int color, float x, float y, float input, int dig, int dec, int charset);
void OLD_OGL_char(int color, float x, float y, char input, int charset);
// Scaled, from a panel's own texture: s and t of the first glyph in pixels, 21 glyphs a row of cells.
void OLD_OGL_strtex(int tex, int color, float x, float y, const char* input, float scale, int s, int t);

// Where a text breaks for a width: the start of each line. For boxes that have to know their height.
int wrapped_lines(const std::string& text, float dx);

// The layout of a number: what OGL_number draws, glyph by glyph. place counts pitches from the field's left
// end in digits; low marks the exponent form's point.
struct number_glyph {
    char c;
    float place;
    bool low;
};
struct number_layout {
    number_glyph glyph[48];
    int count;
};
number_layout lay_out_number(float input, int dig, int dec);
