// The sheet that a plan is drawn on.
#include "sheet.h"

#include <algorithm>
#include <stdexcept>

sheet::sheet(const flat_point& south_west, const flat_point& north_east)
    : middle_{0.5 * (south_west.east + north_east.east), 0.5 * (south_west.north + north_east.north)} {
    constexpr double margin = 85.0,
                     smallest = 250.0;  // pixels for lettering; metres, so that a pad stays a pad
    const double extent =
        std::max({north_east.east - south_west.east, north_east.north - south_west.north, smallest});
    per_metre_ = (std::min(plan_frame.dx, plan_frame.dy) - 2.0 * margin) / extent;
    surface_ = cairo_image_surface_create(CAIRO_FORMAT_RGB24, sheet_dx, sheet_dy);
    cr_ = cairo_create(surface_);
    colour(paper);
    cairo_paint(cr_);
}

sheet::~sheet() {
    cairo_destroy(cr_);
    cairo_surface_destroy(surface_);
}

point sheet::at(const flat_point& p) const {
    return {plan_frame.x + 0.5 * plan_frame.dx + per_metre_ * (p.east - middle_.east),
            plan_frame.y + 0.5 * plan_frame.dy - per_metre_ * (p.north - middle_.north)};
}

void sheet::save(const std::string& png_path) {
    const cairo_status_t status = cairo_surface_write_to_png(surface_, png_path.c_str());
    if (status) throw std::runtime_error(png_path + ": " + cairo_status_to_string(status));
}

void sheet::colour(unsigned rgb, double alpha) {
    cairo_set_source_rgba(cr_, (rgb >> 16 & 255) / 255.0, (rgb >> 8 & 255) / 255.0, (rgb & 255) / 255.0,
                          alpha);
}

void sheet::typeface(double size, bool bold) {
    cairo_select_font_face(cr_, "B612", CAIRO_FONT_SLANT_NORMAL,
                           bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr_, size);
}

double sheet::text_width(const std::string& words, double size, bool bold) {
    typeface(size, bold);
    cairo_text_extents_t extents;
    cairo_text_extents(cr_, words.c_str(), &extents);
    return extents.x_advance;
}

void sheet::text(const point& p, double anchor, const std::string& words, double size, unsigned rgb,
                 bool bold, bool halo) {
    constexpr double capitals = 0.72;  // their height in the size
    const double x = p.x - anchor * text_width(words, size, bold);
    move({x, p.y + 0.5 * capitals * size});
    if (halo) {
        cairo_text_path(cr_, words.c_str());
        colour(ground, 0.9);
        cairo_set_line_width(cr_, 4.0);
        cairo_set_line_join(cr_, CAIRO_LINE_JOIN_ROUND);
        cairo_stroke_preserve(cr_);
        colour(rgb);
        cairo_fill(cr_);
    } else {
        colour(rgb);
        cairo_show_text(cr_, words.c_str());
    }
}
