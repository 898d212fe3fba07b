// What stands on the maps: cells of 14 x 16, the rose of a VOR, ships. North up, white with a dark edge, so
// that they take the colour of the call.
#include <math.h>

#include "pictures.h"
#include "theme.h"

using namespace theme;

namespace {
constexpr rgba edge = {0.0, 0.0, 0.0, 0.8};
constexpr rgba white = hex(0xffffff);

// Origin in the middle of the cell.
template <class painter>
void cell(canvas& c, const char* name, int i, int j, painter&& draw) {
    cairo_t* cr = c.open(std::string("map ") + name, map_icon_cell(i, j));
    cairo_translate(cr, 7.0, 8.0);
    cairo_new_path(cr);
    draw(cr);
    c.close();
}

void hexagon(cairo_t* cr, double radius) {
    for (int i = 0; i < 6; ++i) cairo_line_to(cr, radius * cos(i * M_PI / 3.0), radius * sin(i * M_PI / 3.0));
    cairo_close_path(cr);
}

void ring(cairo_t* cr, double radius, double width) {
    cairo_new_path(cr);
    circle(cr, 0.0, 0.0, radius);
    outlined_line(cr, white, width, edge);
}

void dot(cairo_t* cr, double radius) {
    cairo_new_path(cr);
    circle(cr, 0.0, 0.0, radius);
    outlined(cr, white, edge, 1.0);
}

void cells(canvas& c) {
    cell(c, "fix", 0, 0, [](cairo_t* p) {
        polygon(p, {{0.0, 4.5}, {4.6, -3.6}, {-4.6, -3.6}});
        outlined_line(p, white, 1.4, edge);
    });
    cell(c, "airport", 0, 1, [](cairo_t* p) {
        ring(p, 4.9, 1.6);
        fill(p, {-1.4, -3.4, 2.8, 6.8, 0.0}, white);
        for (int i = 0; i < 4; ++i) {
            cairo_save(p);
            cairo_rotate(p, 0.5 * M_PI * i);
            fill(p, {-0.8, 5.0, 1.6, 1.6, 0.0}, white);
            cairo_restore(p);
        }
    });
    cell(c, "NDB", 0, 2, [](cairo_t* p) {
        dot(p, 1.6);
        for (double r : {3.6, 5.6}) {
            const int count = r < 4.0 ? 10 : 16;
            for (int i = 0; i < count; ++i) {
                const double a = 2.0 * M_PI * (i + 0.5) / count;
                circle(p, r * cos(a), r * sin(a), 0.6);
            }
        }
        set_colour(p, white);
        cairo_fill(p);
    });
    cell(c, "VOR", 0, 3, [](cairo_t* p) {
        hexagon(p, 5.4);
        outlined_line(p, white, 1.5, edge);
        dot(p, 1.3);
    });
    cell(c, "glide slope", 1, 1, [](cairo_t* p) {
        polygon(p, {{0.0, 5.5}, {3.6, 0.0}, {0.0, -5.5}, {-3.6, 0.0}});
        outlined(p, white, edge, 1.0);
        polygon(p, {{0.0, 3.0}, {1.9, 0.0}, {0.0, -3.0}, {-1.9, 0.0}});
        set_colour(p, {0.0, 0.0, 0.0, 0.45});
        cairo_fill(p);
    });
    cell(c, "marker", 1, 2, [](cairo_t* p) {  // a lens across the approach
        cairo_move_to(p, -5.5, 0.0);
        cairo_curve_to(p, -2.5, 3.6, 2.5, 3.6, 5.5, 0.0);
        cairo_curve_to(p, 2.5, -3.6, -2.5, -3.6, -5.5, 0.0);
        cairo_close_path(p);
        outlined(p, white, edge, 1.0);
        fill(p, {-3.4, -0.5, 6.8, 1.0, 0.0}, {0.0, 0.0, 0.0, 0.4});
    });
    cell(c, "aircraft", 2, 2, [](cairo_t* p) {
        polygon(p, {{0.0, 6.6},
                    {1.0, 4.8},
                    {1.1, 2.0},
                    {5.8, 0.4},
                    {5.8, -1.2},
                    {1.1, -0.8},
                    {0.8, -4.2},
                    {2.8, -5.4},
                    {2.8, -6.6},
                    {0.0, -6.0},
                    {-2.8, -6.6},
                    {-2.8, -5.4},
                    {-0.8, -4.2},
                    {-1.1, -0.8},
                    {-5.8, -1.2},
                    {-5.8, 0.4},
                    {-1.1, 2.0},
                    {-1.0, 4.8}});
        outlined(p, white, edge, 1.0);
    });
    cell(c, "DME", 4, 3, [](cairo_t* p) {
        polygon(p, {{-4.6, -4.6}, {-4.6, 4.6}, {4.6, 4.6}, {4.6, -4.6}});
        outlined_line(p, white, 1.5, edge);
        dot(p, 1.3);
    });
    cell(c, "oil rig", 4, 2, [](cairo_t* p) {  // a tower on its barge
        polygon(p, {{-1.0, 6.5}, {1.0, 6.5}, {3.0, -2.0}, {-3.0, -2.0}});
        outlined_line(p, white, 1.3, edge);
        polygon(p, {{-5.5, -2.5}, {5.5, -2.5}, {4.2, -5.5}, {-4.2, -5.5}});
        outlined(p, white, edge, 1.0);
    });
    cell(c, "oil platform", 4, 1, [](cairo_t* p) {  // a deck on legs, a landing pad on top
        for (double x : {-4.0, 0.0, 4.0}) {
            cairo_move_to(p, x, 0.0);
            cairo_line_to(p, x, -6.0);
        }
        outlined_line(p, white, 1.3, edge);
        polygon(p, {{-5.5, -0.5}, {-5.5, 2.5}, {5.5, 2.5}, {5.5, -0.5}});
        outlined(p, white, edge, 1.0);
        polygon(p, {{-4.5, 4.0}, {-4.5, 5.5}, {2.0, 5.5}, {2.0, 4.0}});
        outlined(p, white, edge, 1.0);
    });
}

void vor_rose(canvas& c) {
    cairo_t* cr = c.open("vor_rose", piece_vor_rose);
    cairo_translate(cr, 0.5 * piece_vor_rose.dx, 0.5 * piece_vor_rose.dy);
    const auto ticks = [&] {
        cairo_new_path(cr);
        for (int degrees = 0; degrees < 360; degrees += 10) {
            const double a = degrees * M_PI / 180.0;
            const double from = degrees % 90 == 0 ? 20.0 : degrees % 30 == 0 ? 25.0 : 29.0;
            cairo_move_to(cr, from * sin(a), from * cos(a));
            cairo_line_to(cr, 33.0 * sin(a), 33.0 * cos(a));
        }
        circle(cr, 0.0, 0.0, 33.0);
    };
    ticks();
    outlined_line(cr, hex(0xffffff, 0.9), 1.0, {0.0, 0.0, 0.0, 0.45});
    // north
    polygon(cr, {{0.0, 31.0}, {4.5, 21.0}, {-4.5, 21.0}});
    outlined(cr, white, edge, 1.0);
    cairo_new_path(cr);
    hexagon(cr, 6.0);
    outlined_line(cr, white, 1.6, edge);
    dot(cr, 1.6);
    c.close();
}

void carrier(canvas& c) {
    cairo_t* cr = c.open("carrier", piece_carrier);
    // flight deck with its angled side, island to starboard
    polygon(cr, {{4.0, 2.0},
                 {2.5, 8.0},
                 {2.5, 16.0},
                 {1.2, 21.0},
                 {1.2, 36.0},
                 {3.5, 44.0},
                 {4.5, 49.5},
                 {10.0, 49.5},
                 {12.0, 42.0},
                 {13.2, 34.0},
                 {13.2, 12.0},
                 {11.5, 2.0}});
    outlined(cr, hex(0xb9c2ca), edge, 1.0);
    cairo_new_path(cr);
    cairo_move_to(cr, 9.4, 6.0);
    cairo_line_to(cr, 4.0, 37.0);
    set_colour(cr, white);
    cairo_set_line_width(cr, 0.9);
    cairo_stroke(cr);
    for (double x : {6.4, 8.6}) {
        cairo_move_to(cr, x, 30.0);
        cairo_line_to(cr, x, 47.0);
    }
    set_colour(cr, {0.0, 0.0, 0.0, 0.4});
    cairo_stroke(cr);
    fill(cr, {10.6, 20.0, 2.2, 8.0, 0.8}, hex(0x5b6670));
    c.close();
}

void frigate(canvas& c) {
    cairo_t* cr = c.open("frigate", piece_frigate);
    cairo_new_path(cr);
    cairo_move_to(cr, 4.0, 2.0);
    cairo_line_to(cr, 3.2, 12.0);
    cairo_curve_to(cr, 2.8, 28.0, 4.0, 40.0, 7.5, 49.5);
    cairo_curve_to(cr, 11.0, 40.0, 12.2, 28.0, 11.8, 12.0);
    cairo_line_to(cr, 11.0, 2.0);
    cairo_close_path(cr);
    outlined(cr, hex(0xb9c2ca), edge, 1.0);
    // landing pad aft, superstructure, gun
    cairo_new_path(cr);
    circle(cr, 7.5, 7.5, 2.8);
    set_colour(cr, white);
    cairo_set_line_width(cr, 1.0);
    cairo_stroke(cr);
    fill(cr, {5.0, 14.0, 5.0, 6.0, 1.0}, hex(0x7d8993));
    fill(cr, {4.8, 22.0, 5.4, 9.0, 1.0}, hex(0x646f79));
    fill(cr, {6.2, 24.0, 2.6, 3.0, 1.0}, hex(0x39434c));
    fill(cr, {6.0, 36.0, 3.0, 3.0, 1.5}, hex(0x646f79));
    fill(cr, {7.1, 38.0, 0.8, 4.0, 0.0}, hex(0x39434c));
    c.close();
}
}  // namespace

void draw_map_icons(canvas& c) {
    cells(c);
    vor_rose(c);
    carrier(c);
    frigate(c);
}
