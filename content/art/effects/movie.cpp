// A biplane flies over hills from the left to the right, and the sun goes down behind them. Five frames in a
// row, seven rows, the first at the lower left.
#include <math.h>

#include "canvas.h"
#include "effects.h"

namespace {
constexpr int columns = 5, rows = 7;
constexpr double frame_dx = 204.0, frame_dy = 146.0;  // pixels

void hills(cairo_t* cr, double base, double height, double shift, const rgba& c) {
    cairo_move_to(cr, 0, 0);
    for (int i = 0; i <= 51; ++i) {
        const double x = 4.0 * i;
        cairo_line_to(cr, x, base + height * (sin(0.031 * (x + shift)) + 0.4 * sin(0.083 * (x + shift) + 1.0)));
    }
    cairo_line_to(cr, frame_dx, 0);
    cairo_close_path(cr);
    set_colour(cr, c);
    cairo_fill(cr);
}

void biplane(cairo_t* cr, double x, double y, double pitch, int frame) {
    cairo_save(cr);
    cairo_translate(cr, x, y);
    cairo_rotate(cr, pitch);
    const auto part = [cr](double px, double py, double dx, double dy, unsigned colour) {
        fill(cr, {px, py, dx, dy, 2.0}, hex(colour));
    };
    part(-26, -4, 48, 9, 0x8c2418);  // body
    part(-31, -2, 8, 15, 0x8c2418);  // fin
    part(-34, -1, 16, 3, 0xd8b04a);
    part(-8, 10, 26, 4, 0xd8b04a);  // wings
    part(-10, -9, 26, 4, 0xd8b04a);
    part(-5, -6, 2, 17, 0x4a3a20);
    part(11, -6, 2, 17, 0x4a3a20);
    circle(cr, 2, 7, 4);
    set_colour(cr, hex(0x2a2018));
    cairo_fill(cr);
    circle(cr, 6, -13, 4);
    set_colour(cr, hex(0x202020));
    cairo_fill(cr);
    const double blade = frame % 2 ? 12.0 : 7.0;
    part(22, -blade, 2, 2.0 * blade, 0x3a2c1c);
    cairo_restore(cr);
}

void draw_frame(cairo_t* cr, int frame) {
    const double run = static_cast<double>(frame) / (columns * rows - 1);
    fill_gradient(cr, {0, 0, frame_dx, frame_dy, 0}, mix(hex(0xf0c890), hex(0xd87848), run), mix(hex(0x5c94cc), hex(0x38406c), run));
    circle(cr, 150, 96 - 60 * run, 13);
    set_colour(cr, mix(hex(0xfff4c0), hex(0xffb060), run));
    cairo_fill(cr);
    hills(cr, 46, 9, 60 * run, mix(hex(0x6c8494), hex(0x40405c), run));
    hills(cr, 30, 8, 150 * run + 40, mix(hex(0x4c6c4c), hex(0x2c3838), run));
    hills(cr, 12, 5, 320 * run + 90, mix(hex(0x5c7434), hex(0x28301c), run));
    biplane(cr, -40 + 290 * run, 84 + 16 * sin(2.0 * M_PI * run), 0.35 * cos(2.0 * M_PI * run), frame);
}
}  // namespace

void draw_movie(const std::string& folder) {
    canvas picture(1024, 1024);
    cairo_t* const cr = picture.pen();
    for (int frame = 0; frame < columns * rows; ++frame) {
        cairo_save(cr);
        cairo_translate(cr, frame_dx * (frame % columns), frame_dy * (frame / columns));
        cairo_rectangle(cr, 0, 0, frame_dx, frame_dy);
        cairo_clip(cr);
        cairo_new_path(cr);
        draw_frame(cr, frame);
        cairo_restore(cr);
    }
    picture.save(folder + "movie.png", false);
}
