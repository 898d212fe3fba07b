// Sheets and puffs of cloud.
#include <math.h>

#include <algorithm>

#include "effects.h"
#include "texel_picture.h"
#include "wrap_noise.h"

namespace {
using noise::smooth;
using noise::wrapped_fractal;
constexpr int sheet = 1024, puff = 512, smoke = 256;

double wrapped(double v) { return v - floor(v); }

// A kind of cirrus: fibres so many times longer than wide, how much they bend, how much sky shows.
struct cirrus_kind {
    int cells_s, cells_t;
    double bend, clear, thick;
    int ripples;  // across the fibres in the picture, 0 none
};
constexpr cirrus_kind cirrus[] = {
    {4, 24, 0.10, 0.50, 0.85, 0},   // mares' tails
    {3, 30, 0.04, 0.45, 0.60, 0},   // straight fibres
    {6, 18, 0.16, 0.52, 0.90, 0},   // hooks
    {5, 5, 0.10, 0.42, 0.55, 0},    // veil
    {4, 16, 0.08, 0.46, 0.80, 36},  // ripples
    {8, 8, 0.20, 0.55, 0.95, 0},    // flocks
    {2, 36, 0.05, 0.55, 0.75, 0},   // thin threads
    {4, 12, 0.06, 0.40, 0.70, 22},  // waves
    {10, 10, 0.08, 0.50, 0.85, 0},  // small flakes
};

texel cirrus_at(const cirrus_kind& kind, unsigned seed, double s, double t) {
    const double bend_s = kind.bend * (wrapped_fractal(s, t, 3, 3, seed) - 0.5);
    const double bend_t = kind.bend * (wrapped_fractal(s, t, 3, 3, seed + 7) - 0.5);
    const double u = wrapped(s + bend_s), v = wrapped(t + bend_t);
    const double fibre = wrapped_fractal(u, v, kind.cells_s, kind.cells_t, 5, seed + 11);
    const double field = wrapped_fractal(s, t, 3, 4, seed + 23);
    double thick = smooth(kind.clear - 0.08, kind.clear + 0.24, 0.55 * fibre + 0.45 * field);
    if (kind.ripples) thick *= 0.55 + 0.45 * sin(2.0 * M_PI * kind.ripples * v + 9.0 * bend_s / kind.bend);
    return {0.97, 0.98, 1.0, kind.thick * thick};
}

// Broken layers: rolls that touch, darker in their middle.
texel stratus_at(int rolls, unsigned seed, double s, double t) {
    const double u = wrapped(s + 0.06 * (wrapped_fractal(s, t, 4, 3, seed) - 0.5));
    const double v = wrapped(t + 0.06 * (wrapped_fractal(s, t, 4, 3, seed + 5) - 0.5));
    const double lumps = wrapped_fractal(u, v, rolls, rolls, 5, seed + 9);
    const double wide = wrapped_fractal(s, t, 3, 3, seed + 15);
    const double thick = smooth(0.40, 0.62, 0.7 * lumps + 0.3 * wide);
    const double grey = 1.0 - 0.16 * smooth(0.5, 0.8, lumps);
    return {grey, grey, std::min(1.0, grey + 0.015), 0.92 * thick};
}

texel overcast_at(double s, double t) {
    const double lumps = wrapped_fractal(s, t, 6, 6, 301), wide = wrapped_fractal(s, t, 2, 4, 311);
    const double grey = 0.80 + 0.22 * (lumps - 0.5) + 0.16 * (wide - 0.5);
    return {grey, grey, std::min(1.0, grey * 1.015), 1.0};
}

// One heap that fills the picture: round heads over a flatter foot, light from above.
texel puff_at(unsigned seed, double s, double t) {
    const double x = 2.0 * s - 1.0, y = 2.0 * t - 1.0;
    const double coarse = wrapped_fractal(s, t, 5, 5, seed), fine = wrapped_fractal(s, t, 12, 4, seed + 9);
    const double r = hypot(x, y < 0.0 ? 1.25 * y : y);
    const double body = 0.80 - r + 0.75 * (coarse - 0.5) + 0.22 * (fine - 0.5);
    const double alpha = smooth(0.02, 0.42, body) * smooth(0.0, 0.16, 1.0 - std::max(fabs(x), fabs(y)));
    // the side of a bulge that looks up is light: compare with what is above
    const double above = wrapped_fractal(s, wrapped(t + 0.04), 5, 5, seed);
    const double light = std::clamp(0.83 + 0.13 * y + 0.9 * (coarse - above), 0.6, 1.0);
    return {light, light, std::min(1.0, light + 0.02), alpha};
}

texel smoke_at(double s, double t) {
    const double x = 2.0 * s - 1.0, y = 2.0 * t - 1.0;
    const double lumps = wrapped_fractal(s, t, 5, 4, 401);
    const double body = 0.85 - hypot(x, y) + 0.6 * (lumps - 0.5);
    const double light = 0.84 + 0.2 * (lumps - 0.5) + 0.06 * y;
    return {light, light, light,
            0.9 * smooth(0.0, 0.6, body) * smooth(0.0, 0.2, 1.0 - std::max(fabs(x), fabs(y)))};
}

template <class At>
void draw(const std::string& path, int side, bool with_alpha, At at) {
    texel_picture picture(side, side);
    picture.paint(at);
    picture.save(path, with_alpha);
}
}  // namespace

void draw_clouds(const std::string& folder) {
    const std::string to = folder + "clouds/";
    unsigned seed = 100;
    int number = 0;
    for (const cirrus_kind& kind : cirrus) {
        seed += 31;
        draw(to + "cld_cirrus_" + std::to_string(++number) + ".png", sheet, true,
             [&](double s, double t) { return cirrus_at(kind, seed, s, t); });
    }
    draw(to + "cld_stratus_1.png", sheet, true, [](double s, double t) { return stratus_at(9, 501, s, t); });
    draw(to + "cld_stratus_2.png", sheet, true, [](double s, double t) { return stratus_at(16, 541, s, t); });
    draw(to + "cld_ocast_1.png", sheet, false, overcast_at);
    draw(to + "cld_puff_1.png", puff, true, [](double s, double t) { return puff_at(601, s, t); });
    draw(to + "cld_puff_2.png", puff, true, [](double s, double t) { return puff_at(641, s, t); });
    draw(to + "smoke_puff.png", smoke, true, smoke_at);
}
