// Where every piece of the interface image lies.
// Role: the one table that the program which draws the image and the widgets which show it share. Pixels of the
// 512 x 512 image, s from its left edge, t from its BOTTOM row: row t of the image is row 511 - t of the file.
#pragma once
#include <array>

constexpr int interface_size = 512;

struct piece {
    short s, t, dx, dy;  // lower left corner, width, height
};

// -- stretched pieces

// A strip whose ends of width `border` keep their size. at.dy rows are drawn upwards from half of `height` below
// the centre: kinds 0, 1 and 10 lack their top row, which would lie past the image.
struct frame_piece {
    short border;
    piece at;
    short shadow;  // how far the image reaches past the control, both ends
    short height;
};
// Name, number, border, piece (s, t, dx, dy), shadow, height. Number 6 is the upright strip below.
#define STRIP_KINDS(X)                                                                           \
    X(menu_bar, 0, 10, 1, 487, 100, 25, 0, 26)                                                   \
    X(top_bar, 1, 20, 102, 487, 100, 25, 0, 26)                                                  \
    X(button, 2, 10, 304, 486, 52, 26, 0, 26)                                                    \
    X(button_pressed, 3, 10, 304, 459, 52, 26, 0, 26)                                            \
    X(progress_track, 4, 10, 112, 161, 28, 16, 0, 16)                                            \
    X(progress_fill, 5, 10, 83, 161, 28, 16, 0, 16)                                              \
    X(slider_track, 7, 10, 240, 242, 65, 24, 0, 24)                                              \
    X(slider_fill, 8, 7, 289, 219, 16, 16, 0, 16) /* white: takes the colour of the call */      \
    X(field, 9, 10, 262, 133, 51, 26, 2, 26)                                                     \
    X(popup, 10, 26, 357, 487, 68, 25, 2, 26) /* its arrow in the right end */                   \
    X(large_bar, 11, 25, 339, 0, 100, 56, 0, 56)

#define STRIP_NUMBER(name, number, border, s, t, dx, dy, shadow, height) strip_##name = number,
enum strip_kind : int { STRIP_KINDS(STRIP_NUMBER) strip_upright = 6, strip_kinds = 12 };
#undef STRIP_NUMBER

// By kind; without a piece where the number is no horizontal strip.
constexpr auto frame1_pieces = [] {
    std::array<frame_piece, strip_kinds> table{};
#define STRIP_ROW(name, number, border, s, t, dx, dy, shadow, height) \
    table[number] = {border, {s, t, dx, dy}, shadow, height};
    STRIP_KINDS(STRIP_ROW)
#undef STRIP_ROW
    return table;
}();
constexpr frame_piece frame0_piece = {10, {102, 248, 20, 40}, 4, 40};  // upright: borders and shadow at its foot and head

// A box stretched both ways, with borders of 0.4 of the piece; the shadows reach past the control.
struct box_piece {
    piece at;
    short sides, bottom, top;
};
// Name, number, piece (s, t, dx, dy), shadows at the sides, the bottom and the top. In the order of their numbers.
#define BOX_KINDS(X)                                                                             \
    X(window, 11, 1, 358, 100, 100, 9, 14, 4) /* with its title bar, 20 high */                  \
    X(window_plain, 12, 102, 358, 100, 100, 9, 14, 4)                                            \
    X(sunk, 13, 203, 358, 100, 100, 9, 14, 4)                                                    \
    X(help, 14, 304, 358, 100, 100, 9, 14, 4)                                                    \
    X(glass, 15, 405, 358, 100, 100, 9, 14, 4) /* over a picture: start-up, alerts */            \
    X(panel, 16, 1, 289, 68, 68, 2, 2, 2) /* in a window */                                      \
    X(menu, 17, 70, 315, 42, 42, 8, 13, 2)                                                       \
    X(small, 18, 440, 12, 44, 44, 6, 9, 4)

#define BOX_NUMBER(name, number, s, t, dx, dy, sides, bottom, top) box_##name = number,
enum box_kind : int { BOX_KINDS(BOX_NUMBER) };
#undef BOX_NUMBER
#define BOX_ROW(name, number, s, t, dx, dy, sides, bottom, top) {{s, t, dx, dy}, sides, bottom, top},
// By kind, from box_window.
constexpr box_piece frame2_pieces[] = {BOX_KINDS(BOX_ROW)};
#undef BOX_ROW
constexpr int box_last = box_small;

// -- tiles

constexpr piece cursor_tile(int column, int row) {  // 6 columns, 2 rows
    return {static_cast<short>(200 + 32 * column), static_cast<short>(293 + 32 * row), 30, 30};
}
// Name, number, column and row of the tile, and of the tile while the mouse drags.
#define OWN_CURSORS(X)                                     \
    X(turn_left, 2, 0, 1, 0, 1)                            \
    X(turn_right, 3, 1, 1, 1, 1)                           \
    X(turn_left_fast, 4, 0, 0, 0, 0)                       \
    X(turn_right_fast, 5, 1, 0, 1, 0)                      \
    X(push_down, 6, 2, 1, 2, 1)                            \
    X(push_up, 7, 3, 1, 3, 1)                              \
    X(push_left, 8, 2, 0, 2, 0)                            \
    X(push_right, 9, 3, 0, 3, 0)                           \
    X(hand_pointing, 10, 4, 1, 5, 1)                       \
    X(hand_grasping, 11, 4, 0, 5, 0)

#define CURSOR_NUMBER(name, number, column, row, held_column, held_row) cursor_##name = number,
enum cursor_kind : int {
    cursor_of_system = 0,
    cursor_hidden = 1,
    OWN_CURSORS(CURSOR_NUMBER) cursor_own_first = cursor_turn_left,
    cursor_own_last = cursor_hand_grasping,
};
#undef CURSOR_NUMBER
struct cursor_row {
    int column, row, held_column, held_row;
};
#define CURSOR_ROW(name, number, column, row, held_column, held_row) {column, row, held_column, held_row},
constexpr cursor_row cursor_rows[] = {OWN_CURSORS(CURSOR_ROW)};  // from cursor_own_first
#undef CURSOR_ROW

constexpr piece map_icon_cell(int i, int j) {  // 5 columns, 4 rows
    return {static_cast<short>(378 + 18 * i), static_cast<short>(220 + 18 * j), 14, 16};
}

// -- the colours that the image brings: the texel in the middle of each block of 3 x 3

struct palette_texel {
    int row;  // of the colour table
    short s, t;
};
// Row 33 is the mean of rows 32 and 29.
constexpr palette_texel palette_texels[13] = {
    {28, 319, 155}, {29, 319, 147}, {30, 319, 139}, {31, 319, 131}, {32, 319, 123}, {34, 319, 115}, {35, 319, 107},
    {36, 319, 99},  {37, 319, 91},  {38, 319, 83},  {39, 319, 75},  {40, 319, 67},  {41, 395, 115},
};

// -- single pieces, drawn at their own size. A "_hover" piece of a tick box, radio button or tab is a rim of
// light that is drawn over either state.
#define INTERFACE_PIECES(X)                                                                              \
    X(check_off, 1, 58, 16, 16)                                                                          \
    X(check_on, 19, 58, 16, 16)                                                                          \
    X(check_hover, 37, 58, 16, 16)                                                                       \
    X(radio_off, 55, 58, 16, 16)                                                                         \
    X(radio_on, 73, 58, 16, 16)                                                                          \
    X(radio_hover, 91, 58, 16, 16)                                                                       \
    X(close, 109, 58, 16, 16)                                                                            \
    X(close_pressed, 127, 58, 16, 16)                                                                    \
    X(arrow_up, 145, 58, 16, 16)                                                                         \
    X(arrow_up_pressed, 163, 58, 16, 16)                                                                 \
    X(arrow_down, 181, 58, 16, 16)                                                                       \
    X(arrow_down_pressed, 199, 58, 16, 16)                                                               \
    X(knob, 218, 58, 16, 24)                                                                             \
    X(knob_held, 236, 58, 16, 24)                                                                        \
    X(thumb, 1, 76, 16, 24)                                                                              \
    X(thumb_held, 19, 76, 16, 24)                                                                        \
    X(zoom_in, 37, 76, 24, 20)                                                                           \
    X(zoom_in_pressed, 63, 76, 24, 20)                                                                   \
    X(zoom_out, 89, 76, 24, 20)                                                                          \
    X(zoom_out_pressed, 115, 76, 24, 20)                                                                 \
    X(select_file, 141, 76, 20, 20)                                                                      \
    X(select_file_pressed, 163, 76, 20, 20)                                                              \
    X(menu_arrow, 185, 76, 8, 8)                                                                         \
    X(menu_check, 185, 86, 10, 10)                                                                       \
    X(popup_arrow, 197, 76, 12, 14) /* lights kind 10's: 16 left of the control's end, 7 below its middle */ \
    X(pan_disc, 1, 102, 56, 56)                                                                          \
    X(pan_disc_held, 59, 102, 56, 56)                                                                    \
    X(icon_folder, 117, 102, 14, 14)                                                                     \
    X(icon_file, 133, 102, 14, 14)                                                                       \
    X(icon_aircraft, 149, 102, 14, 14)                                                                   \
    X(icon_airport, 165, 102, 14, 14)                                                                    \
    X(icon_navaid, 181, 102, 14, 14)                                                                     \
    X(icon_picture, 197, 102, 14, 14)                                                                    \
    X(icon_sound, 213, 102, 14, 14)                                                                      \
    X(icon_movie, 117, 118, 14, 14)                                                                      \
    X(icon_foil, 133, 118, 14, 14)                                                                       \
    X(icon_weapon, 149, 118, 14, 14)                                                                     \
    X(icon_plan, 165, 118, 14, 14)                                                                       \
    X(icon_situation, 181, 118, 14, 14)                                                                  \
    X(digit_lower, 323, 60, 10, 21) /* the halves of a digit box, 10 a digit, and its two ends */        \
    X(digit_upper, 323, 82, 10, 21)                                                                      \
    X(digit_lower_hover, 335, 60, 10, 21)                                                                \
    X(digit_upper_hover, 335, 82, 10, 21)                                                                \
    X(digit_left, 347, 60, 4, 42)                                                                        \
    X(digit_right, 353, 60, 4, 42)                                                                       \
    X(tab, 400, 60, 90, 26)                                                                              \
    X(tab_on, 400, 88, 90, 26)                                                                           \
    X(tab_hover, 400, 116, 90, 26)                                                                       \
    X(vor_rose, 306, 219, 71, 71)                                                                        \
    X(carrier, 467, 238, 15, 51) /* ships from above, bow up */                                          \
    X(frigate, 485, 238, 15, 51)

#define PIECE_CONSTANT(name, s, t, dx, dy) constexpr piece piece_##name = {s, t, dx, dy};
INTERFACE_PIECES(PIECE_CONSTANT)
#undef PIECE_CONSTANT

struct named_piece {
    const char* name;
    piece at;
};
#define PIECE_ROW(name, s, t, dx, dy) {#name, {s, t, dx, dy}},
constexpr named_piece interface_pieces[] = {INTERFACE_PIECES(PIECE_ROW)};
#undef PIECE_ROW
