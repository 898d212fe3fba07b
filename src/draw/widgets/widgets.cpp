// Widgets.
#include "draw/widgets/widgets.h"

#include <math.h>
#include <stdio.h>
#include <string.h>
#include <strings.h>

#include <vector>

#include "core/disk/dirlist.h"
#include "core/disk/files.h"
#include "core/disk/text_numbers.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/input_gate.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/mnw.h"
#include "core/records/stl.h"
#include "draw/gl/colours.h"
#include "draw/images/interface_layout.h"
#include "draw/images/tman.h"
#include "draw/primitives.h"
#include "draw/type.h"
#include "draw/widgets/frames.h"
#include "draw/widgets/menus.h"

namespace {
bool mouse_in(float x1, float y1, float x2, float y2) {
    return mnw.menu_up == -1 && flt_box(mnw.mx, mnw.my, x1, y1, x2, y2);
}
// Over a control: tells its help.
bool hovers(float x1, float y1, float x2, float y2, const std::string& help) {
    const bool in = mouse_in(x1, y1, x2, y2);
    if (in && !help.empty()) stl.help_message = help;
    return in;
}
bool clicked(bool in) { return in && mnw.mouse_clicked; }

void draw_piece(const piece& p, float x, float y) {
    OGL_piece(tex_interface, col_white, 1.0f, x, y, x + p.dx, y + p.dy, p.s, p.t, p.s + p.dx, p.t + p.dy);
}
void centre_piece(const piece& p, float x, float y) {
    draw_piece(p, static_cast<float>(intround(x - 0.5f * p.dx)),
               static_cast<float>(intround(y - 0.5f * p.dy)));
}
// Labels left and right of a control that reaches half to each side of x.
void draw_labels(float x, float y, float half, const label_parts& label) {
    constexpr float gap = 6.0f;
    if (!label.left.empty()) BTN_util_draw_label(x - half - gap, y, side_left_of, label.left);
    if (!label.right.empty()) BTN_util_draw_label(x + half + gap, y, side_right_of, label.right);
}
}  // namespace

// -- buttons and boxes
int BTN_action(float x_center, float y_center, int pressed, int show_press, const std::string& label0) {
    constexpr float margin = 21.0f, half_height = 10.0f, text_down = 3.0f;
    const label_parts label = label0to12h(label0);
    const float dx = str_dx(label.left) + margin, half = 0.5f * dx;
    const bool in =
        hovers(x_center - half, y_center - half_height, x_center + half, y_center + half_height, label.help);
    const auto draw = [&](bool down) {
        BTN_frame1(down ? strip_button_pressed : strip_button, x_center, y_center, dx, col_white);
        if (in && !down)
            OGL_fillrect(col_white, 0.1f, x_center - half + 2.0f, y_center - half_height + 1.0f, dx - 4.0f,
                         2.0f * half_height - 2.0f);
        OGL_string(col_widget, x_center - 0.5f * str_dx(label.left),
                   y_center - text_down - (down ? 1.0f : 0.0f), label.left, no_wrap, charset_text);
    };
    draw(pressed || (in && mnw.now_dragging));
    if (!clicked(in)) return 0;
    if (show_press) {
        draw(true);
        OGL_sbuf();
    }
    return 1;
}

namespace {
// A tick box or radio button; true when clicked.
bool tick(float x, float y, bool on, const std::string& label0, int is_radio) {
    constexpr float half = 8.0f, low = 4.0f, high = 12.0f;
    const label_parts label = label0to12h(label0);
    const bool in = hovers(x - half, y - low, x + half, y + high, label.help);
    const float middle = y + 0.5f * (high - low);
    centre_piece(is_radio ? (on ? piece_radio_on : piece_radio_off) : (on ? piece_check_on : piece_check_off),
                 x, middle);
    if (in) centre_piece(is_radio ? piece_radio_hover : piece_check_hover, x, middle);
    draw_labels(x, y + 1.0f, half, label);
    return clicked(in);
}

template <class value>
int tick_equals(float x, float y, value* var, value target, const std::string& label0) {
    if (!tick(x, y, *var == target, label0, 1)) return 0;
    *var = target;
    return 1;
}
}  // namespace

int BTN_bool(float x, float y, int* var, const std::string& label0, int is_radio) {
    if (!tick(x, y, *var != 0, label0, is_radio)) return 0;
    *var = !*var;
    return 1;
}
int BTN_is_int(float x, float y, int* var, int target, const std::string& label0) {
    return tick_equals(x, y, var, target, label0);
}
int BTN_xchr(float x, float y, char* var, char target, const std::string& label0) {
    return tick_equals(x, y, var, target, label0);
}
int BTN_xbyt(float x, float y, unsigned char* var, unsigned char target, const std::string& label0) {
    return tick_equals(x, y, var, target, label0);
}

// -- digit boxes, centred at x
namespace {
constexpr float digit_dx = 10.0f, digit_in = 2.0f, field_middle = 3.0f;

struct field {
    float left;
    bool in;
    label_parts label;
};

constexpr float zone_low = 18.0f;  // the boxes reach from so far below y, a half 21 high

// Boxes and labels of a field; the half under the mouse lights up where a click would change it.
field draw_field(float x, float y, int boxes, const std::string& label0, bool can_change = true) {
    const float half = static_cast<float>(intround(0.5f * digit_dx * static_cast<float>(boxes)));
    const float low = y - zone_low, middle = y + field_middle;
    field f{static_cast<float>(intround(x)) - half, false, label0to12h(label0)};
    f.in = hovers(f.left, low, f.left + 2.0f * half, middle + piece_digit_upper.dy, f.label.help);
    draw_piece(piece_digit_left, f.left - piece_digit_left.dx, low);
    draw_piece(piece_digit_right, f.left + 2.0f * half, low);
    const bool lit = f.in && can_change, upper = mnw.my >= middle;
    for (int box = 0; box < boxes; ++box) {
        const float at = f.left + digit_dx * static_cast<float>(box);
        const bool here = lit && fltrange(mnw.mx, at, at + digit_dx);
        draw_piece(here && !upper ? piece_digit_lower_hover : piece_digit_lower, at, low);
        draw_piece(here && upper ? piece_digit_upper_hover : piece_digit_upper, at, middle);
    }
    draw_labels(x, y, half + piece_digit_left.dx, f.label);
    return f;
}

int box_under_mouse(const field& f, int boxes) {
    return f.in ? intlim(intcut((mnw.mx - f.left) / digit_dx), 0, boxes - 1) : -1;
}
int step_sign(float y) { return mnw.my >= y + field_middle ? 1 : -1; }

double power_of_ten(int n) {
    double p = 1.0;
    for (; n > 0; --n) p *= 10.0;
    for (; n < 0; ++n) p /= 10.0;
    return p;
}

int edit_number(float x, float y, double* value, int dig, int dec, double lo, double hi,
                const std::string& label0) {
    const field f = draw_field(x, y, dig, label0);
    const int box = box_under_mouse(f, dig);
    int changed = 0;
    if (box >= 0 && mnw.mouse_clicked) {
        const double place = power_of_ten(dig - dec - 1 - box);
        const double before = *value;
        *value = fmin(fmax(before + step_sign(y) * place, lo), hi);
        changed = *value != before;
    }
    OGL_number(col_digits, f.left + digit_in, y, static_cast<float>(*value), dig, dec, charset_digits);
    return changed;
}

double largest(int dig, int dec) { return (power_of_ten(dig) - 1.0) / power_of_ten(dec); }
}  // namespace

int BTN_int_range(float x, float y, int* var, int dig, int lo, int hi, const std::string& label0) {
    double value = *var;
    const int changed = edit_number(x, y, &value, dig, 0, lo, hi, label0);
    if (changed) *var = static_cast<int>(value);
    return changed;
}
int BTN_int(float x, float y, int* var, int dig, int sign, const std::string& label0) {
    const int most = static_cast<int>(fmin(largest(dig, 0), 2147483647.0));
    return BTN_int_range(x, y, var, dig, sign ? -most : 0, most, label0);
}
int BTN_flt_range(float x, float y, float* var, int dig, int dec, float lo, float hi,
                  const std::string& label0) {
    double value = *var;
    const int changed = edit_number(x, y, &value, dig, dec, lo, hi, label0);
    if (changed) *var = static_cast<float>(value);
    return changed;
}
int BTN_flt(float x, float y, float* var, int dig, int dec, int sign, const std::string& label0) {
    const float most = static_cast<float>(largest(dig, dec));
    return BTN_flt_range(x, y, var, dig, dec, sign ? -most : 0.0f, most, label0);
}
int BTN_flt_rangeij(float x, float y, float* var, int dig, int dec, float lo, float hi, float to_metric,
                    int is_metric, const std::string& label0) {
    if (!is_metric) return BTN_flt_range(x, y, var, dig, dec, lo, hi, label0);
    float metric = *var * to_metric;
    const int changed = BTN_flt_range(x, y, &metric, dig, dec, lo * to_metric, hi * to_metric, label0);
    if (changed) *var = metric / to_metric;
    return changed;
}
int BTN_fltij(float x, float y, float* var, int dig, int dec, int sign, float to_metric, int is_metric,
              const std::string& label0) {
    const float most = static_cast<float>(largest(dig, dec)) / (is_metric ? to_metric : 1.0f);
    return BTN_flt_rangeij(x, y, var, dig, dec, sign ? -most : 0.0f, most, to_metric, is_metric, label0);
}
void BTN_display_number(float x, float y, float var, int dig, int dec, const std::string& label0) {
    constexpr float pitch = 6.0f;
    draw_field(x, y, dig, label0, false);
    OGL_number(col_digits, x - 0.5f * pitch * static_cast<float>(dig), y, var, dig, dec, charset_small);
}

// -- identifiers
static constexpr int letter_codes = 37;
int char_to_code(char c) {
    if (c >= '0' && c <= '9') return c - '0' + 1;
    if (c >= 'A' && c <= 'Z') return c - 'A' + 11;
    if (c >= 'a' && c <= 'z') return c - 'a' + 11;
    return 0;
}
char code_to_char(int code) {
    if (intrange(code, 1, 10)) return static_cast<char>('0' + code - 1);
    if (intrange(code, 11, letter_codes - 1)) return static_cast<char>('A' + code - 11);
    return ' ';
}

int BTN_chars(float x, float y, char* chars, int dim, const std::string& label0) {
    const field f = draw_field(x, y, dim, label0);
    const int box = box_under_mouse(f, dim);
    int changed = 0;
    if (box >= 0 && mnw.mouse_clicked) {
        for (int i = 0; i < box; ++i)
            if (!chars[i]) chars[i] = ' ';
        chars[box] = code_to_char(intwrap(char_to_code(chars[box]) + step_sign(y), 0, letter_codes - 1));
        changed = 1;
    }
    for (int i = 0; i < dim && chars[i]; ++i)
        OGL_string(col_digits, f.left + digit_in + digit_dx * static_cast<float>(i), y, std::string(1, chars[i]),
                   no_wrap, charset_digits);
    return changed;
}

// -- pop-up lists
namespace {
std::vector<std::string> list_items(const std::string& stl_list) {
    std::vector<std::string> items;
    for (const char c : stl_list) {
        if (c == '|') {
            MACIBM_fatal("Found | char in text string!");
            return {};
        }
        if (c == '-')
            items.emplace_back();
        else if (!items.empty())
            items.back() += c;
    }
    return items;
}

constexpr float list_item_height = 12.0f;

// The pop-up so that the item sel lies over the control.
void open_popup(float x, float y, float width, const std::vector<std::string>& items, int sel) {
    MACIBM_clear_menu(menu_popup);
    menu_struct& popup = menu[menu_popup];
    popup.menu_name = "-";
    const float left = mnw.win_x + x - 0.5f * width - 3.0f;
    const int last = static_cast<int>(items.size()) - 1;
    const float bottom = mnw.win_y + y - list_item_height * static_cast<float>(last - sel) - 4.0f;
    popup.item.resize(items.size());
    for (int i = 0; i <= last; ++i) {
        item_struct& item = popup.item[i];
        item.item_name = items[i];
        const float low = bottom + list_item_height * static_cast<float>(last - i);
        item.itemx1 = static_cast<unsigned short>(intlim(intround(left), 0, no_menu_box));
        item.itemx2 = static_cast<unsigned short>(intlim(intround(left + width), 0, no_menu_box));
        item.itemy1 = static_cast<unsigned short>(intlim(intround(low), 0, no_menu_box));
        item.itemy2 = static_cast<unsigned short>(intlim(intround(low + list_item_height), 0, no_menu_box));
    }
    mnw.menu_up = menu_popup;
}

// Items beyond an edge of the screen come in by scrolling: the mouse at the edge moves the selection.
void scroll_popup(float x, float y, float width, const std::vector<std::string>& items, int* sel) {
    const menu_struct& popup = menu[menu_popup];
    if (popup.item.empty()) return;
    const float my = mnw.my + mnw.win_y;
    const bool below = popup.item.back().itemy1 == 0 && my < list_item_height;
    const bool above =
        popup.item.front().itemy2 > YRES + mnw.y_off && my > YRES + mnw.y_off - list_item_height;
    if (!below && !above) return;
    *sel = intlim(*sel + (below ? 1 : -1), 0, static_cast<int>(items.size()) - 1);
    open_popup(x, y, width, items, *sel);
}
}  // namespace

int BTN_textlist(float x, float y, int* sel, const std::string& stl_list, const std::string& label0) {
    constexpr float margin = 34.0f, arrow_in = 10.0f;
    const std::vector<std::string> items = list_items(stl_list);
    if (items.empty()) return 0;
    if (items.size() > static_cast<size_t>(menu_itemDIM)) {
        MACIBM_fatal("BTN_text_list overflow!");
        return 0;
    }
    const label_parts label = label0to12h(label0);
    float width = 0.0f;
    for (const std::string& item : items) width = fltmax2(width, str_dx(item));
    width += margin;
    const float half = 0.5f * width;
    const int last = static_cast<int>(items.size()) - 1;
    const bool in = hovers(x - half, y - 8.0f, x + half, y + 14.0f, label.help);
    BTN_frame1(strip_popup, x, y + field_middle, width, col_white);
    if (in) centre_piece(piece_popup_arrow, x + half - arrow_in, y + field_middle);
    OGL_string(col_widget, x - half + 6.0f, y, items[intlim(*sel, 0, last)], no_wrap, charset_text);
    draw_labels(x, y, half, label);

    const int code = intcut(1024.0f * y + x);  // ties an open list to its control
    if (mnw.menu_up == menu_popup && active_popup_code == code) scroll_popup(x, y, width, items, sel);
    if (clicked(in)) {
        active_popup_code = code;
        open_popup(x, y, width, items, intlim(*sel, 0, last));
        mnw.mouse_clicked = 0;
        return 0;
    }
    if (select_popup_code != code || popup_menu_select < 0) return 0;
    *sel = intlim(popup_menu_select, 0, last);
    select_popup_code = popup_menu_select = -1;
    return 1;
}

int BTN_tab(int col, int row, int* tab_variable, int tab_sel, const std::string& label) {
    constexpr float first_x = 62.0f, dx = 88.0f, first_down = 38.0f, dy = 32.0f, half_dx = 45.0f,
                    half_dy = 13.0f;
    const float x = first_x + dx * static_cast<float>(col);
    const float y = mnw.win_dy - first_down - dy * static_cast<float>(row);
    const label_parts parts = label0to12h(label);
    const bool on = *tab_variable == tab_sel;
    const bool in = hovers(x - half_dx, y - half_dy, x + half_dx, y + half_dy, parts.help);
    centre_piece(on ? piece_tab_on : piece_tab, x, y);
    if (in && !on) centre_piece(piece_tab_hover, x, y);
    OGL_string(on ? col_tab_on : col_tab, x - 0.5f * str_dx(parts.left), y - 3.0f, parts.left, no_wrap,
               charset_text);
    if (!clicked(in) || on) return 0;
    *tab_variable = tab_sel;
    return 1;
}

// -- sliders
int BTN_horz_slider(float x, float y, float dx_max, int col, float data1, float data2, float* data,
                    int allow_change, const std::string& label0, const std::string& overwrite) {
    constexpr int no_bar = col_black;
    constexpr float least_span = 0.01f, zone = 10.0f, zone_grabbed = 20.0f, text_up = 12.0f;
    static const float* grabbed;
    if (!mnw.now_dragging) grabbed = nullptr;
    if (fabsf(data2 - data1) < least_span) data2 = data1 + (data2 < data1 ? -least_span : least_span);
    const label_parts label = label0to12h(label0);

    bool held = grabbed && grabbed == data;
    const float reach = held ? zone_grabbed : zone;
    const bool in = hovers(x - reach, y - reach, x + dx_max + reach, y + reach, label.help);
    int changed = 0;
    if (allow_change && clicked(in)) {
        grabbed = data;
        held = true;
    }
    if (allow_change && held && (clicked(in) || mnw.now_dragging)) {
        const float before = *data;
        *data = interp(x, data1, x + dx_max, data2, mnw.mx);
        changed = *data != before;
    }
    const float ratio = fltlim((*data - data1) / (data2 - data1), 0.0f, 1.0f);
    BTN_frame1(strip_slider_track, x + 0.5f * dx_max, y, dx_max, col_white);
    if (col != no_bar && ratio > 0.02f)
        BTN_frame1(strip_slider_fill, x + 0.5f * dx_max * ratio, y, dx_max * ratio, col);
    if (allow_change) centre_piece(grabbed == data ? piece_knob_held : piece_knob, x + dx_max * ratio, y);
    if (!label.left.empty()) BTN_util_draw_label(x - 8.0f, y - 3.0f, side_left_of, label.left);
    if (!label.right.empty()) BTN_util_draw_label(x + dx_max + 12.0f, y - 3.0f, side_right_of, label.right);
    if (!overwrite.empty()) {
        const bool numeric = strchr("0123456789.-+", overwrite[0]) != nullptr;
        const float width = str_dx(overwrite);
        const float at = numeric ? x + dx_max - width : x + 0.5f * (dx_max - width);
        OGL_string(col_widget, at, y + text_up, overwrite, no_wrap, charset_text);
    }
    return changed;
}

int BTN_vert_slider(float x_center, float lo_y, float hi_y, int lo_ind, int hi_ind, int* center_index) {
    constexpr float arrow = 8.0f;  // half of an arrow's box
    static const int* grabbed;
    if (!mnw.now_dragging) grabbed = nullptr;
    const int before = *center_index;
    const bool up = mouse_in(x_center - arrow, hi_y - 2.0f * arrow, x_center + arrow, hi_y);
    const bool down = mouse_in(x_center - arrow, lo_y, x_center + arrow, lo_y + 2.0f * arrow);
    const float low = lo_y + 2.0f * arrow, high = hi_y - 2.0f * arrow;
    const bool track = mouse_in(x_center - arrow, low, x_center + arrow, high);
    if (clicked(track)) grabbed = center_index;
    // the first line is on top
    if (grabbed == center_index)
        *center_index =
            intround(interp(high, static_cast<float>(lo_ind), low, static_cast<float>(hi_ind), mnw.my));
    // a held arrow goes on
    const bool held = mnw.delay_dragging;
    if (up && (mnw.mouse_clicked || held)) --*center_index;
    if (down && (mnw.mouse_clicked || held)) ++*center_index;
    *center_index = intlim(*center_index, lo_ind, intmax2(lo_ind, hi_ind));

    BTN_frame0(strip_upright, static_cast<float>(intround(x_center)), static_cast<float>(intround(0.5f * (low + high))),
               high - low);
    centre_piece(up && mnw.now_dragging ? piece_arrow_up_pressed : piece_arrow_up, x_center, hi_y - arrow);
    centre_piece(down && mnw.now_dragging ? piece_arrow_down_pressed : piece_arrow_down, x_center,
                 lo_y + arrow);
    const float at = interp(static_cast<float>(lo_ind), high - arrow, static_cast<float>(hi_ind), low + arrow,
                            static_cast<float>(*center_index));
    centre_piece(grabbed == center_index ? piece_thumb_held : piece_thumb, x_center, at);
    return *center_index != before;
}

int BTN_icon(float x_center, float y_center, float sc_off, float tc_off, float sc_on, float tc_on, float sdx,
             float sdy, int color, int* var, const std::string& label0) {
    const label_parts label = label0to12h(label0);
    const float x = x_center - 0.5f * sdx, y = y_center - 0.5f * sdy;
    const bool in = hovers(x, y, x + sdx, y + sdy, label.help);
    const float s = *var ? sc_on : sc_off, t = *var ? tc_on : tc_off;
    OGL_piece(tex_interface, color, 1.0f, x, y, x + sdx, y + sdy, s, t, s + sdx, t + sdy);
    if (in) OGL_framerect(col_white, 0.5f, x - 1.0f, y - 1.0f, sdx + 2.0f, sdy + 2.0f);
    draw_labels(x_center, y_center - 3.0f, 0.5f * sdx, label);
    if (!clicked(in)) return 0;
    *var = !*var;
    return 1;
}

// -- text fields
int BTN_enterstring(float x, float y, std::string* input, int dim, int this_field,
                    const std::string& label0) {
    constexpr float char_dx = 6.0f;
    const label_parts label = label0to12h(label0);
    const float dx = char_dx * static_cast<float>(dim), half = 0.5f * dx;
    const bool flying = mnw.top_win == win_fly;
    const bool in = hovers(x - half, y - 8.0f, x + half, y + 14.0f, label.help);
    const size_t most = static_cast<size_t>(intlim(dim, 0, strDIM - 2));
    int changed = 0;
    if (clicked(in)) {
        mnw.entry_field = this_field;
        snprintf(C_s_input, sizeof C_s_input, "%s", input->substr(0, most).c_str());
        mnw.mouse_clicked = 0;
    }
    const bool focused = mnw.entry_field == this_field;
    if (focused) {
        C_s_input[most] = '\0';
        changed = *input != C_s_input;
        *input = C_s_input;
    }
    if (flying)
        OGL_grayrect(x - half - 4.0f, y - 6.0f, x + half + 4.0f, y + 12.0f, 0.5f);
    else
        BTN_frame1(strip_field, x, y + field_middle, dx + 8.0f, col_white);
    const int colour = flying ? col_help : col_digits;
    OGL_string(colour, x - half, y, *input, no_wrap, charset_text);
    if (focused)
        OGL_fillrect(colour, mnw.pulse_alpha, x - half + fltmin2(str_dx(*input), dx), y - 3.0f, 1.0f, 12.0f);
    draw_labels(x, y, half + 4.0f, label);
    return changed;
}

int BTN_select_file(float x, float y, std::string* stl_file, std::string* stl_path, int file_type,
                    int open_save, const std::string& label0) {
    constexpr float dx = 200.0f, half = 0.5f * dx, icon = 14.0f;
    const label_parts label = label0to12h(label0);
    const bool in = hovers(x - half - 2.0f * icon, y - 8.0f, x + half, y + 14.0f, label.help);
    BTN_frame1(strip_field, x, y + field_middle, dx, col_white);
    centre_piece(in && mnw.now_dragging ? piece_select_file_pressed : piece_select_file, x - half - icon,
                 y + field_middle);
    OGL_string(col_digits, x - half + 6.0f, y, *stl_file, no_wrap, charset_text);
    draw_labels(x, y, half + (label.left.empty() ? 0.0f : 2.0f * icon), label);
    if (!clicked(in)) return 0;
    const std::string file = *stl_file, path = *stl_path;
    dialog_opensave(open_save, file_type, stl_file, stl_path);
    return file != *stl_file || path != *stl_path;
}

// -- lists
namespace {
const piece& icon_of_file(int n) {
    if (!intrange(n, 0, g_fileDIM - 1)) return piece_icon_file;
    switch (g_file_type[n]) {
        case ftype_folder:
            return piece_icon_folder;
        case ftype_acf:
            return piece_icon_aircraft;
        case ftype_bmp:
        case ftype_png:
            return piece_icon_picture;
        case ftype_wav:
            return piece_icon_sound;
        default:
            return piece_icon_file;
    }
}

bool sorts_before(const std::string& a, const std::string& b) { return strcasecmp(a.c_str(), b.c_str()) < 0; }

// What is being typed below a list of places. A search by name ends one by identifier.
struct place_search {
    std::string id;
};
place_search search;

// To the first entry that does not sort before the text.
int search_name(float x, float y, int* at, int first, int last, std::string* typed, std::string (*fetchFunc)(int)) {
    constexpr int letters = 30;
    if (!BTN_enterstring(x, y, typed, letters, field_search_name, stl.text[text_search_name])) return 0;
    search.id.clear();
    int i = first;
    while (i < last && sorts_before(fetchFunc(i), *typed)) ++i;
    *at = i;
    return 1;
}

// To the entry of that identifier, while it is being typed to the first that begins so. Identifiers are in no order.
int search_id(float x, float y, int* at, int first, int last, std::string (*fetchId)(int)) {
    constexpr int letters = 4;
    if (!BTN_enterstring(x, y, &search.id, letters, field_search_id, stl.text[text_search_id]) || search.id.empty()) return 0;
    int found = -1;
    for (int i = first; i <= last; ++i) {
        const std::string id = fetchId(i);
        if (strncasecmp(id.c_str(), search.id.c_str(), search.id.size()) != 0) continue;
        if (found < 0 || id.size() == search.id.size()) found = i;
        if (id.size() == search.id.size()) break;
    }
    if (found < 0) return 0;
    *at = found;
    return 1;
}
}  // namespace

place_ids_struct place_ids;
void reset_widgets() { search = {}; }

int BTN_big_name_list(int win_type, float x, float y, float dx, float dy, int* ctr_index, int* hil_index,
                      int ind1, int ind2, std::string* str_input, std::string (*fetchFunc)(int)) {
    constexpr float line_height = 10.0f, default_dx = 280.0f, default_dy = 220.0f, bar = 10.0f;
    const bool of_names = win_type == win_generic_list,
               of_places = win_type == win_nav_list || win_type == win_apt_list;
    const bool of_files = win_type == win_ins_list || win_type == win_open || win_type == win_save;
    if (!of_names && !of_places && !of_files) {
        MACIBM_fatal("Bad big_name_list type!");
        return 0;
    }
    if (!(dx > 0.0f)) dx = default_dx;
    if (!(dy > 0.0f)) dy = default_dy;
    const float middle = y + 0.5f * dy;
    BTN_frame2(box_panel, x, y, dx, dy, "");
    int changed = 0;
    if (of_places) {
        // one above the other, their left ends in line
        constexpr float name_down = 18.0f, id_down = 44.0f, id_left = 78.0f;
        const float at_x = x + 0.5f * dx;
        std::string (*const id_of)(int) = win_type == win_nav_list ? place_ids.navaid : place_ids.airport;
        int found = 0, at = 0;
        if (str_input) found = search_name(at_x, y - name_down, &at, ind1, ind2, str_input, fetchFunc);
        if (id_of) found |= search_id(at_x - id_left, y - id_down, &at, ind1, ind2, id_of);
        if (found) *ctr_index = *hil_index = at;
        changed = found;
    }
    const bool in = mouse_in(x, y, x + dx - 2.0f * bar, y + dy);
    if (clicked(in)) {
        *ctr_index = intlim(*ctr_index - intround(0.1f * (mnw.my - middle)), ind1, ind2);
        *hil_index = *ctr_index;
        changed = 1;
    }
    if (in && mnw.mouse_wheel) *ctr_index = intlim(*ctr_index - 3 * mnw.mouse_wheel, ind1, ind2);
    OGL_scissors(x, y, dx, dy);
    const int half_lines = intcut(0.5f * dy / line_height) + 1;
    for (int i = intmax2(*ctr_index - half_lines, ind1); i <= intmin2(*ctr_index + half_lines, ind2); ++i) {
        const float at = middle + line_height * static_cast<float>(*ctr_index - i) - 4.0f;
        if (i == *hil_index) OGL_fillrect(col_white, 0.2f, x, at - 1.0f, dx - 2.0f * bar, line_height);
        float text_x = x + 6.0f;
        if (of_files) {
            const piece& icon = icon_of_file(i);
            OGL_piece(tex_interface, col_white, 1.0f, text_x, at, text_x + 9.0f, at + 9.0f, icon.s, icon.t,
                      static_cast<float>(icon.s + icon.dx), static_cast<float>(icon.t + icon.dy));
            text_x += 14.0f;
        }
        OGL_string(col_widget, text_x, at + 2.0f, fetchFunc(i), no_wrap, charset_text);
    }
    OGL_scissors_end();
    return BTN_vert_slider(x + dx - bar, y + 2.0f, y + dy - 2.0f, ind1, ind2, ctr_index) || changed;
}

void BTN_pan_zoom(float x, float y) {
    constexpr float radius = 28.0f, zoom_down = 46.0f, zoom_apart = 14.0f;
    const float dx = mnw.mx - x, dy = mnw.my - y;
    const bool held = mnw.now_dragging && mnw.menu_up == -1 && pythag(dx, dy) < radius;
    centre_piece(held ? piece_pan_disc_held : piece_pan_disc, x, y);
    if (held) poke_pan(dx, dy);
    const auto key = [&](const piece& p, const piece& pressed, float at_x, int code) {
        const bool in = hovers(at_x - 12.0f, y - zoom_down - 10.0f, at_x + 12.0f, y - zoom_down + 10.0f, "");
        centre_piece(in && mnw.now_dragging ? pressed : p, at_x, y - zoom_down);
        if (in && (mnw.mouse_clicked || mnw.delay_dragging)) poke_zoom(code);
    };
    constexpr int zoom_in = 31745, zoom_out = 31746;
    key(piece_zoom_in, piece_zoom_in_pressed, x - zoom_apart, zoom_in);
    key(piece_zoom_out, piece_zoom_out_pressed, x + zoom_apart, zoom_out);
}

// -- windows
void BTN_zap_boxes(int pressed) {
    constexpr float in = 16.0f, down = 10.0f, half = 8.0f;
    for (const float x : {in, mnw.win_dx - in}) {
        const float y = mnw.win_dy - down;
        const bool over = hovers(x - half, y - half, x + half, y + half, stl.text[text_help_close_box]);
        centre_piece(pressed || (over && mnw.now_dragging) ? piece_close_pressed : piece_close, x, y);
        if (over) OGL_framerect(col_white, 0.4f, x - half, y - half, 2.0f * half, 2.0f * half);
    }
}

void BTN_fillwin(int bar, int fill_type) {
    constexpr float in = 10.0f;
    BTN_frame2(bar ? box_window : box_window_plain, 0.0f, 0.0f, mnw.win_dx, mnw.win_dy, bar ? stl.win_name : "");
    if (fill_type == fill_top_strip)
        BTN_frame1(strip_top_bar, 0.5f * mnw.win_dx, mnw.win_dy - 30.0f, mnw.win_dx - 2.0f * in, col_white);
    else if (fill_type != fill_nothing)
        BTN_frame2(fill_type, in, in, mnw.win_dx - 2.0f * in, mnw.win_dy - 2.0f * in - (bar ? 14.0f : 0.0f),
                   "");
}

void BTN_subwin(float tab_dy, int win_type, float x, float y, float dx, float dy, const std::string& str,
                float* x2, float* y2) {
    constexpr float gap = 10.0f, title = 22.0f;
    if (x == -1.0f) x = gap;
    if (y == -1.0f) y = gap;
    if (dx == -1.0f) dx = mnw.win_dx - gap - x;
    if (dy == -1.0f) dy = mnw.win_dy - title - tab_dy - gap - y;
    BTN_frame2(win_type, x, y, dx, dy, str);
    if (x2) *x2 = x + dx + gap;
    if (y2) *y2 = y + dy + gap;
}
