// Stretched pieces and labels.
#include "draw/widgets/frames.h"

#include <math.h>

#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/mnw.h"
#include "draw/gl/colours.h"
#include "draw/images/interface_layout.h"
#include "draw/images/tman.h"
#include "draw/primitives.h"
#include "draw/type.h"
#include "draw/widgets/widgets.h"

namespace {
// To an even number.
float fltnear(float x) { return 2.0f * static_cast<float>(intround(0.5f * x)); }

struct box {
    float x1, y1, x2, y2;
};

// Every part of one piece, by the parts of both directions.
void draw_stretched(const box& at, float s, float t, float piece_dx, float piece_dy, float border_x,
                    float border_y, int color) {
    static stretch_part across[stretch_parts_max], along[stretch_parts_max];
    const int nx = border_x > 0.0f ? stretch(at.x2 - at.x1, border_x, piece_dx, across) : 1;
    const int ny = border_y > 0.0f ? stretch(at.y2 - at.y1, border_y, piece_dy, along) : 1;
    if (!(border_x > 0.0f)) across[0] = {0.0f, at.x2 - at.x1, 0.0f, piece_dx};
    if (!(border_y > 0.0f)) along[0] = {0.0f, at.y2 - at.y1, 0.0f, piece_dy};
    for (int i = 0; i < nx; ++i)
        for (int j = 0; j < ny; ++j)
            OGL_piece(tex_interface, color, 1.0f, at.x1 + across[i].from, at.y1 + along[j].from,
                      at.x1 + across[i].to, at.y1 + along[j].to, s + across[i].t_from, t + along[j].t_from,
                      s + across[i].t_to, t + along[j].t_to);
}
}  // namespace

int stretch(float length, float border, float piece, stretch_part* parts) {
    const float middle = piece - 2.0f * border;
    if (!(middle > 0.0f) || !(length > 0.0f)) return 0;
    int count = 0;
    const auto put = [&](float from, float to, float t_from, float t_to) {
        if (to > from && count < stretch_parts_max) parts[count++] = {from, to, t_from, t_to};
    };
    put(0.0f, border, 0.0f, border);
    const int i_max = intmax2(intcut((length - 2.0f * border) / middle), 0);
    for (int i = 0; i <= i_max; ++i) {
        const float from = border + static_cast<float>(i) * middle;
        const float to = fltmin2(from + middle, length - border);
        put(from, to, border, border + (to - from));
    }
    put(fltmax2(length - border, border), fltmax2(length - border, border) + border, piece - border, piece);
    return count;
}

void BTN_frame0(int type, float x_center, float y_center, float dy_control) {
    if (type != strip_upright) return MACIBM_fatal("Bad BTN_frame0 call!");
    if (x_center != floorf(x_center)) return MACIBM_fatal("BTN_frame0 non-int x_center!");
    if (y_center != floorf(y_center)) return MACIBM_fatal("BTN_frame0 non-int y_center!");
    const frame_piece& f = frame0_piece;
    const float half = 0.5f * (fltnear(dy_control) + 2.0f * f.shadow);
    draw_stretched({x_center - 0.5f * f.at.dx, y_center - half, x_center + 0.5f * f.at.dx, y_center + half},
                   f.at.s, f.at.t, f.at.dx, f.at.dy, 0.0f, f.border, col_white);
}

void BTN_frame1(int type, float x_center, float y_center, float dx_control, int color) {
    if (!intrange(type, strip_menu_bar, strip_large_bar) || type == strip_upright) return MACIBM_fatal("Bad BTN_frame1 call!");
    const frame_piece& f = frame1_pieces[type];
    if (type <= strip_top_bar) y_center -= 3.0f;
    const float half = 0.5f * (fltnear(dx_control) + 2.0f * f.shadow);
    const float x = static_cast<float>(intround(x_center));
    const float low = static_cast<float>(intround(y_center)) - 0.5f * static_cast<float>(f.height);
    draw_stretched({x - half, low, x + half, low + f.at.dy}, f.at.s, f.at.t, f.at.dx, f.at.dy, f.border, 0.0f,
                   color);
}

void BTN_frame2(int type, float x, float y, float dx, float dy, const std::string& label0) {
    if (!intrange(type, box_window, box_last)) return MACIBM_fatal("Bad BTN_frame2 call!");
    const box_piece& f = frame2_pieces[type - box_window];
    const float border = 0.4f * f.at.dx;
    draw_stretched({x - f.sides, y - f.bottom, x + dx + f.sides, y + dy + f.top}, f.at.s, f.at.t, f.at.dx,
                   f.at.dy, border, border, col_white);
    const float down = type == box_window ? 13.0f : 16.0f;
    const int colour = type == box_glass ? col_help : type == box_window ? col_title : col_widget;
    if (!label0.empty())
        OGL_string(colour, x + 0.5f * (dx - str_dx(label0)), y + dy - down, label0, no_wrap, charset_text);
    if (type == box_window && mnw.top_win != win_fly && !intrange(mnw.top_win, win_alrt, win_save)) BTN_zap_boxes(0);
}

label_parts label0to12h(const std::string& label0) {
    label_parts p;
    std::string text = label0;
    const size_t brace = text.find('{');
    if (brace != std::string::npos) {
        if (brace + 1 < text.size()) {
            p.mark = text[brace + 1];
            p.help = text.substr(brace + 2);
        }
        text.erase(brace);
    }
    const size_t bar = text.find('|');
    p.left = text.substr(0, bar);
    if (bar != std::string::npos) p.right = text.substr(bar + 1);
    return p;
}

label_lines split_label(const std::string& label, int side) {
    constexpr size_t longest = 12;
    if (!label.empty() && label[0] == '-') return {label.substr(1), ""};
    if (side == side_middle || label.size() <= longest) return {label, ""};
    // the break nearest to the middle; a blank goes, a sign stays on the first line
    const size_t middle = label.size() / 2;
    size_t best = std::string::npos;
    const auto distance = [middle](size_t i) { return i > middle ? i - middle : middle - i; };
    for (size_t i = 1; i + 1 < label.size(); ++i) {
        if (label[i] != ' ' && label[i] != '-' && label[i] != '/') continue;
        if (best == std::string::npos || distance(i) < distance(best)) best = i;
    }
    if (best == std::string::npos) return {label, ""};
    const bool blank = label[best] == ' ';
    return {label.substr(0, blank ? best : best + 1), label.substr(best + 1)};
}

void BTN_util_draw_label(float x, float y, int side, const std::string& label0) {
    const label_lines lines = split_label(label0, side);
    const auto put = [&](const std::string& text, float at_y) {
        const float width = str_dx(text);
        const float left = side == side_left_of ? x - width : side == side_middle ? x - 0.5f * width : x;
        OGL_string(col_widget, left, at_y, text, no_wrap, charset_text);
    };
    if (lines.second.empty()) return put(lines.first, y);
    put(lines.first, y + 5.0f);
    put(lines.second, y - 5.0f);
}
