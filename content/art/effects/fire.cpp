// Flames of engines, and fire.
#include <math.h>

#include <algorithm>

#include "effects.h"
#include "texel_picture.h"
#include "wrap_noise.h"

namespace {
using noise::smooth;
using noise::wrapped_fractal;
constexpr int side = 256;

// Colours from the core outward.
struct flame_kind {
    const char* name;
    texel core, middle, rim;
    double width;  // at the nozzle, half of the picture 1
    double taper;  // power of the narrowing
    int diamonds;  // of shocks along it, 0 none
    double ragged;
};
const flame_kind flames[] = {
    {"flame_burner_fast", {0.92, 0.94, 1.0, 1}, {0.55, 0.66, 1.0, 1}, {0.98, 0.55, 0.25, 1}, 0.62, 0.9, 6, 0.12},
    {"flame_burner_slow", {1.0, 0.93, 0.78, 1}, {1.0, 0.66, 0.28, 1}, {0.92, 0.36, 0.12, 1}, 0.72, 0.7, 4, 0.22},
    {"flame_rocket_liq", {1.0, 1.0, 1.0, 1}, {0.72, 0.84, 1.0, 1}, {0.42, 0.58, 0.98, 1}, 0.5, 0.5, 8, 0.08},
    {"flame_rocket_sol", {1.0, 0.99, 0.9, 1}, {1.0, 0.82, 0.42, 1}, {0.98, 0.52, 0.18, 1}, 0.6, 0.3, 0, 0.4},
};

texel flame_at(const flame_kind& kind, unsigned seed, double s, double t) {
    const double edge = kind.width * pow(1.0 - t, kind.taper) + 0.04 * (1.0 - t);
    const double flicker = kind.ragged * (wrapped_fractal(s, t, 6, 4, 4, seed) - 0.5) * (0.3 + t);
    const double off = fabs(2.0 * s - 1.0) / std::max(edge, 0.02) + 2.0 * flicker;
    double heat = (1.0 - smooth(0.0, 1.0, off)) * (1.0 - smooth(0.55, 1.0, t));
    if (kind.diamonds) {
        const double phase = t * kind.diamonds;
        const double shock = exp(-pow((phase - floor(phase) - 0.5) / 0.22, 2.0)) * (1.0 - smooth(0.0, 0.6, off));
        heat = std::min(1.0, heat + 0.5 * shock * (1.0 - t));
    }
    const texel c = heat > 0.5 ? mix(kind.middle, kind.core, 2.0 * heat - 1.0) : mix(kind.rim, kind.middle, 2.0 * heat);
    const double rims = smooth(0.0, 0.08, std::min(s, 1.0 - s));
    return {c.r, c.g, c.b, std::clamp(1.15 * heat, 0.0, 1.0) * rims};
}

// Tongues that rise and part, smoke above.
texel fire_at(double s, double t) {
    const double x = 2.0 * s - 1.0;
    const double sway = 0.35 * t * (wrapped_fractal(s, t, 3, 3, 3, 701) - 0.5);
    const double tongues = wrapped_fractal(s + sway, t, 7, 3, 5, 711);
    const double heat = 1.05 - 1.25 * t - 0.95 * x * x * (1.0 + t) + 1.1 * (tongues - 0.5);
    const double burns = smooth(0.05, 0.4, heat);
    const texel red = {0.75, 0.16, 0.03, 1}, orange = {1.0, 0.55, 0.10, 1}, yellow = {1.0, 0.92, 0.55, 1};
    const texel fire = heat < 0.55 ? mix(red, orange, smooth(0.1, 0.55, heat)) : mix(orange, yellow, smooth(0.55, 1.0, heat));
    const double lumps = wrapped_fractal(s, t, 5, 5, 4, 721);
    const double smokes = 0.55 * smooth(0.35, 0.7, t + 0.5 * (lumps - 0.5)) * smooth(0.0, 0.5, 1.0 - fabs(x) * 1.15) *
                          smooth(0.0, 0.3, 1.0 - t);
    const double grey = 0.13 + 0.16 * lumps;
    const double alpha = std::max(burns, smokes) * smooth(0.0, 0.12, 1.0 - fabs(x)) * smooth(0.0, 0.08, 1.0 - t);
    texel c = mix(texel{grey, grey, grey, 1}, fire, burns);
    c.a = alpha;
    return c;
}
}  // namespace

void draw_fires(const std::string& folder) {
    unsigned seed = 650;
    for (const flame_kind& kind : flames) {
        texel_picture picture(side, side);
        seed += 10;
        picture.paint([&](double s, double t) { return flame_at(kind, seed, s, t); });
        picture.save(folder + "fire/" + kind.name + ".png");
    }
    texel_picture fire(2 * side, 2 * side);
    fire.paint(fire_at);
    fire.save(folder + "fire/fire.png");
}
