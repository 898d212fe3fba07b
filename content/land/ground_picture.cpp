// Drawing on a ground that repeats.
#include "ground_picture.h"

#include <math.h>

#include <algorithm>

#include "wrap_noise.h"

double lot::from(double low, double high) { return low + (high - low) * noise::hash(drawn_++, 77, seed_); }
int lot::below(int count) { return std::min(static_cast<int>(from(0.0, count)), count - 1); }

ground_picture::ground_picture(double metres, int pixels)
    : metres_(metres), pixels_(pixels), canvas_(pixels, pixels) {
    // the canvas counts pixels upwards; here it counts metres
    cairo_scale(canvas_.pen(), pixels / metres, pixels / metres);
}

unsigned char* ground_picture::row(int y) {
    return cairo_image_surface_get_data(canvas_.surface()) +
           static_cast<long>(cairo_image_surface_get_stride(canvas_.surface())) * y;
}

void ground_picture::paint(const std::function<rgba(double x, double y)>& colour) {
    change([&colour](double x, double y, const rgba&) { return colour(x, y); });
}

void ground_picture::change(const std::function<rgba(double x, double y, const rgba& old)>& colour) {
    cairo_surface_flush(canvas_.surface());
    const auto byte = [](double v) {
        return static_cast<unsigned char>(lround(255.0 * std::clamp(v, 0.0, 1.0)));
    };
    const double step = metres_ / pixels_;
    for (int y = 0; y < pixels_; ++y) {
        unsigned char* p = row(y);
        for (int x = 0; x < pixels_; ++x, p += 4) {
            const rgba old = {p[2] / 255.0, p[1] / 255.0, p[0] / 255.0};
            const rgba c = colour((x + 0.5) * step, metres_ - (y + 0.5) * step, old);
            p[0] = byte(c.b);
            p[1] = byte(c.g);
            p[2] = byte(c.r);
            p[3] = 255;
        }
    }
    cairo_surface_mark_dirty(canvas_.surface());
}

// Once, and again beyond each edge that it crosses.
void ground_picture::everywhere(spot middle, double reach, const std::function<void(cairo_t*)>& draw) {
    const auto home = [this](double v) { return v - metres_ * floor(v / metres_); };
    const double x0 = home(middle.x), y0 = home(middle.y);
    cairo_t* const cr = canvas_.pen();
    for (double y = y0 - metres_; y < 1.5 * metres_ + y0; y += metres_)
        for (double x = x0 - metres_; x < 1.5 * metres_ + x0; x += metres_) {
            if (x + reach < 0 || x - reach > metres_ || y + reach < 0 || y - reach > metres_) continue;
            cairo_save(cr);
            cairo_translate(cr, x, y);
            draw(cr);
            cairo_restore(cr);
        }
}

void ground_picture::disc(spot at, double radius, const rgba& c) {
    everywhere(at, radius, [&](cairo_t* cr) {
        circle(cr, 0, 0, radius);
        set_colour(cr, c);
        cairo_fill(cr);
    });
}

void ground_picture::glow(spot at, double radius, const rgba& c, bool adds) {
    everywhere(at, radius, [&](cairo_t* cr) {
        cairo_pattern_t* const fade = cairo_pattern_create_radial(0, 0, 0, 0, 0, radius);
        cairo_pattern_add_color_stop_rgba(fade, 0.0, c.r, c.g, c.b, c.a);
        cairo_pattern_add_color_stop_rgba(fade, 0.35, c.r, c.g, c.b, 0.4 * c.a);
        cairo_pattern_add_color_stop_rgba(fade, 1.0, c.r, c.g, c.b, 0.0);
        if (adds) cairo_set_operator(cr, CAIRO_OPERATOR_ADD);
        cairo_set_source(cr, fade);
        circle(cr, 0, 0, radius);
        cairo_fill(cr);
        cairo_set_operator(cr, CAIRO_OPERATOR_OVER);
        cairo_pattern_destroy(fade);
    });
}

void ground_picture::box(spot middle, double dx, double dy, double turn, const rgba& c) {
    everywhere(middle, 0.5 * hypot(dx, dy), [&](cairo_t* cr) {
        cairo_rotate(cr, turn * M_PI / 180.0);
        cairo_rectangle(cr, -0.5 * dx, -0.5 * dy, dx, dy);
        set_colour(cr, c);
        cairo_fill(cr);
    });
}

static double reach_of(const std::vector<spot>& from) {
    double reach = 0.0;
    for (const spot& p : from) reach = std::max(reach, hypot(p.x - from[0].x, p.y - from[0].y));
    return reach;
}

void ground_picture::shape(const std::vector<spot>& corners, const rgba& c) {
    everywhere(corners[0], reach_of(corners), [&](cairo_t* cr) {
        for (const spot& p : corners) cairo_line_to(cr, p.x - corners[0].x, p.y - corners[0].y);
        cairo_close_path(cr);
        set_colour(cr, c);
        cairo_fill(cr);
    });
}

void ground_picture::line(const std::vector<spot>& through, double width, const rgba& c) {
    everywhere(through[0], reach_of(through) + width, [&](cairo_t* cr) {
        for (const spot& p : through) cairo_line_to(cr, p.x - through[0].x, p.y - through[0].y);
        cairo_set_line_width(cr, width);
        cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
        set_colour(cr, c);
        cairo_stroke(cr);
    });
}

void ground_picture::crown(spot at, double radius, const rgba& c) {
    disc({at.x + 0.55 * radius, at.y + 0.45 * radius}, radius, {0.04, 0.05, 0.03, 0.45 * c.a});
    disc(at, radius, c);
    disc({at.x - 0.25 * radius, at.y - 0.25 * radius}, 0.55 * radius, mix(c, hex(0xd8dca0, c.a), 0.18));
}

namespace {
using field = std::vector<double>;

// Mean over 2 * half + 1 pixels along one axis, around the edges.
field blurred(const field& in, int side, int half, bool along_rows) {
    field out(in.size());
    const auto at = [&](int line, int k) -> size_t {
        const int wrapped = (k % side + side) % side;
        return along_rows ? static_cast<size_t>(line) * side + wrapped
                          : static_cast<size_t>(wrapped) * side + line;
    };
    for (int line = 0; line < side; ++line) {
        double sum = 0.0;
        for (int k = -half; k <= half; ++k) sum += in[at(line, k)];
        for (int k = 0; k < side; ++k) {
            out[at(line, k)] = sum / (2 * half + 1);
            sum += in[at(line, k + half + 1)] - in[at(line, k - half)];
        }
    }
    return out;
}
}  // namespace

void ground_picture::even_out(double across, double share) {
    cairo_surface_flush(canvas_.surface());
    const int half = std::clamp(static_cast<int>(0.25 * across / metres_ * pixels_), 1, pixels_ / 2 - 1);
    for (int channel = 0; channel < 3; ++channel) {
        field v(static_cast<size_t>(pixels_) * pixels_);
        double mean = 0.0;
        for (int y = 0; y < pixels_; ++y)
            for (int x = 0; x < pixels_; ++x)
                mean += v[static_cast<size_t>(y) * pixels_ + x] = row(y)[4 * x + channel];
        mean /= static_cast<double>(v.size());
        field wide = v;
        for (int pass = 0; pass < 2; ++pass)
            wide = blurred(blurred(wide, pixels_, half, true), pixels_, half, false);
        for (int y = 0; y < pixels_; ++y)
            for (int x = 0; x < pixels_; ++x) {
                const size_t i = static_cast<size_t>(y) * pixels_ + x;
                row(y)[4 * x + channel] = static_cast<unsigned char>(
                    lround(std::clamp(v[i] - share * (wide[i] - mean), 0.0, 255.0)));
            }
    }
    cairo_surface_mark_dirty(canvas_.surface());
}

void ground_picture::save(const std::string& path) { canvas_.save(path, false); }

namespace {
// Gradient noise (Perlin, SIGGRAPH 1985 and 2002) whose lattice repeats after `period` cells; about 0 to 1.
double gradient_noise(double x, double y, int period, unsigned seed) {
    const auto ease = [](double f) { return f * f * f * (f * (6.0 * f - 15.0) + 10.0); };
    const int ix = static_cast<int>(floor(x)), iy = static_cast<int>(floor(y));
    const auto corner = [&](int dx, int dy) {
        static const struct directions {
            double x[256], y[256];
            directions() {
                for (int i = 0; i < 256; ++i) x[i] = cos(i * M_PI / 128.0), y[i] = sin(i * M_PI / 128.0);
            }
        } way;
        const int cx = ((ix + dx) % period + period) % period, cy = ((iy + dy) % period + period) % period;
        const int turn = static_cast<int>(noise::hash(cx, cy, seed) * 255.999);
        return way.x[turn] * (x - ix - dx) + way.y[turn] * (y - iy - dy);
    };
    const double fx = ease(x - ix), fy = ease(y - iy);
    const double low = corner(0, 0) * (1.0 - fx) + corner(1, 0) * fx;
    const double high = corner(0, 1) * (1.0 - fx) + corner(1, 1) * fx;
    return 0.5 + 0.75 * (low * (1.0 - fy) + high * fy);
}

// Octaves of half the size and half the weight; `form` bends each.
template <class Form>
double octaves_of(double s, double t, int cells, int octaves, unsigned seed, Form form) {
    double sum = 0.0, weight = 0.5, total = 0.0;
    for (int i = 0; i < octaves; ++i, weight *= 0.5, cells *= 2) {
        // shifted, so that the octaves' lattices do not lie upon each other
        const double at = 0.37 * i;
        sum += weight * form(gradient_noise(s * cells + at, t * cells + 1.7 * at, cells,
                                            seed + static_cast<unsigned>(i)));
        total += weight;
    }
    return sum / total;
}
}  // namespace

double ground_picture::noise(double x, double y, double size, int octaves, unsigned seed) const {
    const int cells = std::max(1, static_cast<int>(lround(metres_ / size)));
    return octaves_of(x / metres_, y / metres_, cells, octaves, seed, [](double v) { return v; });
}

double ground_picture::ridges(double x, double y, double size, int octaves, unsigned seed) const {
    const int cells = std::max(1, static_cast<int>(lround(metres_ / size)));
    return octaves_of(x / metres_, y / metres_, cells, octaves, seed,
                      [](double v) { return std::max(0.0, 1.0 - fabs(2.6 * (v - 0.5))); });
}

rgba ramp(const rgba& dark, const rgba& middle, const rgba& light, double v) {
    return v < 0.5 ? mix(dark, middle, 2.0 * v) : mix(middle, light, 2.0 * v - 1.0);
}
double spread(double v, double by) { return std::clamp(0.5 + by * (v - 0.5), 0.0, 1.0); }
rgba shade(const rgba& c, double by) { return {c.r * by, c.g * by, c.b * by, c.a}; }
