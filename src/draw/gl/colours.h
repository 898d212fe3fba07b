// The colour table and the two ways to set a drawing colour.
// Role: everything in 2D names its colours by row. The window layer fills rows 28 to 41 from the interface
// image; rows 69 to 72 pulse.
#pragma once

constexpr int colour_rows = 94;
extern float col_rgb[colour_rows][3];

enum colour_row : int {
    col_white = 0,
    col_black = 11,
    col_window = 28,      // background of windows
    col_line_light = 29,  // separators: light and dark edge
    col_line_dark = 31,
    col_menu = 32,  // menu text, and what cannot be chosen now
    col_menu_off = 33,
    col_title = 34,
    col_tab = 35,  // a tab's text, and that of the chosen one
    col_tab_on = 36,
    col_widget = 37,
    col_digits = 38,
    col_help = 40,
    col_lit_ins = 42,  // lit parts of instruments
    col_state = 43,  // what OGL_setstate leaves behind
    col_step = 55,   // the step of the start-up
    col_pulse_white = 69,
    col_pulse_red,
    col_pulse_yellow,
    col_pulse_green,
    col_lightning = 91,
};

// The fixed rows, and the cabin light full on.
void colours_init();
void OGL_assigncolor(int index, float r, float g, float b);
// The four pulsing rows, rat 0.4 to 1.
void set_pulse_colours(float rat);

// A row outside the table or a colour outside 0 to 1 is fatal; with night vision all is green.
void OGL_setcolorINDEX(int index, float a);
// is_light leaves the cabin light out.
void OGL_setcolorRGBA(float r, float g, float b, float a, int is_light);
// From blue over cyan, green, yellow, orange and red to magenta, rat 0 to 1: the colour, and setting it.
void spectrum_rgb(float rat, float* r, float* g, float* b);
void OGL_spectrum_rgb(float rat);
void OGL_setspec(float spec);
// 0 off; else towards the eye by so much.
void OGL_poly_offset(int amount);
