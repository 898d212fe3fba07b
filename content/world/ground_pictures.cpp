// Grounds by noise, with strokes and stones over them.
#include "ground_pictures.h"

#include <cairo.h>
#include <math.h>

#include <algorithm>
#include <functional>

#include "canvas.h"
#include "wrap_noise.h"

namespace {
constexpr int side = 512;  // pixels

// Each pixel from its place in the unit square.
void paint(canvas& c, int dx, int dy, const std::function<rgba(double s, double t)>& colour) {
    cairo_surface_flush(c.surface());
    unsigned char* const first = cairo_image_surface_get_data(c.surface());
    const long stride = cairo_image_surface_get_stride(c.surface());
    const auto byte = [](double v) {
        return static_cast<unsigned char>(lround(255.0 * std::clamp(v, 0.0, 1.0)));
    };
    for (int y = 0; y < dy; ++y)
        for (int x = 0; x < dx; ++x) {
            const rgba at = colour((x + 0.5) / dx, 1.0 - (y + 0.5) / dy);
            unsigned char* const p = first + y * stride + 4L * x;
            p[0] = byte(at.b);
            p[1] = byte(at.g);
            p[2] = byte(at.r);
            p[3] = 255;
        }
    cairo_surface_mark_dirty(c.surface());
}

// Drawn again beyond each edge, so that what leaves the picture comes in on the other side.
void scatter(canvas& c, int count, unsigned seed,
             const std::function<void(cairo_t*, double x, double y, int n)>& draw) {
    for (int n = 0; n < count; ++n) {
        const double x = side * noise::hash(n, 0, seed), y = side * noise::hash(n, 1, seed);
        constexpr double reach = 16.0;  // of the largest thing
        for (const double ox : {-side, 0, side})
            for (const double oy : {-side, 0, side})
                if (x + ox > -reach && x + ox < side + reach && y + oy > -reach && y + oy < side + reach)
                    draw(c.pen(), x + ox, y + oy, n);
    }
}

rgba ramp(const rgba& dark, const rgba& middle, const rgba& light, double v) {
    return v < 0.5 ? mix(dark, middle, 2.0 * v) : mix(middle, light, 2.0 * v - 1.0);
}

// More contrast around the middle, where octaves crowd.
double spread(double v, double by) { return std::clamp(0.5 + by * (v - 0.5), 0.0, 1.0); }

void grass(canvas& c) {
    paint(c, side, side, [](double s, double t) {
        const double broad = spread(noise::wrapped_fractal(s, t, 12, 6, 101), 0.8);
        const double dry = noise::smooth(0.4, 0.8, noise::wrapped_fractal(s, t, 13, 5, 102));
        const double fine = noise::wrapped_value(s * 256, t * 256, 256, 103) - 0.5;
        const rgba green = ramp(hex(0x3f5128), hex(0x566a34), hex(0x6f7d42), broad + 0.35 * fine);
        return mix(green, hex(0x8b8450), 0.3 * dry);
    });
    scatter(c, 5200, 104, [](cairo_t* cr, double x, double y, int n) {
        const double turn = 2.0 * M_PI * noise::hash(n, 2, 104), length = 2.0 + 3.0 * noise::hash(n, 3, 104);
        cairo_move_to(cr, x, y);
        cairo_line_to(cr, x + length * cos(turn), y + length * sin(turn));
        cairo_set_line_width(cr, 0.9);
        set_colour(cr, mix(hex(0x33441f, 0.5), hex(0x8f9a58, 0.5), noise::hash(n, 4, 104)));
        cairo_stroke(cr);
    });
}

// Bushes from above: a dark shadow to the south-east, a crown, a light spot.
void bush(cairo_t* cr, double x, double y, int n, unsigned seed) {
    const double r = 2.5 + 5.5 * noise::hash(n, 2, seed) * noise::hash(n, 3, seed);
    const rgba crown = mix(hex(0x34431f), hex(0x5c6833), noise::hash(n, 4, seed));
    circle(cr, x + 0.35 * r, y - 0.35 * r, r);
    set_colour(cr, hex(0x1f2614, 0.55));
    cairo_fill(cr);
    circle(cr, x, y, r);
    set_colour(cr, crown);
    cairo_fill(cr);
    circle(cr, x - 0.25 * r, y + 0.3 * r, 0.55 * r);
    set_colour(cr, mix(crown, hex(0x8a9455), 0.4));
    cairo_fill(cr);
}

void scrub(canvas& c) {
    paint(c, side, side, [](double s, double t) {
        const double broad = spread(noise::wrapped_fractal(s, t, 16, 5, 111), 0.8);
        const double fine = noise::wrapped_value(s * 256, t * 256, 256, 112) - 0.5;
        return ramp(hex(0x474427), hex(0x655c38), hex(0x857650), broad + 0.3 * fine);
    });
    scatter(c, 1500, 113, [](cairo_t* cr, double x, double y, int n) { bush(cr, x, y, n, 113); });
}

void stones(canvas& c, int count, double largest, const rgba& dark, const rgba& light, unsigned seed) {
    scatter(c, count, seed, [&](cairo_t* cr, double x, double y, int n) {
        const double r = 0.8 + largest * pow(noise::hash(n, 2, seed), 3.0);
        circle(cr, x + 0.4 * r, y - 0.4 * r, r);
        set_colour(cr, {0, 0, 0, 0.35});
        cairo_fill(cr);
        circle(cr, x, y, r);
        set_colour(cr, mix(dark, light, noise::hash(n, 4, seed)));
        cairo_fill(cr);
    });
}

// Bent layers, cracks where the noise changes its sign.
void rock(canvas& c) {
    paint(c, side, side, [](double s, double t) {
        const double bend = noise::wrapped_fractal(s, t, 4, 5, 121);
        const double layers = 0.5 + 0.5 * sin(2.0 * M_PI * (9.0 * t + 3.0 * bend));
        const double broad = spread(noise::wrapped_fractal(s, t, 6, 6, 122), 1.6);
        const double crack = fabs(noise::wrapped_fractal(s, t, 10, 4, 123) - 0.5);
        const double dark = 0.35 * (1.0 - noise::smooth(0.0, 0.02, crack));
        const rgba stone = ramp(hex(0x56524c), hex(0x7b756a), hex(0xa29b8c), 0.72 * broad + 0.28 * layers);
        return mix(stone, hex(0x2f2c28), dark);
    });
    stones(c, 900, 4.0, hex(0x6b665d), hex(0xb0a999), 124);
}

void sand(canvas& c) {
    paint(c, side, side, [](double s, double t) {
        const double broad = spread(noise::wrapped_fractal(s, t, 8, 6, 131), 1.1);
        const double wave =
            0.5 + 0.5 * sin(2.0 * M_PI * (24.0 * t + 2.5 * noise::wrapped_fractal(s, t, 4, 4, 132)));
        const double fine = noise::wrapped_value(s * 256, t * 256, 256, 133) - 0.5;
        return ramp(hex(0xa8946a), hex(0xbfae84), hex(0xd6c8a2), 0.85 * broad + 0.15 * wave + 0.2 * fine);
    });
    stones(c, 350, 2.0, hex(0x857a63), hex(0xcfc6b0), 134);
}

void mars(canvas& c) {
    paint(c, side, side, [](double s, double t) {
        const double broad = spread(noise::wrapped_fractal(s, t, 17, 5, 141), 0.7);
        const double dust = noise::smooth(0.4, 0.8, noise::wrapped_fractal(s, t, 14, 5, 142));
        const double fine = noise::wrapped_value(s * 256, t * 256, 256, 143) - 0.5;
        const rgba soil = ramp(hex(0x6b3a24), hex(0x935436), hex(0xb4714a), broad + 0.3 * fine);
        return mix(soil, hex(0xc8936a), 0.25 * dust);
    });
    stones(c, 1600, 5.0, hex(0x553022), hex(0xa36b4c), 144);
}
}  // namespace

void draw_ground(ground kind, const std::string& path) {
    canvas c(side, side);
    switch (kind) {
        case ground::grass:
            grass(c);
            break;
        case ground::scrub:
            scrub(c);
            break;
        case ground::rock:
            rock(c);
            break;
        case ground::sand:
            sand(c);
            break;
        case ground::mars:
            mars(c);
            break;
    }
    c.save(path, false);
}

void draw_road(const std::string& path) {
    constexpr int across = 64, along = 256;
    canvas c(across, along);
    paint(c, across, along, [](double s, double t) {
        const double grain = noise::wrapped_value(s * 64, t * 64, 64, 161) - 0.5;
        const double middle = fabs(s - 0.5);
        if (middle > 0.44) return mix(hex(0x7d7255), hex(0x9a8f70), 0.5 + grain);  // shoulders
        const bool line = (middle < 0.02 && t < 0.5) || (middle > 0.385 && middle < 0.405);
        return line ? hex(0xd8d4c4) : mix(hex(0x4b4b4a), hex(0x636261), 0.5 + grain);
    });
    c.save(path, false);
}
