// Clicks, help box and cursor.
#include "ui/screens/clicks.h"

#include "core/disk/text_numbers.h"
#include "core/math/num.h"
#include "core/program/input_gate.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/mnw.h"
#include "core/records/net.h"
#include "core/records/stl.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/images/interface_layout.h"
#include "draw/images/tman.h"
#include "draw/primitives.h"
#include "draw/type.h"
#include "draw/widgets/frames.h"
#include "draw/widgets/menus.h"
#include "draw/widgets/widgets.h"
#include "ui/keys/mouse_yoke.h"

namespace {
bool is_settings_window(int top_win) {
    if (intrange(top_win, win_alrt, win_save)) return false;
    return top_win > win_fly;
}

bool in_close_box() {
    constexpr float dx = 25.0f, dy = 20.0f;
    const bool high = fltrange(mnw.my, mnw.win_dy - dy, mnw.win_dy);
    return high && (fltrange(mnw.mx, 0.0f, dx) || fltrange(mnw.mx, mnw.win_dx - dx, mnw.win_dx));
}

void close_window() {
    if (seam.has_display) {
        OGL_view_2d();
        BTN_zap_boxes(1);
        OGL_sbuf();
    }
    // an instructor's station falls back to its map
    const bool ios = net.use_ip[ip_master_ios] && mnw.top_win != win_map_ios;
    MACIBM_startwind(ios ? win_map_ios : win_fly, "closed");
}
}  // namespace

namespace {
struct click_state {
    int click_sounds = 0;  // also of a click that a menu or a closing window has taken
};
click_state state;
}  // namespace

void reset_clicks() { state = {}; }

int take_click_sound() {
    const int sounds = state.click_sounds;
    state.click_sounds = 0;
    return sounds;
}

void MACIBM_handleclick(int enter_close) {
    if (!enter_close) mnw.mouse_clicked = state.click_sounds = 1;
    const bool shuts = enter_close || (mnw.menu_up == -1 && in_close_box());
    if (is_settings_window(mnw.top_win) && shuts) return close_window();
    if (enter_close) return;
    if (menus_click(1)) mnw.mouse_clicked = 0;
}

void menus_follow_mouse() {
    if (mnw.menu_up >= 0) menus_click(0);
}

namespace {
void draw_help() {
    constexpr float rest = 1.0f;  // s
    constexpr float dx = 400.0f, line = 10.0f, edge = 10.0f, in = 14.0f;
    const std::string& text = stl.help_message;
    if (text.empty() || mnw.real_time - mnw.m_move_time < rest) return;
    const float dy = fltlim(20.0f + line * static_cast<float>(text.size() / 50), 60.0f, 200.0f);
    // below and right of the mouse, inside the screen
    const float left = mnw.x1_pix - mnw.win_x + edge, right = mnw.x2_pix - mnw.win_x - edge - dx;
    const float low = mnw.y1_pix - mnw.win_y + edge, high = mnw.y2_pix - mnw.win_y - edge - dy;
    const float x = fltlim(mnw.mx + 16.0f, left, right), y = fltlim(mnw.my - dy - 16.0f, low, high);
    BTN_frame2(box_help, x, y, dx, dy, "");
    OGL_string(col_help, x + in, y + dy - 20.0f, text, dx - 2.0f * in, charset_text);
}

// How to take the yoke, along the foot of the picture.
void draw_yoke_hint() {
    constexpr float up = 60.0f, pad = 8.0f, dy = 16.0f, shade = 0.4f;
    if (!mouse_yoke_is_free()) return;
    const std::string& text = stl.text[text_take_yoke];
    const float dx = str_dx(text), x = 0.5f * (XRES - dx);
    OGL_grayrect(x - pad, up, x + dx + pad, up + dy, shade);
    OGL_string(col_white, x, up + 6.0f, text, no_wrap, charset_text);
}

piece cursor_of(int cursor_type) {
    const cursor_row& c = cursor_rows[cursor_type - cursor_own_first];
    return mnw.now_dragging ? cursor_tile(c.held_column, c.held_row) : cursor_tile(c.column, c.row);
}

void draw_cursor() {
    constexpr float half = 15.0f;
    if (!intrange(mnw.cursor_type, cursor_own_first, cursor_own_last)) return;
    const piece p = cursor_of(mnw.cursor_type);
    OGL_piece(tex_interface, col_white, 1.0f, mnw.mx - half, mnw.my - half, mnw.mx + half, mnw.my + half, p.s,
              p.t, p.s + p.dx, p.t + p.dy);
}
}  // namespace

void overlay_draw() {
    OGL_view_2d();
    draw_yoke_hint();
    menus_draw();
    draw_help();
    seam.show_pointer(mnw.cursor_type == cursor_of_system);
    draw_cursor();
}
