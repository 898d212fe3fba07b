// The single pieces of controls: boxes to tick, arrows, knobs, keys, digit boxes, tabs.
#include <math.h>

#include "pictures.h"
#include "theme.h"

using namespace theme;

namespace {
rgba faint(const rgba& c, double alpha) { return {c.r, c.g, c.b, alpha}; }
constexpr rgba black(double alpha) { return {0.0, 0.0, 0.0, alpha}; }

// A key of any size in either state, one pixel from the piece's edge, three from its foot.
plate key(canvas& c, cairo_t* cr, const piece& at, double radius, bool pressed) {
    const plate p = {1.0, 2.0, at.dx - 2.0, at.dy - 3.0, radius};
    if (!pressed) {
        c.shadow({p.x + 0.5, p.y - 1.0, p.dx - 1.0, p.dy, radius}, 2.0, 0.5);
        fill(cr, p, outline);
        fill_gradient(cr, p.inset(1.0), key_foot, key_head);
        rim_at_head(cr, p.inset(1.0), faint(light, 0.45), 4.0);
    } else {
        fill(cr, {p.x, p.y - 1.0, p.dx, p.dy, radius}, faint(light, 0.14));
        fill(cr, p, outline);
        fill_gradient(cr, p.inset(1.0), key_down_foot, key_down_head);
        rim(cr, p.inset(1.0), faint(accent, 0.75));
    }
    return p;
}

void hollow(cairo_t* cr, const plate& p) {
    fill(cr, {p.x, p.y - 1.0, p.dx, p.dy, p.radius}, faint(light, 0.20));
    fill(cr, p, outline);
    fill_gradient(cr, p.inset(1.0), hex(0x222b34), hex(0x10151a));
    rim(cr, p.inset(1.0), faint(light, 0.10));
}

void tick_box(canvas& c, const char* name, const piece& at, bool on) {
    cairo_t* cr = c.open(name, at);
    const plate box = {1.0, 2.0, 14.0, 13.0, 3.0};
    hollow(cr, box);
    if (on) {
        fill_gradient(cr, box.inset(1.0), accent_deep, accent);
        rim_at_head(cr, box.inset(1.0), faint(accent_light, 0.8), 4.0);
        cairo_new_path(cr);
        cairo_move_to(cr, 4.5, 8.5);
        cairo_line_to(cr, 7.0, 5.8);
        cairo_line_to(cr, 11.5, 11.2);
        cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
        cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
        set_colour(cr, black(0.35));
        cairo_set_line_width(cr, 3.4);
        cairo_stroke_preserve(cr);
        set_colour(cr, hex(0xffffff));
        cairo_set_line_width(cr, 2.0);
        cairo_stroke(cr);
    }
    c.close();
}

void radio(canvas& c, const char* name, const piece& at, bool on) {
    cairo_t* cr = c.open(name, at);
    hollow(cr, {1.5, 2.0, 13.0, 13.0, 6.5});
    if (on) {
        circle(cr, 8.0, 8.5, 4.6);
        set_colour(cr, faint(accent, 0.30));
        cairo_fill(cr);
        fill_gradient(cr, {4.5, 5.0, 7.0, 7.0, 3.5}, accent, accent_light);
        circle(cr, 7.3, 9.8, 1.2);
        set_colour(cr, hex(0xffffff, 0.85));
        cairo_fill(cr);
    }
    c.close();
}

void hover_rim(canvas& c, const char* name, const piece& at, const plate& p) {
    cairo_t* cr = c.open(name, at);
    rim(cr, p, faint(accent_light, 0.95));
    rim(cr, p.inset(1.0), faint(accent, 0.35));
    c.close();
}

void close_box(canvas& c, const char* name, const piece& at, bool pressed) {
    cairo_t* cr = c.open(name, at);
    const plate p = {1.5, 2.0, 13.0, 13.0, 6.5};
    if (!pressed) c.shadow({p.x, p.y - 1.0, p.dx, p.dy, 6.5}, 2.0, 0.5);
    fill(cr, p, outline);
    if (!pressed) {
        fill_gradient(cr, p.inset(1.0), alarm_foot, alarm_head);
        rim_at_head(cr, p.inset(1.0), hex(0xffffff, 0.5), 5.0);
    } else {
        fill_gradient(cr, p.inset(1.0), hex(0x6b211f), hex(0x3d1211));
        rim(cr, p.inset(1.0), faint(alarm_head, 0.8));
    }
    cairo_new_path(cr);
    cairo_move_to(cr, 5.7, 6.2);
    cairo_line_to(cr, 10.3, 10.8);
    cairo_move_to(cr, 5.7, 10.8);
    cairo_line_to(cr, 10.3, 6.2);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    set_colour(cr, pressed ? hex(0xffb9b2) : hex(0xffffff));
    cairo_set_line_width(cr, 1.8);
    cairo_stroke(cr);
    c.close();
}

void arrow_key(canvas& c, const char* name, const piece& at, bool up, bool pressed) {
    cairo_t* cr = c.open(name, at);
    key(c, cr, at, 3.0, pressed);
    const double middle = pressed ? 7.5 : 8.5, d = up ? 1.0 : -1.0;
    polygon(cr, {{4.0, middle - 2.0 * d}, {12.0, middle - 2.0 * d}, {8.0, middle + 2.8 * d}});
    set_colour(cr, pressed ? accent_light : sign);
    cairo_fill(cr);
    c.close();
}

// Light enough to take the colour of the call: three ridges to grip.
void thumb(canvas& c, const char* name, const piece& at, bool held) {
    cairo_t* cr = c.open(name, at);
    const plate p = {1.0, 2.0, 14.0, 21.0, 4.0};
    c.shadow({p.x, p.y - 1.0, p.dx, p.dy, 4.0}, 2.0, 0.6);
    fill(cr, p, outline);
    fill_gradient(cr, p.inset(1.0), held ? hex(0x93a9bd) : hex(0x5c6f81),
                  held ? hex(0xd6e4f0) : hex(0x92a6b8));
    rim_at_head(cr, p.inset(1.0), hex(0xffffff, 0.6), 5.0);
    for (int i = -1; i <= 1; ++i) {
        fill(cr, {4.0, 12.0 + 3.0 * i, 8.0, 1.0, 0.0}, black(0.55));
        fill(cr, {4.0, 11.0 + 3.0 * i, 8.0, 1.0, 0.0}, hex(0xffffff, 0.35));
    }
    c.close();
}

// The slider's knob: points down to the track's middle.
void knob(canvas& c, const char* name, const piece& at, bool held) {
    cairo_t* cr = c.open(name, at);
    const plate p = {2.0, 3.0, 12.0, 19.0, 4.0};
    c.shadow({p.x, p.y - 1.0, p.dx, p.dy, 4.0}, 2.5, 0.65);
    fill(cr, p, outline);
    fill_gradient(cr, p.inset(1.0), held ? hex(0x8aa0b4) : hex(0x64788a),
                  held ? hex(0xeef5fb) : hex(0xb4c4d2));
    rim_at_head(cr, p.inset(1.0), hex(0xffffff, 0.8), 5.0);
    fill(cr, {7.0, 6.0, 2.0, 13.0, 1.0}, held ? accent : accent_deep);
    c.close();
}

void zoom_key(canvas& c, const char* name, const piece& at, bool in, bool pressed) {
    cairo_t* cr = c.open(name, at);
    key(c, cr, at, 4.0, pressed);
    set_colour(cr, pressed ? accent_light : sign);
    const double middle = pressed ? 10.0 : 11.0;
    cairo_rectangle(cr, 7.0, middle - 1.0, 10.0, 2.0);
    if (in) cairo_rectangle(cr, 11.0, middle - 5.0, 2.0, 10.0);
    cairo_fill(cr);
    c.close();
}

void select_key(canvas& c, const char* name, const piece& at, bool pressed) {
    cairo_t* cr = c.open(name, at);
    key(c, cr, at, 4.0, pressed);
    if (pressed) cairo_translate(cr, 0.0, -1.0);
    // an open folder
    polygon(cr, {{4.5, 5.5}, {4.5, 14.5}, {8.5, 14.5}, {9.8, 13.0}, {14.5, 13.0}, {14.5, 11.0}});
    set_colour(cr, hex(0xc48a2c));
    cairo_fill(cr);
    polygon(cr, {{4.5, 5.5}, {6.8, 11.2}, {16.2, 11.2}, {14.2, 5.5}});
    set_colour(cr, pressed ? hex(0xe0b061) : hex(0xffd382));
    cairo_fill(cr);
    c.close();
}

void menu_marks(canvas& c) {
    cairo_t* cr = c.open("menu_arrow", piece_menu_arrow);
    polygon(cr, {{2.0, 0.5}, {2.0, 7.5}, {6.5, 4.0}});
    set_colour(cr, sign);
    cairo_fill(cr);
    c.close();
    cr = c.open("menu_check", piece_menu_check);
    cairo_move_to(cr, 1.6, 5.0);
    cairo_line_to(cr, 4.0, 2.3);
    cairo_line_to(cr, 8.4, 7.9);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    set_colour(cr, accent_light);
    cairo_set_line_width(cr, 2.0);
    cairo_stroke(cr);
    c.close();
    // lies over the arrow of the pop-up's frame, whose corner is at (50, 6) there
    cr = c.open("popup_arrow", piece_popup_arrow);
    polygon(cr, {{2.0, 9.0}, {10.0, 9.0}, {6.0, 14.0}});
    polygon(cr, {{2.0, 6.0}, {10.0, 6.0}, {6.0, 1.0}});
    set_colour(cr, accent_light);
    cairo_fill(cr);
    c.close();
}

void pan_disc(canvas& c, const char* name, const piece& at, bool held) {
    cairo_t* cr = c.open(name, at);
    constexpr double middle = 28.0;
    c.shadow({3.0, 2.0, 50.0, 50.0, 25.0}, 3.0, 0.6);
    const plate rim_plate = {2.0, 3.0, 52.0, 52.0, 26.0};
    fill(cr, rim_plate, outline);
    fill_gradient(cr, rim_plate.inset(1.0), hex(0x3a4753), hex(0x6c8093));
    fill(cr, rim_plate.inset(6.0), outline);
    fill_gradient(cr, rim_plate.inset(7.0), held ? hex(0x1d5075) : hex(0x303c47),
                  held ? hex(0x123247) : hex(0x1a2129));
    rim_at_head(cr, rim_plate.inset(1.0), faint(light, 0.6), 14.0);
    for (int i = 0; i < 4; ++i) {
        cairo_save(cr);
        cairo_translate(cr, middle, middle + 1.0);
        cairo_rotate(cr, 0.5 * M_PI * i);
        polygon(cr, {{-4.5, 10.5}, {4.5, 10.5}, {0.0, 16.5}});
        set_colour(cr, held ? accent_light : sign);
        cairo_fill(cr);
        cairo_restore(cr);
    }
    circle(cr, middle, middle + 1.0, 4.0);
    set_colour(cr, held ? accent_light : faint(accent, 0.9));
    cairo_fill(cr);
    c.close();
}

// One digit's half: a key with its arrow, and half of the well in which the digit stands. Repeated side by
// side without a seam; the ends close the row.
constexpr double digit_key_dy = 14.0;
void digit_half(canvas& c, const char* name, const piece& at, bool upper, bool hover) {
    cairo_t* cr = c.open(name, at);
    const double dx = at.dx, key_y = upper ? at.dy - digit_key_dy : 0.0, well_y = upper ? 0.0 : digit_key_dy;
    const double well_dy = at.dy - digit_key_dy;
    fill(cr, {0.0, key_y, dx, digit_key_dy, 0.0}, outline);
    const plate face = {0.5, key_y + 1.0, dx - 1.0, digit_key_dy - 2.0, 2.0};
    fill_gradient(cr, face, hover ? hex(0x2a6d98) : key_foot, hover ? hex(0x4f9fd0) : key_head);
    rim_at_head(cr, face, faint(light, 0.45), 3.0);
    const double middle = key_y + 0.5 * digit_key_dy, d = upper ? 1.0 : -1.0;
    polygon(cr, {{2.0, middle - 1.6 * d}, {8.0, middle - 1.6 * d}, {5.0, middle + 2.2 * d}});
    set_colour(cr, hover ? hex(0xffffff) : sign);
    cairo_fill(cr);
    fill(cr, {0.0, well_y, dx, well_dy, 0.0}, sunk);
    if (upper)
        fill_gradient(cr, {0.0, well_y, dx, well_dy, 0.0}, well_y + well_dy - 4.0, black(0.0),
                      well_y + well_dy, black(0.55));
    else
        fill(cr, {0.0, well_y, dx, 1.0, 0.0}, faint(light, 0.12));
    // the seam between two drums
    fill(cr, {0.0, well_y, 1.0, well_dy, 0.0}, faint(light, 0.05));
    fill(cr, {dx - 1.0, well_y, 1.0, well_dy, 0.0}, black(0.35));
    c.close();
}

void digit_end(canvas& c, const char* name, const piece& at, bool left) {
    cairo_t* cr = c.open(name, at);
    const plate p = {left ? 0.0 : -8.0, 0.0, at.dx + 8.0, static_cast<double>(at.dy), 4.0};
    fill(cr, p, outline);
    const plate in = p.inset(1.0);
    fill_gradient(cr, in, hex(0x2f3a45), hex(0x4d5e6f));
    rim_at_head(cr, in, faint(light, 0.45), 4.0);
    fill(cr, {left ? 2.0 : 0.0, digit_key_dy, 2.0, at.dy - 2.0 * digit_key_dy, 0.0}, sunk);
    c.close();
}

void tab(canvas& c, const char* name, const piece& at, bool on) {
    cairo_t* cr = c.open(name, at);
    // only the head is round: the foot runs into the panel
    const plate p = {1.0, -8.0, at.dx - 2.0, at.dy + (on ? 7.0 : 4.0), 5.0};
    if (on) c.shadow({p.x + 1.0, p.y, p.dx - 2.0, p.dy, 5.0}, 2.0, 0.4);
    fill(cr, p, outline);
    const plate in = p.inset(1.0);
    if (on) {
        fill_gradient(cr, in, 0.0, hex(0x2c3742), at.dy, hex(0x52657a));
        rim_at_head(cr, in, faint(light, 0.5), 5.0);
        fill(cr, {4.0, at.dy - 4.0, at.dx - 8.0, 2.0, 1.0}, accent);
    } else {
        fill_gradient(cr, in, 0.0, hex(0x1b2229), at.dy, hex(0x2c3640));
        rim_at_head(cr, in, faint(light, 0.2), 5.0);
        fill_gradient(cr, {in.x, 0.0, in.dx, 5.0, 0.0}, black(0.35), black(0.0));
    }
    c.close();
}
}  // namespace

void draw_controls(canvas& c) {
    tick_box(c, "check_off", piece_check_off, false);
    tick_box(c, "check_on", piece_check_on, true);
    hover_rim(c, "check_hover", piece_check_hover, {1.0, 2.0, 14.0, 13.0, 3.0});
    radio(c, "radio_off", piece_radio_off, false);
    radio(c, "radio_on", piece_radio_on, true);
    hover_rim(c, "radio_hover", piece_radio_hover, {1.5, 2.0, 13.0, 13.0, 6.5});
    close_box(c, "close", piece_close, false);
    close_box(c, "close_pressed", piece_close_pressed, true);
    arrow_key(c, "arrow_up", piece_arrow_up, true, false);
    arrow_key(c, "arrow_up_pressed", piece_arrow_up_pressed, true, true);
    arrow_key(c, "arrow_down", piece_arrow_down, false, false);
    arrow_key(c, "arrow_down_pressed", piece_arrow_down_pressed, false, true);
    thumb(c, "thumb", piece_thumb, false);
    thumb(c, "thumb_held", piece_thumb_held, true);
    knob(c, "knob", piece_knob, false);
    knob(c, "knob_held", piece_knob_held, true);
    zoom_key(c, "zoom_in", piece_zoom_in, true, false);
    zoom_key(c, "zoom_in_pressed", piece_zoom_in_pressed, true, true);
    zoom_key(c, "zoom_out", piece_zoom_out, false, false);
    zoom_key(c, "zoom_out_pressed", piece_zoom_out_pressed, false, true);
    select_key(c, "select_file", piece_select_file, false);
    select_key(c, "select_file_pressed", piece_select_file_pressed, true);
    menu_marks(c);
    pan_disc(c, "pan_disc", piece_pan_disc, false);
    pan_disc(c, "pan_disc_held", piece_pan_disc_held, true);
    digit_half(c, "digit_lower", piece_digit_lower, false, false);
    digit_half(c, "digit_upper", piece_digit_upper, true, false);
    digit_half(c, "digit_lower_hover", piece_digit_lower_hover, false, true);
    digit_half(c, "digit_upper_hover", piece_digit_upper_hover, true, true);
    digit_end(c, "digit_left", piece_digit_left, true);
    digit_end(c, "digit_right", piece_digit_right, false);
    tab(c, "tab", piece_tab, false);
    tab(c, "tab_on", piece_tab_on, true);
    hover_rim(c, "tab_hover", piece_tab_hover, {1.0, 1.0, 88.0, 22.0, 5.0});
}
