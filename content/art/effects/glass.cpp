// Ice, scratches, cracks, grain.
#include <math.h>

#include <algorithm>
#include <vector>

#include "effects.h"
#include "texel_picture.h"
#include "wrap_noise.h"

namespace {
using noise::smooth;
using noise::wrapped_fractal;

// Crystals grow from seeds; where two meet is a bright ridge.
texel ice_at(double s, double t) {
    constexpr int cells = 9;
    const double x = s * cells + 0.5 * (wrapped_fractal(s, t, 12, 3, 801) - 0.5),
                 y = t * cells + 0.5 * (wrapped_fractal(s, t, 12, 3, 811) - 0.5);
    double first = 9.0, second = 9.0, angle = 0.0;
    for (int j = -1; j <= 1; ++j)
        for (int i = -1; i <= 1; ++i) {
            const int cx = static_cast<int>(floor(x)) + i, cy = static_cast<int>(floor(y)) + j;
            const int wx = (cx % cells + cells) % cells, wy = (cy % cells + cells) % cells;
            const double dx = x - cx - noise::hash(wx, wy, 821), dy = y - cy - noise::hash(wx, wy, 822);
            const double d = hypot(dx, dy);
            if (d < first) {
                second = first;
                first = d;
                angle = atan2(dy, dx);
            } else {
                second = std::min(second, d);
            }
        }
    const double ridge = 1.0 - smooth(0.0, 0.14, second - first);
    const double feather = 0.5 + 0.5 * cos(12.0 * angle + 18.0 * first);
    const double cover = 0.42 + 0.30 * wrapped_fractal(s, t, 6, 4, 831) + 0.18 * feather * smooth(0.1, 0.5, first);
    return {0.90 + 0.1 * ridge, 0.95 + 0.05 * ridge, 1.0, std::clamp(cover + 0.35 * ridge, 0.0, 1.0)};
}

// Fine arcs from wiping, all over.
void draw_scratches(const std::string& path) {
    constexpr int side = 512, count = 260;
    std::vector<double> cover(static_cast<size_t>(side) * side, 0.0);
    const auto wrap = [](int v) { return static_cast<size_t>((v % side + side) % side); };
    for (int n = 0; n < count; ++n) {
        const auto lot = [n](unsigned k) { return noise::hash(n, 5, 850 + k); };
        double x = side * lot(1), y = side * lot(2), way = 2.0 * M_PI * lot(3);
        const double bend = 0.012 * (lot(4) - 0.5), strength = 0.25 + 0.6 * lot(5) * lot(5);
        const int length = static_cast<int>(30 + 190 * lot(6));
        for (int i = 0; i < length; ++i, x += cos(way), y += sin(way), way += bend) {
            const double fade = smooth(0.0, 0.3, 0.5 - fabs(static_cast<double>(i) / length - 0.5));
            for (int j = -1; j <= 1; ++j)
                for (int k = -1; k <= 1; ++k) {
                    const double near = 1.0 - 0.55 * hypot(j, k);
                    double& at = cover[wrap(static_cast<int>(y) + j) * side + wrap(static_cast<int>(x) + k)];
                    at = std::max(at, strength * fade * std::max(near, 0.0));
                }
        }
    }
    texel_picture picture(side, side);
    for (int t = 0; t < side; ++t)
        for (int s = 0; s < side; ++s) picture.at(s, t).a = std::min(1.0, cover[static_cast<size_t>(t) * side + s]);
    picture.save(path);
}

// A star where a hailstone struck: crushed in the middle, rays and rings.
texel crack_at(double s, double t) {
    const double x = 2.0 * s - 1.0, y = 2.0 * t - 1.0, r = hypot(x, y), way = atan2(y, x);
    double rays = 0.0;
    constexpr int count = 11;
    for (int n = 0; n < count; ++n) {
        const double at = 2.0 * M_PI * (n + 0.7 * noise::hash(n, 1, 861)) / count + 0.25 * (noise::value(r * 5.0, n, 862) - 0.5);
        const double reach = 0.45 + 0.5 * noise::hash(n, 2, 863);
        double off = way - at;
        off -= 2.0 * M_PI * round(off / (2.0 * M_PI));
        rays = std::max(rays, (1.0 - smooth(0.008, 0.035, fabs(off) * r)) * (1.0 - smooth(0.7 * reach, reach, r)));
    }
    const double bent = r + 0.05 * (noise::value(way * 3.0, 3.0, 864) - 0.5);
    const double rings = 0.6 * ((1.0 - smooth(0.01, 0.04, fabs(bent - 0.26))) + (1.0 - smooth(0.008, 0.03, fabs(bent - 0.46))));
    const double crushed = 1.0 - smooth(0.05, 0.16, r + 0.06 * (noise::fractal(9 * s, 9 * t, 3, 865) - 0.5));
    const double alpha = std::max({rays, rings * (0.4 + 0.6 * noise::value(way * 4.0, 7.0, 866)), crushed});
    return {0.93, 0.96, 1.0, 0.9 * alpha * smooth(0.0, 0.15, 1.0 - r)};
}

texel grain_at(double s, double t) {
    constexpr int cells = 64;
    const double v = noise::wrapped_value(s * cells, t * cells, cells, 871);
    const double fine = noise::wrapped_value(s * 2 * cells, t * 2 * cells, 2 * cells, 872);
    const double bright = smooth(0.45, 0.9, 0.6 * v + 0.4 * fine);
    return {1.0, 1.0, 1.0, bright};
}
}  // namespace

void draw_glass(const std::string& folder) {
    const std::string to = folder + "overlays/";
    const auto draw = [&to](const char* name, int side, texel (*at)(double, double)) {
        texel_picture picture(side, side);
        picture.paint(at);
        picture.save(to + name);
    };
    draw("ice.png", 512, ice_at);
    draw_scratches(to + "scratches.png");
    draw("win_damage.png", 256, crack_at);
    draw("static.png", 256, grain_at);
}
