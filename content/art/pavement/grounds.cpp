// Asphalt, concrete, grass, dirt, gravel, lakebed.
#include "grounds.h"

#include <math.h>

#include <algorithm>

#include "wrap_noise.h"

using noise::smooth;

double ground_noise(double x, double y, double size, int octaves, unsigned seed) {
    const int cells = std::max(1, static_cast<int>(lround(runway_metres / size)));
    return noise::wrapped_fractal(x / runway_metres, y / runway_metres, cells, octaves, seed);
}

double streaks(double x, double y, unsigned seed) {
    const double s = x / runway_metres, t = y / runway_metres;
    return 0.5 * noise::wrapped_value(s * 180, t * 3, 180, 3, seed) +
           0.5 * noise::wrapped_value(s * 60, t * 2, 60, 2, seed + 1);
}

namespace {
double bell(double x, double width) { return exp(-x * x / (width * width)); }

// How often wheels pass at x, 0 to 1: main wheels of all sizes beside the middle.
double lanes(double x) {
    const double off = fabs(x - 0.5 * runway_metres);
    return std::max(bell(off - 4.2, 2.6), 0.6 * bell(off, 1.4));
}

double fine_grain(double x, double y, unsigned seed) { return ground_noise(x, y, 0.35, 2, seed) - 0.5; }

// 1 on a crack that wanders around a line; `off` is the distance from the line, m.
double crack(double off, double along, double width, double wander, unsigned seed) {
    const double bent = off + wander * (ground_noise(along, 3.0 + seed, 6.0, 3, seed) - 0.5);
    return 1.0 - smooth(0.4 * width, width, fabs(bent));
}

// Distance to the nearest of lines every `pitch`, signed, m.
double to_joint(double v, double pitch) { return v - pitch * round(v / pitch); }

texel grey(double v, double warm) { return {v * (1.0 + 0.5 * warm), v, v * (1.0 - warm), 1.0}; }

struct patch_struct {
    double x, y, dx, dy, tone;
};
// Cut out and filled anew, over the years.
constexpr patch_struct asphalt_patches[] = {
    {6.5, 8.0, 3.0, 5.5, -0.055},  {31.0, 21.0, 5.0, 3.0, 0.05},  {13.5, 33.0, 2.5, 6.0, -0.04},
    {38.0, 36.0, 3.5, 4.0, 0.045}, {25.5, 5.0, 2.0, 3.5, -0.035}, {17.0, 17.5, 4.0, 2.5, 0.03},
};

texel asphalt_at(double x, double y, bool with_lanes) {
    constexpr double paver = 7.5;  // m, a lane of the machine that laid it
    double v = 0.315 + 0.05 * (ground_noise(x, y, 9.0, 3, 11) - 0.5) +
               0.055 * (ground_noise(x, y, 1.6, 3, 12) - 0.5) + 0.05 * fine_grain(x, y, 13);
    v += 0.018 * (noise::hash(static_cast<int>(x / paver), 1, 14) - 0.5);
    for (const patch_struct& p : asphalt_patches) {
        const double off = std::max(fabs(x - p.x) - 0.5 * p.dx, fabs(y - p.y) - 0.5 * p.dy);
        v += p.tone * (1.0 - smooth(-0.05, 0.12, off));
        v -= 0.04 * (1.0 - smooth(0.05, 0.22, fabs(off)));  // tar along its edge
    }
    double tar = crack(to_joint(x, paver), y, 0.24, 0.25, 21);
    for (const double at : {9.0, 24.5, 39.0}) {
        const double from = 8.0 * noise::hash(static_cast<int>(at), 2, 22);
        const double part = smooth(from, from + 1.0, x) * (1.0 - smooth(from + 27.0, from + 28.0, x));
        tar = std::max(tar, part * crack(y - at, x, 0.26, 2.4, 23 + static_cast<unsigned>(at)));
    }
    v -= 0.05 * tar * (0.6 + 0.4 * ground_noise(x, y, 1.2, 2, 24));
    const double oil = smooth(0.68, 0.8, ground_noise(x, y, 3.5, 2, 25));
    v -= 0.03 * oil;
    if (with_lanes) {
        const double worn = lanes(x);
        v += 0.025 * worn * (1.0 - tar);  // polished stone
        v -= 0.11 * worn * smooth(0.25, 0.95, streaks(x, y, 26));
    }
    return grey(std::clamp(v, 0.06, 0.6), 0.02 + 0.03 * (ground_noise(x, y, 12.0, 2, 27) - 0.5));
}

texel concrete_at(double x, double y, bool with_lanes) {
    constexpr double slab = 7.5;  // m
    constexpr int slabs = 6;
    const int column = std::min(static_cast<int>(x / slab), slabs - 1),
              line = std::min(static_cast<int>(y / slab), slabs - 1);
    const double lot = noise::hash(column, line, 41);
    double v = 0.575 + 0.05 * (lot - 0.5) + (lot > 0.9 ? 0.06 : 0.0) - (lot < 0.08 ? 0.05 : 0.0);
    v += 0.06 * (ground_noise(x, y, 7.0, 3, 42) - 0.5) + 0.04 * (ground_noise(x, y, 1.1, 3, 43) - 0.5) +
         0.035 * fine_grain(x, y, 44);
    const double joint_x = fabs(to_joint(x, slab)), joint_y = fabs(to_joint(y, slab));
    const double joint = std::max(1.0 - smooth(0.06, 0.17, joint_x), 1.0 - smooth(0.06, 0.17, joint_y));
    v -= 0.11 * joint * (0.6 + 0.4 * ground_noise(x, y, 2.0, 2, 45));
    // corners break first
    const double corner = joint_x + joint_y;
    const double side_x = x / slab - column - 0.5, side_y = y / slab - line - 0.5;
    const int quarter = (side_x > 0.0 ? 1 : 0) + (side_y > 0.0 ? 2 : 0);
    if (noise::hash(column, line, 46) > 0.65 &&
        quarter == static_cast<int>(3.99 * noise::hash(column, line, 51))) {
        const double broken =
            1.0 - smooth(0.05, 0.16, fabs(corner - 1.2 - 0.8 * ground_noise(x, y, 2.0, 2, 47)));
        v -= 0.13 * broken;
    }
    const double stain = smooth(0.62, 0.85, ground_noise(x, y, 4.0, 3, 48));
    v -= 0.05 * stain;
    if (with_lanes) {
        const double worn = lanes(x);
        v -= 0.15 * worn * smooth(0.25, 0.95, streaks(x, y, 49)) + 0.03 * worn;
    }
    const double rust = 0.05 * smooth(0.75, 0.9, ground_noise(x, y, 2.6, 2, 50));
    return grey(std::clamp(v, 0.08, 0.8), 0.035 + rust);
}

// -- natural grounds

// Two wheel tracks beside the middle, and what the mower leaves.
double tracks(double x, double y, unsigned seed) {
    const double off = fabs(x - 0.5 * runway_metres) + 1.2 * (ground_noise(x, y, 9.0, 2, seed) - 0.5);
    return bell(off - 1.7, 1.0) * (0.55 + 0.45 * ground_noise(x, y, 2.4, 3, seed + 1));
}

// The edges fray out into what lies around.
double ragged_alpha(double x, double y, unsigned seed) {
    const double from_edge = std::min(x, runway_metres - x);
    const double frayed = from_edge + 5.0 * (ground_noise(x, y, 3.0, 4, seed) - 0.5);
    return smooth(0.6, 4.2, frayed) * smooth(0.0, 1.2, from_edge);
}

texel natural_colour(natural_surface kind, double x, double y) {
    const double wide = ground_noise(x, y, 8.0, 3, 60 + kind), fine = ground_noise(x, y, 0.9, 3, 70 + kind);
    const double track = tracks(x, y, 80);
    switch (kind) {
        case grass: {
            const double mown = static_cast<int>(floor(x / 3.75)) % 2 ? 0.025 : -0.025;
            const texel green = {0.31, 0.36, 0.20, 1.0}, straw = {0.46, 0.44, 0.25, 1.0},
                        soil = {0.40, 0.33, 0.22, 1.0};
            texel c = mix(green, straw, 0.55 * smooth(0.45, 0.75, wide));
            c = shade(c, 0.82 + 0.36 * fine + mown);
            return mix(c, shade(soil, 0.85 + 0.3 * fine), 0.6 * track);
        }
        case dirt: {
            texel c = mix(texel{0.44, 0.34, 0.23, 1.0}, texel{0.55, 0.45, 0.32, 1.0}, wide);
            c = shade(c, 0.87 + 0.26 * fine);
            return mix(c, texel{0.62, 0.53, 0.40, 1.0}, 0.5 * track);
        }
        case gravel: {
            texel c = mix(texel{0.44, 0.43, 0.41, 1.0}, texel{0.54, 0.52, 0.48, 1.0}, wide);
            c = shade(c, 0.89 + 0.22 * ground_noise(x, y, 0.55, 2, 90));
            return mix(c, texel{0.60, 0.58, 0.54, 1.0}, 0.45 * track);
        }
        default: {
            // mud that dried in polygons
            const double cell = ground_noise(x, y, 2.2, 2, 91);
            const double rim = 1.0 - smooth(0.0, 0.035, fabs(cell - 0.5));
            texel c = mix(texel{0.70, 0.63, 0.50, 1.0}, texel{0.79, 0.73, 0.61, 1.0}, wide);
            c = shade(c, 0.95 + 0.1 * fine - 0.12 * rim);
            return mix(c, texel{0.60, 0.53, 0.42, 1.0}, 0.35 * track);
        }
    }
}
}  // namespace

ground::ground(hard_surface kind, int side, bool with_lanes) : side_(side), picture_(side, side) {
    picture_.paint([&](double s, double t) {
        const double x = s * runway_metres, y = t * runway_metres;
        return kind == asphalt ? asphalt_at(x, y, with_lanes) : concrete_at(x, y, with_lanes);
    });
}

ground::ground(natural_surface kind, int side) : side_(side), picture_(side, side) {
    picture_.paint([&](double s, double t) {
        const double x = s * runway_metres, y = t * runway_metres;
        texel c = natural_colour(kind, x, y);
        c.a = ragged_alpha(x, y, 95 + static_cast<unsigned>(kind));
        return c;
    });
}
