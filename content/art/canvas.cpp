// The canvas and its strokes.
#include "canvas.h"

#include <math.h>
#include <png.h>
#include <stdio.h>

#include <algorithm>
#include <stdexcept>

namespace {
constexpr double half_turn = M_PI;
// File gamma of 1 / 2.2, in PNG's unit.
constexpr int png_gamma = 45455;

// Distance from the edge of a plate, negative inside.
double edge_distance(const plate& p, double x, double y) {
    const double qx = fabs(x - (p.x + 0.5 * p.dx)) - 0.5 * p.dx + p.radius;
    const double qy = fabs(y - (p.y + 0.5 * p.dy)) - 0.5 * p.dy + p.radius;
    return hypot(std::max(qx, 0.0), std::max(qy, 0.0)) + std::min(std::max(qx, qy), 0.0) - p.radius;
}

cairo_pattern_t* upright(double from, const rgba& foot, double to, const rgba& head) {
    cairo_pattern_t* g = cairo_pattern_create_linear(0.0, from, 0.0, to);
    cairo_pattern_add_color_stop_rgba(g, 0.0, foot.r, foot.g, foot.b, foot.a);
    cairo_pattern_add_color_stop_rgba(g, 1.0, head.r, head.g, head.b, head.a);
    return g;
}

void stroke_inside(cairo_t* cr, const plate& p, cairo_pattern_t* ink) {
    path(cr, p.inset(0.5));
    cairo_set_source(cr, ink);
    cairo_set_line_width(cr, 1.0);
    cairo_stroke(cr);
    cairo_pattern_destroy(ink);
}
}  // namespace

rgba mix(const rgba& a, const rgba& b, double part_of_b) {
    const double f = std::clamp(part_of_b, 0.0, 1.0);
    return {a.r + (b.r - a.r) * f, a.g + (b.g - a.g) * f, a.b + (b.b - a.b) * f, a.a + (b.a - a.a) * f};
}

plate plate::inset(double by) const {
    return {x + by, y + by, dx - 2.0 * by, dy - 2.0 * by, std::max(radius - by, 0.0)};
}

canvas::canvas(int dx, int dy) : size_x(dx), size_y(dy) {
    picture = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, dx, dy);
    cr = cairo_create(picture);
    cairo_translate(cr, 0.0, dy);
    cairo_scale(cr, 1.0, -1.0);
}

canvas::~canvas() {
    cairo_destroy(cr);
    cairo_surface_destroy(picture);
}

cairo_t* canvas::open(const std::string& name, const piece& at) {
    if (at.dx <= 0 || at.dy <= 0 || at.s < 0 || at.t < 0 || at.s + at.dx > size_x || at.t + at.dy > size_y)
        throw std::runtime_error(name + " leaves the image");
    for (const taken& other : pieces) {
        const piece& o = other.at;
        if (at.s < o.s + o.dx && o.s < at.s + at.dx && at.t < o.t + o.dy && o.t < at.t + at.dy)
            throw std::runtime_error(name + " overlaps " + other.name);
    }
    pieces.push_back({name, at});
    current = at;
    cairo_save(cr);
    cairo_translate(cr, at.s, at.t);
    cairo_rectangle(cr, 0.0, 0.0, at.dx, at.dy);
    cairo_clip(cr);
    return cr;
}

void canvas::close() { cairo_restore(cr); }

unsigned char* canvas::pixel(int s, int t) {
    return cairo_image_surface_get_data(picture) +
           static_cast<long>(size_y - 1 - t) * cairo_image_surface_get_stride(picture) + 4L * s;
}

void canvas::shadow(const plate& of, double reach, double strength) {
    cairo_surface_flush(picture);
    for (int t = 0; t < current.dy; ++t)
        for (int s = 0; s < current.dx; ++s) {
            // half as dark at the plate's edge, smooth to both sides
            const double away = std::clamp(0.5 + 0.5 * edge_distance(of, s + 0.5, t + 0.5) / reach, 0.0, 1.0);
            const double dark = strength * (1.0 - away * away * (3.0 - 2.0 * away));
            unsigned char* p = pixel(current.s + s, current.t + t);
            for (int i = 0; i < 3; ++i) p[i] = static_cast<unsigned char>(lround(p[i] * (1.0 - dark)));
            p[3] = static_cast<unsigned char>(lround(p[3] + (255 - p[3]) * dark));
        }
    cairo_surface_mark_dirty(picture);
}

void canvas::white_pixel(int s, int t, unsigned char alpha) {
    cairo_surface_flush(picture);
    unsigned char* p = pixel(current.s + s, current.t + t);
    for (int i = 0; i < 4; ++i) p[i] = alpha;
    cairo_surface_mark_dirty(picture);
}

// A fault is told by the file: the library would end the program.
static void write_bytes(png_structp png, png_bytep bytes, size_t count) {
    FILE* const out = static_cast<FILE*>(png_get_io_ptr(png));
    fwrite(bytes, 1, count, out);
}

void canvas::save(const std::string& file_path, bool with_alpha) {
    cairo_surface_flush(picture);
    FILE* out = fopen(file_path.c_str(), "wb");
    if (!out) throw std::runtime_error("cannot write " + file_path);
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(png, out, write_bytes, nullptr);
    png_set_IHDR(png, info, size_x, size_y, 8, with_alpha ? PNG_COLOR_TYPE_RGBA : PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_gAMA_fixed(png, info, png_gamma);
    png_write_info(png, info);
    std::vector<unsigned char> row;
    for (int t = size_y - 1; t >= 0; --t) {
        row.clear();
        for (int s = 0; s < size_x; ++s) {
            // cairo keeps blue, green, red, alpha with the alpha multiplied in
            const unsigned char* p = pixel(s, t);
            const int a = p[3];
            for (int i = 2; i >= 0; --i)
                row.push_back(static_cast<unsigned char>(a ? std::min((p[i] * 255 + a / 2) / a, 255) : 0));
            if (with_alpha) row.push_back(p[3]);
        }
        png_write_row(png, row.data());
    }
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    const bool failed = ferror(out) != 0;
    if (fclose(out) == 0 && !failed) return;
    remove(file_path.c_str());
    throw std::runtime_error("cannot write " + file_path);
}

void set_colour(cairo_t* cr, const rgba& c) { cairo_set_source_rgba(cr, c.r, c.g, c.b, c.a); }

void path(cairo_t* cr, const plate& p) {
    const double r = std::min({p.radius, 0.5 * p.dx, 0.5 * p.dy});
    cairo_new_path(cr);
    if (r <= 0.0) return cairo_rectangle(cr, p.x, p.y, p.dx, p.dy);
    cairo_arc(cr, p.x + p.dx - r, p.y + r, r, -0.5 * half_turn, 0.0);
    cairo_arc(cr, p.x + p.dx - r, p.y + p.dy - r, r, 0.0, 0.5 * half_turn);
    cairo_arc(cr, p.x + r, p.y + p.dy - r, r, 0.5 * half_turn, half_turn);
    cairo_arc(cr, p.x + r, p.y + r, r, half_turn, 1.5 * half_turn);
    cairo_close_path(cr);
}

void circle(cairo_t* cr, double x, double y, double radius) {
    cairo_new_sub_path(cr);
    cairo_arc(cr, x, y, radius, 0.0, 2.0 * half_turn);
    cairo_close_path(cr);
}

void polygon(cairo_t* cr, const std::vector<std::pair<double, double>>& corners) {
    cairo_new_sub_path(cr);
    for (const auto& [x, y] : corners) cairo_line_to(cr, x, y);
    cairo_close_path(cr);
}

void fill(cairo_t* cr, const plate& p, const rgba& c) {
    path(cr, p);
    set_colour(cr, c);
    cairo_fill(cr);
}

void fill_gradient(cairo_t* cr, const plate& p, const rgba& foot, const rgba& head) {
    fill_gradient(cr, p, p.y, foot, p.y + p.dy, head);
}

void fill_gradient(cairo_t* cr, const plate& p, double from, const rgba& foot, double to, const rgba& head) {
    cairo_pattern_t* g = upright(from, foot, to, head);
    path(cr, p);
    cairo_set_source(cr, g);
    cairo_fill(cr);
    cairo_pattern_destroy(g);
}

void rim(cairo_t* cr, const plate& p, const rgba& c) {
    stroke_inside(cr, p, cairo_pattern_create_rgba(c.r, c.g, c.b, c.a));
}

void rim_at_head(cairo_t* cr, const plate& p, const rgba& c, double depth) {
    const rgba none = {c.r, c.g, c.b, 0.0};
    stroke_inside(cr, p, upright(p.y + p.dy - depth, none, p.y + p.dy, c));
}

void rim_at_foot(cairo_t* cr, const plate& p, const rgba& c, double depth) {
    const rgba none = {c.r, c.g, c.b, 0.0};
    stroke_inside(cr, p, upright(p.y, c, p.y + depth, none));
}

void outlined(cairo_t* cr, const rgba& inside, const rgba& line, double width) {
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    set_colour(cr, line);
    cairo_set_line_width(cr, 2.0 * width);
    cairo_stroke_preserve(cr);
    set_colour(cr, inside);
    cairo_fill(cr);
}

void outlined_line(cairo_t* cr, const rgba& c, double width, const rgba& edge) {
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    set_colour(cr, edge);
    cairo_set_line_width(cr, width + 2.0);
    cairo_stroke_preserve(cr);
    set_colour(cr, c);
    cairo_set_line_width(cr, width);
    cairo_stroke(cr);
}
