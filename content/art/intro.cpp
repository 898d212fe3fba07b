// The start-up picture: dawn over mountains, a light aircraft on its way to the sun, the program's name. The
// lower left and the foot stay dark, for the lines and the bar of the start.
#include <math.h>

#include <algorithm>
#include <vector>

#include "noise.h"
#include "pictures.h"
#include "typeface.h"

namespace {
constexpr int size_x = 1024, size_y = 768;
constexpr double sun_x = 716.0, sun_y = 372.0, horizon = 316.0;

struct light {
    double r, g, b;
};
light operator+(const light& a, const light& b) { return {a.r + b.r, a.g + b.g, a.b + b.b}; }
light operator*(const light& a, double f) { return {a.r * f, a.g * f, a.b * f}; }
light blend(const light& a, const light& b, double part_of_b) {
    const double f = std::clamp(part_of_b, 0.0, 1.0);
    return a * (1.0 - f) + b * f;
}
double smooth(double from, double to, double x) {
    const double f = std::clamp((x - from) / (to - from), 0.0, 1.0);
    return f * f * (3.0 - 2.0 * f);
}
double from_sun(double x, double y) { return hypot(x - sun_x, y - sun_y); }

// -- sky

light clear_sky(double x, double y) {
    struct stop {
        double height;
        light colour;
    };
    static const stop stops[] = {{0.00, {1.00, 0.80, 0.55}}, {0.08, {0.98, 0.66, 0.45}},
                                 {0.20, {0.86, 0.50, 0.48}}, {0.36, {0.55, 0.41, 0.56}},
                                 {0.60, {0.24, 0.30, 0.52}}, {1.00, {0.06, 0.11, 0.26}}};
    const double height = (y - horizon) / (size_y - horizon);
    light c = stops[0].colour;
    for (int i = 0; i + 1 < 6; ++i)
        if (height >= stops[i].height)
            c = blend(stops[i].colour, stops[i + 1].colour,
                      (height - stops[i].height) / (stops[i + 1].height - stops[i].height));
    // colder away from the sun, a wide and a narrow glow around it
    c = blend(c, c * 0.72 + light{0.02, 0.04, 0.09}, smooth(150.0, 800.0, fabs(x - sun_x)));
    const double d = from_sun(x, y);
    return c + light{0.55, 0.30, 0.10} * exp(-d / 150.0) + light{0.9, 0.65, 0.32} * exp(-d / 38.0);
}

light stars(int x, int y) {
    const double dark = smooth(540.0, 768.0, y) * smooth(100.0, 520.0, from_sun(x, y));
    const double draw = noise::hash(x, y, 77);
    if (draw < 0.9988) return {0.0, 0.0, 0.0};
    return light{0.85, 0.9, 1.0} * (dark * (0.25 + 0.6 * noise::hash(x, y, 78)));
}

// A flat layer of cloud in perspective, lit from below by the sun: how much of it, and its colour.
void clouds(double x, double y, light* c) {
    const double height = (y - horizon) / (size_y - horizon);
    if (height < 0.015) return;
    const double far = 1.0 / (height + 0.11);
    const double u = (x - sun_x) * far / 620.0, v = far * 1.9;
    const double bend = noise::fractal(u * 0.9, v * 0.9, 3, 31) * 1.6;
    const double n = noise::fractal(u * 1.1 + bend, v * 1.5 - bend * 0.6, 6, 11);
    const double thick =
        smooth(0.50, 0.74, n) * smooth(0.015, 0.10, height) * (1.0 - smooth(0.62, 0.98, height));
    const double edge_lit = 1.0 - smooth(0.56, 0.80, n);
    const double near_sun = exp(-from_sun(x, y) / 260.0);
    const light shade = blend({0.40, 0.30, 0.44}, {0.66, 0.38, 0.36}, near_sun * 1.4);
    const light lit = blend({0.92, 0.60, 0.58}, {1.15, 0.82, 0.52}, near_sun * 1.8);
    *c = blend(*c, blend(shade, lit, 0.25 + 0.75 * edge_lit), 0.80 * thick);
}

light sky(int x, int y) {
    light c = clear_sky(x, y) + stars(x, y);
    clouds(x, y, &c);
    const double d = from_sun(x, y);
    return blend(c, {1.25, 1.12, 0.86}, 1.0 - smooth(15.0, 18.0, d));
}

// -- land

struct ridge {
    double foot, height;  // of its crest line: least, and range above
    double scale;         // of its forms, pixels
    double haze;          // how much air lies before it
    unsigned seed;
};
constexpr ridge ridges[] = {
    {300.0, 92.0, 210.0, 0.84, 101},  {268.0, 104.0, 270.0, 0.68, 214}, {226.0, 118.0, 330.0, 0.50, 307},
    {176.0, 112.0, 400.0, 0.30, 402}, {118.0, 92.0, 470.0, 0.13, 503},
};

double crest(const ridge& r, double x) {
    const double broad = smooth(0.25, 0.75, noise::fractal(x / r.scale, 0.5, 2, r.seed));
    const double peaks = noise::ridged(x / (0.62 * r.scale), 3.5, 7, r.seed + 20);
    return r.foot + r.height * (0.50 * broad + (0.35 + 0.30 * broad) * peaks);
}

// The light of the air between: warm towards the sun, violet away from it.
light air(double x, double y) {
    const double sunward = exp(-fabs(x - sun_x) / 240.0);
    return blend({0.47, 0.39, 0.55}, {1.04, 0.66, 0.44}, sunward) * (0.74 + 0.26 * smooth(60.0, 330.0, y));
}

light mountain(const ridge& r, double x, double y, double top) {
    const double below = top - y;
    // Spurs run down from the peaks: a flank is lit by the slope of the crest above it, taken the farther
    // aside the lower the place is, and from a wider stretch.
    const double wander = below * 1.1 * (noise::fractal(x / 46.0, y / 30.0, 3, r.seed + 3) - 0.5);
    const double reach = 4.0 + 0.16 * below;
    const double slope = (crest(r, x + wander + reach) - crest(r, x + wander - reach)) / (2.0 * reach);
    const double sunward = std::clamp((x - sun_x) / 160.0, -1.0, 1.0);
    const double rough = noise::fractal(x / 9.0, y / 13.0, 3, r.seed + 40) - 0.5;
    const double lit = smooth(-0.55, 0.75, slope * sunward + 0.35 * rough);
    const light c0 = blend({0.050, 0.064, 0.125}, {0.255, 0.185, 0.225}, lit);
    const double snow = smooth(0.40, 0.75, (y - r.foot) / r.height + 0.5 * rough) * smooth(0.2, 0.5, r.haze);
    light c = blend(c0, blend({0.22, 0.24, 0.40}, {1.05, 0.74, 0.62}, lit), 0.75 * snow);
    // the crest against the light
    c = c + light{0.70, 0.42, 0.22} * (exp(-below / 1.8) * exp(-fabs(x - sun_x) / 190.0) * 0.55);
    c = blend(c, air(x, y), r.haze);
    // mist lies in the valley at its foot and wells up in places
    const double swell = noise::fractal(x / 210.0, 0.3 * y / 34.0, 4, r.seed + 60);
    const double mist = smooth(0.0, 1.0, (r.foot + 0.30 * r.height + 60.0 * (swell - 0.5) - y) / 74.0);
    return blend(c, air(x, y) * 0.97 + light{0.02, 0.03, 0.05},
                 mist * (0.50 + 0.45 * smooth(0.1, 0.7, r.haze)));
}

// Firs along a dark hill: the height of the nearest tree's outline at x.
double firs(double x, double ground_least, double ground_range, double tree, double spacing, unsigned seed) {
    double top = 0.0;
    const int middle = static_cast<int>(floor(x / spacing));
    for (int i = middle - 3; i <= middle + 3; ++i) {
        const double at = spacing * (i + 0.8 * noise::hash(i, 1, seed));
        const double ground = ground_least + ground_range * noise::fractal(at / 260.0, 7.5, 4, seed + 5);
        top = std::max(top, ground);
        const double tall = tree * (0.45 + 0.75 * noise::hash(i, 2, seed));
        const double half = 0.19 * tall;
        const double away = fabs(x - at) / half;
        if (away >= 1.0) continue;
        const double boughs = 0.07 * tall * fabs(sin(away * 9.0 + i));
        top = std::max(top, ground + tall * (1.0 - away) - boughs);
    }
    return top;
}

light land_or_sky(int x, int y) {
    light c = sky(x, std::max(y, static_cast<int>(horizon)));
    for (const ridge& r : ridges) {
        const double top = crest(r, x);
        const double inside = std::clamp(top - y + 0.5, 0.0, 1.0);
        if (inside > 0.0) c = blend(c, mountain(r, x, y, top), inside);
    }
    struct wood {
        double least, range, tree, spacing;
        light colour;
        unsigned seed;
    };
    static const wood woods[] = {{62.0, 74.0, 26.0, 5.0, {0.055, 0.060, 0.085}, 601},
                                 {18.0, 74.0, 46.0, 9.0, {0.022, 0.028, 0.042}, 701}};
    for (const wood& w : woods) {
        const double top = firs(x, w.least, w.range, w.tree, w.spacing, w.seed);
        const double inside = std::clamp(top - y + 0.5, 0.0, 1.0);
        const light floor_mist = blend(w.colour, air(x, y) * 0.5,
                                       0.30 * exp(-fabs(y - w.least) / 30.0) * (w.seed < 700 ? 1.0 : 0.0));
        c = blend(c, floor_mist, inside);
    }
    return c;
}

void paint_scene(canvas& c) {
    cairo_surface_flush(c.surface());
    unsigned char* data = cairo_image_surface_get_data(c.surface());
    const int stride = cairo_image_surface_get_stride(c.surface());
    for (int y = 0; y < size_y; ++y)
        for (int x = 0; x < size_x; ++x) {
            const light l = land_or_sky(x, y);
            // a soft shoulder for the bright sun, and grain against banding
            const auto shown = [&](double v, unsigned i) {
                const double soft = v < 0.8 ? v : 0.8 + 0.2 * (1.0 - exp(-(v - 0.8) / 0.2));
                return static_cast<unsigned char>(
                    std::clamp(lround(255.0 * soft + noise::hash(x, y, 900 + i) - 0.5), 0L, 255L));
            };
            unsigned char* p = data + static_cast<long>(size_y - 1 - y) * stride + 4L * x;
            p[0] = shown(l.b, 0);
            p[1] = shown(l.g, 1);
            p[2] = shown(l.r, 2);
            p[3] = 255;
        }
    cairo_surface_mark_dirty(c.surface());
}

// -- aircraft: a solid in metres, x to its right, y up, z forward; seen from its right

struct vec {
    double x, y, z;
};
vec operator-(const vec& a, const vec& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
double dot(const vec& a, const vec& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
vec cross(const vec& a, const vec& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
vec unit(const vec& a) {
    const double l = sqrt(dot(a, a));
    return {a.x / l, a.y / l, a.z / l};
}

struct facet {
    vec corner[4];
    light paint;
};
using solid = std::vector<facet>;

// Through sections of equally many points.
void loft(solid* s, const std::vector<std::vector<vec>>& sections, const light& paint) {
    for (size_t i = 0; i + 1 < sections.size(); ++i) {
        const auto &a = sections[i], &b = sections[i + 1];
        for (size_t k = 0; k < a.size(); ++k) {
            const size_t n = (k + 1) % a.size();
            s->push_back({{a[k], a[n], b[n], b[k]}, paint});
        }
    }
}

std::vector<vec> oval(double z, double y, double half_x, double half_y) {
    std::vector<vec> points;
    constexpr int around = 28;
    for (int k = 0; k < around; ++k) {
        const double a = 2.0 * M_PI * k / around;
        // between an ellipse and a box
        const auto squarish = [](double v) { return v < 0.0 ? -pow(-v, 0.75) : pow(v, 0.75); };
        points.push_back({half_x * squarish(sin(a)), y + half_y * squarish(cos(a)), z});
    }
    return points;
}

// A section along z, thick in the direction `up`.
std::vector<vec> blade(const vec& nose, double chord, double thick, const vec& up) {
    const double along[] = {0.0, 0.08, 0.3, 0.65, 1.0, 0.65, 0.3, 0.08};
    const double above[] = {0.0, 0.55, 1.0, 0.6, 0.0, -0.3, -0.45, -0.35};
    std::vector<vec> points;
    for (int i = 0; i < 8; ++i) {
        const double h = 0.5 * thick * above[i];
        points.push_back({nose.x + up.x * h, nose.y + up.y * h, nose.z - chord * along[i]});
    }
    return points;
}

void rod(solid* s, const vec& from, const vec& to, double chord, double thick, const light& paint) {
    loft(s, {blade(from, chord, thick, {0.0, 1.0, 0.0}), blade(to, chord, thick, {0.0, 1.0, 0.0})}, paint);
}

void wheel(solid* s, const vec& hub, double radius, double half) {
    std::vector<vec> left, right, axle_l, axle_r;
    for (int k = 0; k < 16; ++k) {
        const double a = 2.0 * M_PI * k / 16.0;
        const double y = hub.y + radius * cos(a), z = hub.z + radius * sin(a);
        left.push_back({hub.x - half, y, z});
        right.push_back({hub.x + half, y, z});
        axle_l.push_back({hub.x - half, hub.y, hub.z});
        axle_r.push_back({hub.x + half, hub.y, hub.z});
    }
    loft(s, {axle_l, left, right, axle_r}, {0.10, 0.10, 0.11});
}

solid light_aircraft() {
    const light white = {0.86, 0.87, 0.90}, red = {0.62, 0.12, 0.10}, glass = {0.10, 0.16, 0.24};
    solid s;
    loft(&s, {oval(3.02, 0.00, 0.10, 0.10), oval(2.92, 0.00, 0.22, 0.22), oval(2.80, 0.00, 0.36, 0.36)}, red);
    loft(&s, {oval(2.80, 0.00, 0.42, 0.40), oval(1.90, 0.03, 0.52, 0.50), oval(1.55, 0.08, 0.55, 0.55)},
         white);
    loft(&s, {oval(1.55, 0.08, 0.55, 0.55), oval(0.80, 0.22, 0.56, 0.70), oval(-0.60, 0.20, 0.54, 0.68)},
         white);
    loft(&s,
         {oval(-0.60, 0.20, 0.54, 0.68), oval(-1.50, 0.14, 0.40, 0.48), oval(-3.20, 0.10, 0.22, 0.26),
          oval(-4.90, 0.12, 0.06, 0.12)},
         white);
    for (double side : {-1.0, 1.0}) {
        // windows lie a little outside the skin
        const double x = 0.575 * side;
        s.push_back({{{x, 0.28, 1.02}, {x, 0.72, 0.66}, {x, 0.74, 0.10}, {x, 0.28, 0.10}}, glass});
        s.push_back(
            {{{x, 0.28, 0.02}, {x, 0.74, 0.02}, {x * 0.99, 0.70, -0.55}, {x * 0.99, 0.30, -0.75}}, glass});
        s.push_back({{{x * 0.97, -0.02, 2.2}, {x, 0.12, 1.2}, {x, 0.02, 1.2}, {x * 0.97, -0.12, 2.2}}, red});
        s.push_back({{{x, 0.12, 1.2}, {x, 0.14, -0.6}, {x, 0.02, -0.6}, {x, 0.02, 1.2}}, red});
        loft(&s,
             {blade({0.0, 0.90, 1.05}, 1.62, 0.22, {0, 1, 0}),
              blade({2.8 * side, 0.95, 1.05}, 1.62, 0.21, {0, 1, 0}),
              blade({5.3 * side, 1.03, 0.88}, 1.12, 0.14, {0, 1, 0}),
              blade({5.5 * side, 1.05, 0.70}, 0.70, 0.04, {0, 1, 0})},
             white);
        loft(&s,
             {blade({5.18 * side, 1.05, 0.92}, 1.18, 0.17, {0, 1, 0}),
              blade({5.52 * side, 1.07, 0.72}, 0.74, 0.05, {0, 1, 0})},
             red);
        loft(&s,
             {blade({0.0, 0.18, -3.95}, 1.05, 0.11, {0, 1, 0}),
              blade({1.70 * side, 0.20, -4.20}, 0.72, 0.06, {0, 1, 0})},
             white);
        rod(&s, {0.50 * side, -0.30, 0.62}, {2.75 * side, 0.86, 0.66}, 0.16, 0.07, white);
        rod(&s, {0.42 * side, -0.42, 0.10}, {1.16 * side, -1.12, 0.10}, 0.14, 0.08, white);
        wheel(&s, {1.20 * side, -1.16, 0.03}, 0.24, 0.08);
    }
    loft(&s,
         {blade({0.0, 0.18, -3.30}, 1.70, 0.11, {1, 0, 0}), blade({0.0, 0.70, -4.00}, 1.12, 0.09, {1, 0, 0}),
          blade({0.0, 1.55, -4.55}, 0.66, 0.06, {1, 0, 0})},
         red);
    rod(&s, {0.0, -0.40, 2.35}, {0.0, -1.10, 2.50}, 0.10, 0.10, white);
    wheel(&s, {0.0, -1.16, 2.48}, 0.20, 0.06);
    return s;
}

// Heading from "away from the eye" to the right, nose up, right wing down; radians.
struct attitude {
    double heading, pitch, bank;
};
// Result: x right, y up, z towards the eye.
vec seen(const vec& p, const attitude& a) {
    const vec b = {p.x * cos(a.bank) + p.y * sin(a.bank), -p.x * sin(a.bank) + p.y * cos(a.bank), p.z};
    const vec n = {b.x, b.y * cos(a.pitch) + b.z * sin(a.pitch), -b.y * sin(a.pitch) + b.z * cos(a.pitch)};
    return {n.x * cos(a.heading) + n.z * sin(a.heading), n.y, n.x * sin(a.heading) - n.z * cos(a.heading)};
}

void paint_aircraft(canvas& c, double at_x, double at_y, double metre, const attitude& a) {
    constexpr int fine =
        4;  // drawn larger without smoothing and shrunk, so that no seams show between facets
    constexpr int field = 320;
    cairo_surface_t* large = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, field * fine, field * fine);
    cairo_t* cr = cairo_create(large);
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
    cairo_translate(cr, 0.5 * field * fine, 0.5 * field * fine);
    cairo_scale(cr, fine * metre, -fine * metre);

    solid s = light_aircraft();
    for (facet& f : s)
        for (vec& v : f.corner) v = seen(v, a);
    const auto depth = [](const facet& f) {
        return f.corner[0].z + f.corner[1].z + f.corner[2].z + f.corner[3].z;
    };
    std::stable_sort(s.begin(), s.end(), [&](const facet& p, const facet& q) { return depth(p) < depth(q); });
    const vec to_sun = unit({0.62, 0.16, -0.55});
    for (const facet& f : s) {
        vec n = cross(f.corner[2] - f.corner[0], f.corner[3] - f.corner[1]);
        if (dot(n, n) < 1e-12) continue;
        n = unit(n);
        if (n.z < 0.0) n = {-n.x, -n.y, -n.z};  // the side that is seen
        const double sun = std::max(dot(n, to_sun), 0.0),
                     grazing = pow(1.0 - n.z, 3.0) * smooth(-0.2, 0.6, n.x);
        const light fall = light{0.16, 0.18, 0.27} * (0.45 + 0.55 * n.y) +
                           light{0.10, 0.07, 0.06} * (0.5 - 0.5 * n.y) +
                           light{1.5, 0.92, 0.52} * (sun + 0.35 * grazing);
        cairo_new_path(cr);
        for (const vec& v : f.corner) cairo_line_to(cr, v.x, v.y);
        cairo_close_path(cr);
        cairo_set_source_rgb(cr, std::min(f.paint.r * fall.r, 1.0), std::min(f.paint.g * fall.g, 1.0),
                             std::min(f.paint.b * fall.b, 1.0));
        cairo_fill(cr);
    }
    cairo_destroy(cr);

    cairo_t* pen = c.pen();
    cairo_save(pen);
    cairo_translate(pen, at_x, at_y);
    // the propeller's disc, and lamps of the wing tips and the tail
    cairo_save(pen);
    cairo_scale(pen, metre, metre);
    cairo_new_path(pen);
    for (int k = 0; k < 48; ++k) {
        const double turn = 2.0 * M_PI * k / 48.0;
        const vec v = seen({0.95 * sin(turn), 0.95 * cos(turn), 2.98}, a);
        cairo_line_to(pen, v.x, v.y);
    }
    cairo_close_path(pen);
    cairo_set_source_rgba(pen, 1.0, 0.86, 0.7, 0.16);
    cairo_fill(pen);
    cairo_restore(pen);
    cairo_save(pen);
    cairo_scale(pen, 1.0 / fine, -1.0 / fine);
    cairo_set_source_surface(pen, large, -0.5 * field * fine, -0.5 * field * fine);
    cairo_pattern_set_filter(cairo_get_source(pen), CAIRO_FILTER_BEST);
    cairo_paint(pen);
    cairo_restore(pen);
    const struct {
        vec place;
        light colour;
    } lamps[] = {{{5.55, 1.08, 0.5}, {0.35, 1.0, 0.6}},
                 {{-5.55, 1.08, 0.5}, {1.0, 0.25, 0.2}},
                 {{0.0, 1.62, -4.8}, {1.0, 0.4, 0.3}}};
    for (const auto& lamp : lamps) {
        const vec v = seen(lamp.place, a);
        cairo_pattern_t* glow =
            cairo_pattern_create_radial(v.x * metre, v.y * metre, 0.0, v.x * metre, v.y * metre, 7.0);
        cairo_pattern_add_color_stop_rgba(glow, 0.0, 1.0, 1.0, 1.0, 0.95);
        cairo_pattern_add_color_stop_rgba(glow, 0.18, lamp.colour.r, lamp.colour.g, lamp.colour.b, 0.8);
        cairo_pattern_add_color_stop_rgba(glow, 1.0, lamp.colour.r, lamp.colour.g, lamp.colour.b, 0.0);
        cairo_set_source(pen, glow);
        cairo_paint(pen);
        cairo_pattern_destroy(glow);
    }
    cairo_restore(pen);
    cairo_surface_destroy(large);
}

// -- the name

void paint_name(canvas& c) {
    cairo_t* cr = c.pen();
    const char* letters[] = {"T", "a", "r", "v", "a", "n", "e"};
    constexpr double size = 92.0, spread = 14.0, base = 626.0;
    cairo_set_font_face(cr, lettering_face());
    cairo_matrix_t upright;
    cairo_matrix_init(&upright, size, 0.0, 0.0, -size, 0.0, 0.0);
    cairo_set_font_matrix(cr, &upright);
    cairo_font_options_t* plain = cairo_font_options_create();
    cairo_font_options_set_hint_style(plain, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(plain, CAIRO_HINT_METRICS_OFF);
    cairo_set_font_options(cr, plain);
    cairo_font_options_destroy(plain);
    double width = -spread;
    cairo_text_extents_t e;
    for (const char* l : letters) {
        cairo_text_extents(cr, l, &e);
        width += e.x_advance + spread;
    }
    cairo_new_path(cr);
    double x = 0.5 * (size_x - width);
    for (const char* l : letters) {
        cairo_move_to(cr, x, base);
        cairo_text_path(cr, l);
        cairo_text_extents(cr, l, &e);
        x += e.x_advance + spread;
    }
    cairo_path_t* name = cairo_copy_path(cr);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    // a shadow of many wide and weak lines
    for (int i = 9; i >= 1; --i) {
        cairo_new_path(cr);
        cairo_save(cr);
        cairo_translate(cr, 0.0, -3.0);
        cairo_append_path(cr, name);
        cairo_restore(cr);
        cairo_set_source_rgba(cr, 0.02, 0.04, 0.12, 0.035);
        cairo_set_line_width(cr, 2.6 * i);
        cairo_stroke(cr);
    }
    cairo_pattern_t* dawn = cairo_pattern_create_linear(0.0, base, 0.0, base + 0.74 * size);
    cairo_pattern_add_color_stop_rgb(dawn, 0.0, 1.0, 0.83, 0.66);
    cairo_pattern_add_color_stop_rgb(dawn, 0.55, 1.0, 0.96, 0.92);
    cairo_pattern_add_color_stop_rgb(dawn, 1.0, 1.0, 1.0, 1.0);
    cairo_append_path(cr, name);
    cairo_set_source(cr, dawn);
    cairo_fill(cr);
    cairo_pattern_destroy(dawn);
    cairo_path_destroy(name);
}
}  // namespace

void draw_intro(canvas& c) {
    paint_scene(c);
    paint_aircraft(c, 452.0, 486.0, 21.0, {1.05, 0.10, 0.36});
    paint_name(c);
}
