// Frames, boxes and labels: stretched pieces of the interface image.
#pragma once
#include <string>

// The kinds stand in draw/images/interface_layout.h. A vertical strip, strip_upright only; a centre between pixels is fatal.
void BTN_frame0(int type, float x_center, float y_center, float dy_control);
// A horizontal strip, strip_kind.
void BTN_frame1(int type, float x_center, float y_center, float dx_control, int color);
// A box, box_kind, with its label at the top; box_window brings the close boxes of a window that has them.
void BTN_frame2(int type, float x, float y, float dx, float dy, const std::string& label0);

// "left|right{xhelp": the parts of a label; x is one character that callers may use.
struct label_parts {
    std::string left, right, help;
    char mark = 0;
};
label_parts label0to12h(const std::string& label0);
enum label_side : int { side_left_of = 0, side_middle = 1, side_right_of = 2 };
// side 0 ends at x, 1 stands in the middle of it, 2 begins there; long ones beside a control take two lines.
void BTN_util_draw_label(float x, float y, int side, const std::string& label0);
// The two lines of a long label, or the whole in the first.
struct label_lines {
    std::string first, second;
};
label_lines split_label(const std::string& label, int side);

// One direction of a stretched piece: where each part lies and which share of the piece it shows.
struct stretch_part {
    float from, to;      // in the frame, from its start
    float t_from, t_to;  // in the piece, pixels
};
constexpr int stretch_parts_max = 2048;
// length with shadows, border and piece in pixels; gives the number of parts.
int stretch(float length, float border, float piece, stretch_part* parts);
