// Shapes by cairo, blur by running means.
#include "paint.h"

#include <math.h>

#include <algorithm>
#include <string>

#include "grounds.h"

paint_mask::paint_mask(int dx, int dy, double metres_along)
    : dx_(dx), dy_(dy), surface_(cairo_image_surface_create(CAIRO_FORMAT_A8, dx, dy)), cr_(cairo_create(surface_)) {
    cairo_scale(cr_, dx / runway_metres, dy / metres_along);
    cairo_set_source_rgba(cr_, 1, 1, 1, 1);
}

paint_mask::~paint_mask() {
    cairo_destroy(cr_);
    cairo_surface_destroy(surface_);
}

void paint_mask::box(double x, double y, double dx, double dy) {
    cairo_rectangle(cr_, x, y, dx, dy);
    cairo_fill(cr_);
}

void paint_mask::boxes(double x, double y, double dx, double dy) {
    constexpr double middle = 0.5 * runway_metres;
    box(middle + x, y, dx, dy);
    box(middle - x - dx, y, dx, dy);
}

void paint_mask::shape(const std::vector<std::pair<double, double>>& corners) {
    for (const auto& [x, y] : corners) cairo_line_to(cr_, x, y);
    cairo_close_path(cr_);
    cairo_fill(cr_);
}

void paint_mask::line(const std::vector<std::pair<double, double>>& through, double width) {
    for (const auto& [x, y] : through) cairo_line_to(cr_, x, y);
    cairo_set_line_width(cr_, width);
    cairo_set_line_join(cr_, CAIRO_LINE_JOIN_MITER);
    cairo_stroke(cr_);
}

void paint_mask::ring(double x, double y, double radius, double width) {
    cairo_new_sub_path(cr_);
    cairo_arc(cr_, x, y, radius, 0, 2.0 * M_PI);
    cairo_set_line_width(cr_, width);
    cairo_stroke(cr_);
}

namespace {
constexpr double glyph_dx = 4.0, gap = 2.0;  // m

// Goes on along an ellipse from angle to angle, degrees counter-clockwise from the right.
void bow(cairo_t* cr, double x, double y, double rx, double ry, double from, double to) {
    cairo_save(cr);
    cairo_translate(cr, x, y);
    cairo_scale(cr, rx, ry);
    const double a = from * M_PI / 180.0, b = to * M_PI / 180.0;
    to > from ? cairo_arc(cr, 0, 0, 1, a, b) : cairo_arc_negative(cr, 0, 0, 1, a, b);
    cairo_restore(cr);
}

void strokes(cairo_t* cr, const std::vector<std::pair<double, double>>& through) {
    cairo_new_sub_path(cr);
    for (const auto& [x, y] : through) cairo_line_to(cr, x, y);
}

// The middle of each stroke, in a box of 4 by 9 m.
void outline(cairo_t* cr, char c) {
    switch (c) {
        case '0':
            cairo_new_sub_path(cr);
            bow(cr, 2, 6.7, 1.5, 1.8, 180, 0);
            bow(cr, 2, 2.3, 1.5, 1.8, 0, -180);
            return cairo_close_path(cr);
        case '1':
            return strokes(cr, {{0.9, 7.2}, {2.2, 8.5}, {2.2, 0}});
        case '2':
            cairo_new_sub_path(cr);
            bow(cr, 2, 6.5, 1.5, 2.0, 165, -25);
            cairo_line_to(cr, 0.6, 0.5);
            return cairo_line_to(cr, 4, 0.5);
        case '3':
            cairo_new_sub_path(cr);
            bow(cr, 2, 6.6, 1.4, 1.9, 160, -90);
            bow(cr, 2, 2.6, 1.5, 2.1, 90, -160);
            return;
        case '4':
            strokes(cr, {{3.0, 0}, {3.0, 8.4}, {0.6, 3.0}, {4.0, 3.0}});
            return;
        case '5':
            strokes(cr, {{3.7, 8.5}, {0.9, 8.5}, {0.7, 4.6}});
            bow(cr, 2, 2.9, 1.5, 2.4, 125, -160);
            return;
        case '6':
            cairo_new_sub_path(cr);
            bow(cr, 2, 2.7, 1.5, 2.2, 180, -180);
            cairo_new_sub_path(cr);
            cairo_move_to(cr, 0.5, 2.7);
            return cairo_curve_to(cr, 0.5, 5.5, 1.4, 8.2, 3.2, 8.5);
        case '7':
            return strokes(cr, {{0.2, 8.5}, {3.5, 8.5}, {1.5, 0}});
        case '8':
            cairo_new_sub_path(cr);
            bow(cr, 2, 6.6, 1.3, 1.9, 180, -180);
            cairo_new_sub_path(cr);
            bow(cr, 2, 2.6, 1.5, 2.1, 180, -180);
            return;
        case '9':
            cairo_new_sub_path(cr);
            bow(cr, 2, 6.3, 1.5, 2.2, 180, -180);
            cairo_new_sub_path(cr);
            cairo_move_to(cr, 3.5, 6.3);
            return cairo_curve_to(cr, 3.5, 3.5, 2.6, 0.8, 0.8, 0.5);
        case 'L':
            return strokes(cr, {{0.7, 9}, {0.7, 0.5}, {3.9, 0.5}});
        case 'C':
            cairo_new_sub_path(cr);
            bow(cr, 2.1, 6.6, 1.5, 1.9, 20, 180);
            bow(cr, 2.1, 2.4, 1.5, 1.9, 180, 340);
            return;
        case 'R':
            strokes(cr, {{0.6, 0}, {0.6, 8.5}, {1.9, 8.5}});
            bow(cr, 1.9, 6.45, 1.5, 2.05, 90, -90);
            cairo_line_to(cr, 0.6, 4.4);
            return strokes(cr, {{1.7, 4.4}, {3.5, 0}});
        default:
            return;
    }
}
}  // namespace

void paint_mask::glyph(char c, double x, double y) {
    constexpr double stroke = 1.0;  // m
    cairo_save(cr_);
    cairo_translate(cr_, x, y);
    outline(cr_, c);
    cairo_set_line_width(cr_, stroke);
    cairo_set_line_join(cr_, CAIRO_LINE_JOIN_MITER);
    cairo_stroke(cr_);
    cairo_restore(cr_);
}

void paint_mask::text(const char* characters, double x, double y) {
    const std::string all = characters;
    const double width = glyph_dx * static_cast<double>(all.size()) + gap * static_cast<double>(all.size() - 1);
    double at = x - 0.5 * width;
    for (const char c : all) {
        glyph(c, at, y);
        at += glyph_dx + gap;
    }
}

void paint_mask::soften(int texels) {
    cairo_surface_flush(surface_);
    const unsigned char* const from = cairo_image_surface_get_data(surface_);
    const int stride = cairo_image_surface_get_stride(surface_), half = texels / 2;
    cover_.resize(static_cast<size_t>(dx_) * dy_);
    std::vector<float> across(cover_.size());
    const auto mean = [half](int length, auto&& get, auto&& set) {
        for (int i = 0; i < length; ++i) {
            float sum = 0.0f;
            for (int k = -half; k <= half; ++k) sum += get(std::clamp(i + k, 0, length - 1));
            set(i, sum / static_cast<float>(2 * half + 1));
        }
    };
    for (int t = 0; t < dy_; ++t)
        mean(
            dx_, [&](int s) { return from[t * stride + s] / 255.0f; },
            [&](int s, float v) { across[static_cast<size_t>(t) * dx_ + s] = v; });
    for (int s = 0; s < dx_; ++s)
        mean(
            dy_, [&](int t) { return across[static_cast<size_t>(t) * dx_ + s]; },
            [&](int t, float v) { cover_[static_cast<size_t>(t) * dx_ + s] = v; });
}
