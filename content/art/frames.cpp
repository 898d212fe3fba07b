// The stretched pieces. Between its borders a piece must not change along the direction in which it is
// repeated.
#include "pictures.h"
#include "theme.h"

using namespace theme;

namespace {
// A plate that stands out: dark outline, light from above.
void raised(cairo_t* cr, const plate& p, const rgba& foot, const rgba& head, double edge) {
    fill(cr, p, outline);
    fill_gradient(cr, p.inset(1.0), foot, head);
    rim_at_head(cr, p.inset(1.0), {light.r, light.g, light.b, edge}, 4.0);
    rim_at_foot(cr, p.inset(1.0), {0.0, 0.0, 0.0, 0.25}, 3.0);
}

// A hollow: dark at its head, where the edge throws its shadow, a light line under its foot.
void hollow(cairo_t* cr, const plate& p, const rgba& foot, const rgba& head) {
    plate lit = p;
    lit.y -= 1.0;
    fill(cr, lit, {light.r, light.g, light.b, 0.16});
    fill(cr, p, outline);
    fill_gradient(cr, p.inset(1.0), foot, head);
    const double depth = p.dy < 14.0 ? 3.0 : 5.0;
    const plate in = p.inset(1.0);
    fill_gradient(cr, in, in.y + in.dy - depth, {0, 0, 0, 0}, in.y + in.dy, {0, 0, 0, 0.45});
}

// The bars at the head of the screen and of a window: 18 high above a shadow of 7. The head has no outline,
// since it lies against an edge; a window's bar takes up its round corners.
void head_bar(canvas& c, int kind, double radius) {
    const frame_piece& f = frame1_pieces[kind];
    cairo_t* cr = c.open("frame " + std::to_string(kind), f.at);
    constexpr double foot = 7.0;
    c.shadow({-20.0, foot - 1.0, f.at.dx + 40.0, 30.0, 0.0}, 6.0, 0.55);
    const plate bar = {0.0, foot - 20.0, static_cast<double>(f.at.dx), f.at.dy - foot + 20.0, radius};
    cairo_rectangle(cr, 0.0, foot, f.at.dx, f.at.dy - foot);
    cairo_clip(cr);
    if (radius > 0.0) {  // no shadow in the corners
        cairo_set_operator(cr, CAIRO_OPERATOR_CLEAR);
        cairo_paint(cr);
        cairo_set_operator(cr, CAIRO_OPERATOR_OVER);
    }
    fill_gradient(cr, bar, foot, hex(0x29323c), f.at.dy, hex(0x4a5a6a));
    fill(cr, {0.0, foot, bar.dx, 1.0, 0.0}, outline);
    fill(cr, {0.0, foot + 1.0, bar.dx, 1.0, 0.0}, {accent.r, accent.g, accent.b, 0.5});
    rim_at_head(cr, bar, {light.r, light.g, light.b, 0.4}, 5.0);
    c.close();
}

void button(canvas& c, int kind, bool pressed) {
    const frame_piece& f = frame1_pieces[kind];
    cairo_t* cr = c.open(pressed ? "frame 3" : "frame 2", f.at);
    const plate key = {1.0, 3.0, f.at.dx - 2.0, 21.0, 5.0};
    if (!pressed) {
        c.shadow({key.x + 1.0, key.y - 1.0, key.dx - 2.0, key.dy, 5.0}, 3.0, 0.55);
        raised(cr, key, key_foot, key_head, 0.45);
    } else {
        hollow(cr, key, key_down_foot, key_down_head);
        rim(cr, key.inset(1.0), {accent.r, accent.g, accent.b, 0.75});
    }
    c.close();
}

void progress(canvas& c) {
    cairo_t* cr = c.open("frame 4", frame1_pieces[strip_progress_track].at);
    hollow(cr, {0.0, 1.0, 28.0, 15.0, 7.0}, hex(0x1a2129), hex(0x0f1419));
    c.close();
    cr = c.open("frame 5", frame1_pieces[strip_progress_fill].at);
    const plate bar = {2.0, 3.0, 24.0, 11.0, 5.0};
    c.shadow(bar, 2.0, 0.5);
    fill_gradient(cr, bar, accent_deep, accent);
    rim_at_head(cr, bar, {accent_light.r, accent_light.g, accent_light.b, 0.9}, 5.0);
    c.close();
}

void sliders(canvas& c) {
    const piece& upright = frame0_piece.at;
    cairo_t* cr = c.open("frame 6", upright);
    hollow(cr, {2.0, 1.0, 16.0, 39.0, 5.0}, hex(0x161c23), hex(0x161c23));
    // the shadow of the left edge, so that the groove is deep along its whole length
    cairo_pattern_t* g = cairo_pattern_create_linear(3.0, 0.0, 7.0, 0.0);
    cairo_pattern_add_color_stop_rgba(g, 0.0, 0, 0, 0, 0.5);
    cairo_pattern_add_color_stop_rgba(g, 1.0, 0, 0, 0, 0.0);
    path(cr, {3.0, 2.0, 14.0, 37.0, 4.0});
    cairo_set_source(cr, g);
    cairo_fill(cr);
    cairo_pattern_destroy(g);
    c.close();

    cr = c.open("frame 7", frame1_pieces[strip_slider_track].at);
    hollow(cr, {1.0, 8.0, 63.0, 9.0, 4.5}, hex(0x1a2129), hex(0x0f1419));
    c.close();
    cr = c.open("frame 8", frame1_pieces[strip_slider_fill].at);
    const plate bar = {2.0, 6.0, 12.0, 5.0, 2.5};
    fill_gradient(cr, bar, hex(0xa8a8a8), hex(0xffffff));
    c.close();
}

void field(canvas& c) {
    cairo_t* cr = c.open("frame 9", frame1_pieces[strip_field].at);
    hollow(cr, {1.0, 3.0, 49.0, 21.0, 4.0}, hex(0x161d24), sunk);
    c.close();
}

void popup(canvas& c) {
    const frame_piece& f = frame1_pieces[strip_popup];
    cairo_t* cr = c.open("frame 10", f.at);
    const plate key = {1.0, 3.0, f.at.dx - 2.0, 21.0, 5.0};
    c.shadow({key.x + 1.0, key.y - 1.0, key.dx - 2.0, key.dy, 5.0}, 3.0, 0.55);
    raised(cr, key, hex(0x2f3a44), hex(0x475664), 0.40);
    // the arrow's end: lighter, behind a seam
    cairo_save(cr);
    cairo_rectangle(cr, 46.0, 4.0, 22.0, 19.0);
    cairo_clip(cr);
    fill_gradient(cr, key.inset(1.0), hex(0x46586a), hex(0x687d92));
    rim_at_head(cr, key.inset(1.0), {light.r, light.g, light.b, 0.5}, 4.0);
    cairo_restore(cr);
    fill(cr, {45.0, 4.0, 1.0, 19.0, 0.0}, {0, 0, 0, 0.55});
    fill(cr, {46.0, 4.0, 1.0, 19.0, 0.0}, {light.r, light.g, light.b, 0.18});
    polygon(cr, {{52.0, 15.0}, {60.0, 15.0}, {56.0, 20.0}});
    polygon(cr, {{52.0, 12.0}, {60.0, 12.0}, {56.0, 7.0}});
    set_colour(cr, sign);
    cairo_fill(cr);
    c.close();
}

void large_bar(canvas& c) {
    cairo_t* cr = c.open("frame 11", frame1_pieces[strip_large_bar].at);
    const plate bar = {3.0, 6.0, 94.0, 48.0, 8.0};
    c.shadow({bar.x, bar.y - 2.0, bar.dx, bar.dy, 8.0}, 4.0, 0.6);
    raised(cr, bar, hex(0x1d242c), hex(0x35414d), 0.35);
    c.close();
}

// The plate of a box: what its shadow leaves.
plate box_plate(const box_piece& b, double radius) {
    return {static_cast<double>(b.sides), static_cast<double>(b.bottom), b.at.dx - 2.0 * b.sides,
            static_cast<double>(b.at.dy - b.bottom - b.top), radius};
}

// The shadow falls as far as the margins of the table allow: the light comes from above.
void box_shadow(canvas& c, const box_piece& b, const plate& p, double strength) {
    const double down = 0.5 * (b.bottom - b.top);
    c.shadow({p.x, p.y - down, p.dx, p.dy, p.radius}, b.sides, strength);
}

void window(canvas& c, int kind, bool title) {
    const box_piece& b = frame2_pieces[kind - box_window];
    cairo_t* cr = c.open("frame " + std::to_string(kind), b.at);
    const plate p = box_plate(b, 7.0);
    box_shadow(c, b, p, 0.85);
    fill(cr, p, outline);
    const plate in = p.inset(1.0);
    fill_gradient(cr, in, in.y, body_low, in.y + 24.0, body);
    if (title) {
        constexpr double bar_dy = 20.0;
        const double foot = p.y + p.dy - bar_dy;
        cairo_save(cr);
        cairo_rectangle(cr, 0.0, foot, b.at.dx, bar_dy);
        cairo_clip(cr);
        fill_gradient(cr, in, foot, hex(0x2d3844), p.y + p.dy, hex(0x4c5d6e));
        cairo_restore(cr);
        fill(cr, {in.x, foot, in.dx, 1.0, 0.0}, {accent.r, accent.g, accent.b, 0.6});
        fill(cr, {in.x, foot - 1.0, in.dx, 1.0, 0.0}, {0, 0, 0, 0.55});
        fill_gradient(cr, {in.x, foot - 6.0, in.dx, 5.0, 0.0}, {0, 0, 0, 0.0}, {0, 0, 0, 0.28});
    }
    rim(cr, in, {light.r, light.g, light.b, 0.06});
    rim_at_head(cr, in, {light.r, light.g, light.b, 0.42}, 6.0);
    c.close();
}

void sunk_panel(canvas& c) {
    const box_piece& b = frame2_pieces[box_sunk - box_window];
    cairo_t* cr = c.open("frame 13", b.at);
    const plate p = box_plate(b, 5.0);
    c.shadow({p.x, p.y, p.dx, p.dy, 5.0}, 4.0, 0.35);
    fill(cr, {p.x, p.y - 1.0, p.dx, p.dy, p.radius}, {light.r, light.g, light.b, 0.14});
    fill(cr, p, outline);
    fill(cr, p.inset(1.0), hex(0x151b22));
    const plate in = p.inset(1.0);
    fill_gradient(cr, in, in.y + in.dy - 9.0, {0, 0, 0, 0}, in.y + in.dy, {0, 0, 0, 0.5});
    c.close();
}

void help_box(canvas& c) {
    const box_piece& b = frame2_pieces[box_help - box_window];
    cairo_t* cr = c.open("frame 14", b.at);
    const plate p = box_plate(b, 6.0);
    box_shadow(c, b, p, 0.8);
    fill(cr, p, outline);
    fill(cr, p.inset(1.0), hex(0x1b3044));
    fill_gradient(cr, p.inset(1.0), p.y + p.dy - 26.0, hex(0x1b3044), p.y + p.dy, hex(0x28445d));
    rim(cr, p.inset(1.0), {amber.r, amber.g, amber.b, 0.55});
    rim_at_head(cr, p.inset(2.0), {light.r, light.g, light.b, 0.22}, 4.0);
    c.close();
}

void glass(canvas& c) {
    const box_piece& b = frame2_pieces[box_glass - box_window];
    cairo_t* cr = c.open("frame 15", b.at);
    const plate p = box_plate(b, 8.0);
    box_shadow(c, b, p, 0.6);
    // the shadow must not darken what shines through
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    fill(cr, p.inset(1.0), hex(0x101820, 0.88));
    cairo_set_operator(cr, CAIRO_OPERATOR_OVER);
    fill_gradient(cr, p.inset(1.0), p.y + p.dy - 34.0, {light.r, light.g, light.b, 0.0}, p.y + p.dy,
                  {light.r, light.g, light.b, 0.14});
    rim(cr, p, {0, 0, 0, 0.7});
    rim(cr, p.inset(1.0), {light.r, light.g, light.b, 0.16});
    rim_at_head(cr, p.inset(1.0), {light.r, light.g, light.b, 0.45}, 6.0);
    c.close();
}

void group_panel(canvas& c) {
    const box_piece& b = frame2_pieces[box_panel - box_window];
    cairo_t* cr = c.open("frame 16", b.at);
    const plate p = box_plate(b, 6.0);
    rim(cr, {p.x - 1.0, p.y - 1.0, p.dx + 2.0, p.dy + 2.0, 7.0}, {0, 0, 0, 0.25});
    fill(cr, {p.x, p.y - 1.0, p.dx, p.dy, p.radius}, {light.r, light.g, light.b, 0.12});
    fill(cr, p, outline);
    fill(cr, p.inset(1.0), panel);
    const plate in = p.inset(1.0);
    fill_gradient(cr, in, in.y + in.dy - 22.0, {0, 0, 0, 0.0}, in.y + in.dy, {0, 0, 0, 0.22});
    rim(cr, in, {light.r, light.g, light.b, 0.05});
    c.close();
}

void menu_box(canvas& c) {
    const box_piece& b = frame2_pieces[box_menu - box_window];
    cairo_t* cr = c.open("frame 17", b.at);
    const plate p = box_plate(b, 3.0);  // round corners end within the border
    box_shadow(c, b, p, 0.8);
    fill(cr, p, outline);
    fill(cr, p.inset(1.0), hex(0x27303a));
    rim(cr, p.inset(1.0), {light.r, light.g, light.b, 0.10});
    rim_at_head(cr, p.inset(1.0), {light.r, light.g, light.b, 0.30}, 4.0);
    c.close();
}

void small_box(canvas& c) {
    const box_piece& b = frame2_pieces[box_small - box_window];
    cairo_t* cr = c.open("frame 18", b.at);
    const plate p = box_plate(b, 4.0);
    box_shadow(c, b, p, 0.8);
    fill(cr, p, outline);
    fill(cr, p.inset(1.0), hex(0x303b47));
    rim(cr, p.inset(1.0), {light.r, light.g, light.b, 0.10});
    rim_at_head(cr, p.inset(1.0), {light.r, light.g, light.b, 0.40}, 4.0);
    c.close();
}
}  // namespace

void draw_frames(canvas& c) {
    head_bar(c, 0, 0.0);
    head_bar(c, 1, 6.0);
    button(c, 2, false);
    button(c, 3, true);
    progress(c);
    sliders(c);
    field(c);
    popup(c);
    large_bar(c);
    window(c, 11, true);
    window(c, 12, false);
    sunk_panel(c);
    help_box(c);
    glass(c);
    group_panel(c);
    menu_box(c);
    small_box(c);
}
