// A ragged edge by noise.
#include "soft_border.h"

#include <algorithm>

#include "ground_picture.h"
#include "wrap_noise.h"

void draw_soft_border(const std::string& path) {
    // nothing of either end reaches the other where the texture repeats, and on the smaller levels
    constexpr double outside = 0.2, inside = 0.8;
    ground_picture p(1.0, 256);
    p.paint([](double s, double t) {
        const double ragged = 0.6 * (noise::wrapped_fractal(s, t, 6, 5, 151) - 0.5);
        const double held = noise::smooth(outside, 0.4, s) * (1.0 - noise::smooth(0.6, inside, s));
        const double v = noise::smooth(0.36, 0.64, s + ragged * held);
        const double a = s < outside ? 0.0 : s > inside ? 1.0 : v;
        return rgba{a, a, a};
    });
    p.save(path);
}
