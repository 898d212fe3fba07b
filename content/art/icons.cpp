// The small pictures of file and airport lists, 14 x 14.
#include <math.h>

#include "pictures.h"
#include "theme.h"

using namespace theme;

namespace {
constexpr rgba edge = {0.03, 0.05, 0.07, 0.85};
constexpr rgba paper = hex(0xe9eff5), grey = hex(0x9fb0c0), gold_deep = hex(0xc98f35);

// Nose up, centred; half the span is `size`.
void aircraft_from_above(cairo_t* cr, double x, double y, double size) {
    cairo_save(cr);
    cairo_translate(cr, x, y);
    cairo_scale(cr, size, size);
    polygon(cr, {{0.0, 1.0},
                 {0.13, 0.75},
                 {0.15, 0.35},
                 {1.0, 0.12},
                 {1.0, -0.14},
                 {0.15, -0.12},
                 {0.10, -0.62},
                 {0.42, -0.78},
                 {0.42, -0.98},
                 {0.0, -0.88},
                 {-0.42, -0.98},
                 {-0.42, -0.78},
                 {-0.10, -0.62},
                 {-0.15, -0.12},
                 {-1.0, -0.14},
                 {-1.0, 0.12},
                 {-0.15, 0.35},
                 {-0.13, 0.75}});
    cairo_restore(cr);
}

void sheet(cairo_t* cr, const rgba& c) {
    polygon(cr, {{2.5, 1.0}, {2.5, 13.0}, {8.0, 13.0}, {11.5, 9.5}, {11.5, 1.0}});
    outlined(cr, c, edge, 1.0);
    polygon(cr, {{8.0, 13.0}, {8.0, 9.5}, {11.5, 9.5}});
    set_colour(cr, grey);
    cairo_fill(cr);
}

void lines(cairo_t* cr, int from, int to, const rgba& c) {
    for (int i = from; i < to; ++i) fill(cr, {4.0, 2.0 + 2.0 * i, 6.0, 1.0, 0.0}, c);
}

void stroke(cairo_t* cr, const rgba& c, double width) {
    set_colour(cr, c);
    cairo_set_line_width(cr, width);
    cairo_stroke(cr);
}
}  // namespace

void draw_list_icons(canvas& c) {
    cairo_t* cr = c.open("icon_folder", piece_icon_folder);
    polygon(cr, {{1.0, 2.0}, {1.0, 12.0}, {5.5, 12.0}, {7.0, 10.0}, {13.0, 10.0}, {13.0, 2.0}});
    outlined(cr, gold_deep, edge, 1.0);
    fill_gradient(cr, {1.0, 2.0, 12.0, 7.0, 0.0}, hex(0xf0b24a), hex(0xffe09a));
    c.close();

    cr = c.open("icon_file", piece_icon_file);
    sheet(cr, paper);
    lines(cr, 0, 3, hex(0x7d8d9c));
    c.close();

    cr = c.open("icon_aircraft", piece_icon_aircraft);
    aircraft_from_above(cr, 7.0, 7.0, 6.2);
    outlined(cr, hex(0xbfe6ff), edge, 1.0);
    c.close();

    cr = c.open("icon_airport", piece_icon_airport);
    circle(cr, 7.0, 7.0, 5.6);
    outlined(cr, hex(0x3aa0d8), edge, 1.0);
    cairo_save(cr);
    cairo_translate(cr, 7.0, 7.0);
    cairo_rotate(cr, -0.6);
    fill(cr, {-1.6, -5.0, 3.2, 10.0, 0.0}, paper);
    for (double y : {-3.6, -0.8, 2.0}) fill(cr, {-0.4, y, 0.8, 1.6, 0.0}, hex(0x40505e));
    cairo_restore(cr);
    c.close();

    cr = c.open("icon_navaid", piece_icon_navaid);
    polygon(cr, {{1.2, 7.0}, {4.1, 12.0}, {9.9, 12.0}, {12.8, 7.0}, {9.9, 2.0}, {4.1, 2.0}});
    outlined_line(cr, hex(0x7fe0b0), 1.5, edge);
    circle(cr, 7.0, 7.0, 1.7);
    set_colour(cr, hex(0x7fe0b0));
    cairo_fill(cr);
    c.close();

    cr = c.open("icon_picture", piece_icon_picture);
    polygon(cr, {{1.0, 2.0}, {1.0, 12.0}, {13.0, 12.0}, {13.0, 2.0}});
    outlined(cr, paper, edge, 1.0);
    fill_gradient(cr, {2.0, 3.0, 10.0, 8.0, 0.0}, hex(0xffb26b), hex(0x4d8fd0));
    polygon(cr, {{2.0, 3.0}, {2.0, 5.0}, {5.0, 8.0}, {7.5, 5.5}, {9.0, 7.0}, {12.0, 4.5}, {12.0, 3.0}});
    set_colour(cr, hex(0x2b3f4f));
    cairo_fill(cr);
    c.close();

    cr = c.open("icon_sound", piece_icon_sound);
    polygon(cr, {{1.0, 5.0}, {1.0, 9.0}, {3.5, 9.0}, {7.0, 12.2}, {7.0, 1.8}, {3.5, 5.0}});
    outlined(cr, hex(0xc9b6ff), edge, 1.0);
    for (double r : {3.0, 5.4}) {
        cairo_new_path(cr);
        cairo_arc(cr, 6.8, 7.0, r, -0.75, 0.75);
        stroke(cr, hex(0xc9b6ff), 1.4);
    }
    c.close();

    cr = c.open("icon_movie", piece_icon_movie);
    fill(cr, {0.5, 1.0, 13.0, 12.0, 2.0}, edge);
    fill_gradient(cr, {1.5, 2.0, 11.0, 10.0, 1.0}, hex(0x3d4c5a), hex(0x71889c));
    for (int i = 0; i < 4; ++i)
        for (double y : {2.6, 10.4}) fill(cr, {2.2 + 2.6 * i, y, 1.6, 1.0, 0.0}, hex(0x12171d));
    polygon(cr, {{5.0, 4.0}, {5.0, 10.0}, {10.0, 7.0}});
    set_colour(cr, hex(0xffffff));
    cairo_fill(cr);
    c.close();

    cr = c.open("icon_foil", piece_icon_foil);
    cairo_new_path(cr);
    cairo_move_to(cr, 13.0, 4.8);
    cairo_curve_to(cr, 8.0, 9.0, 3.5, 11.2, 1.5, 8.6);
    cairo_curve_to(cr, 0.2, 6.4, 2.4, 5.0, 5.0, 5.0);
    cairo_close_path(cr);
    outlined(cr, hex(0xbfe6ff), edge, 1.0);
    c.close();

    cr = c.open("icon_weapon", piece_icon_weapon);
    cairo_save(cr);
    cairo_translate(cr, 7.0, 7.0);
    cairo_rotate(cr, -0.75 * M_PI + 0.5 * M_PI);
    polygon(cr, {{0.0, 6.6}, {1.4, 4.2}, {1.4, -3.4}, {3.2, -5.6}, {-3.2, -5.6}, {-1.4, -3.4}, {-1.4, 4.2}});
    cairo_restore(cr);
    outlined(cr, hex(0xff9d8a), edge, 1.0);
    c.close();

    cr = c.open("icon_plan", piece_icon_plan);
    sheet(cr, paper);
    cairo_new_path(cr);
    cairo_move_to(cr, 4.0, 3.0);
    cairo_line_to(cr, 6.0, 6.5);
    cairo_line_to(cr, 9.0, 5.0);
    stroke(cr, hex(0xc0406a), 1.2);
    for (const auto& [x, y] : {std::pair{4.2, 3.2}, {6.0, 6.6}, {9.2, 5.0}}) circle(cr, x, y, 1.1);
    set_colour(cr, hex(0x8c1f4a));
    cairo_fill(cr);
    c.close();

    cr = c.open("icon_situation", piece_icon_situation);
    sheet(cr, paper);
    aircraft_from_above(cr, 6.9, 5.4, 3.6);
    set_colour(cr, hex(0x1b6fa8));
    cairo_fill(cr);
    c.close();
}
