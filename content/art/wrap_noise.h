// Value noise that repeats, for pictures whose edges meet.
#pragma once
#include <math.h>

#include "noise.h"

namespace noise {
// As value, but the lattice repeats after so many cells each way.
inline double wrapped_value(double x, double y, int period_x, int period_y, unsigned seed) {
    const auto ease = [](double f) { return f * f * f * (f * (6.0 * f - 15.0) + 10.0); };
    const auto wrap = [](int i, int period) { return (i % period + period) % period; };
    const int ix = static_cast<int>(floor(x)), iy = static_cast<int>(floor(y));
    const double fx = ease(x - ix), fy = ease(y - iy);
    const int x0 = wrap(ix, period_x), x1 = wrap(ix + 1, period_x);
    const int y0 = wrap(iy, period_y), y1 = wrap(iy + 1, period_y);
    const double low = hash(x0, y0, seed) * (1.0 - fx) + hash(x1, y0, seed) * fx;
    const double high = hash(x0, y1, seed) * (1.0 - fx) + hash(x1, y1, seed) * fx;
    return low * (1.0 - fy) + high * fy;
}
inline double wrapped_value(double x, double y, int period, unsigned seed) {
    return wrapped_value(x, y, period, period, seed);
}

// Octaves over the unit square, 0 to 1; the first has so many cells each way.
inline double wrapped_fractal(double s, double t, int cells_s, int cells_t, int octaves, unsigned seed) {
    double sum = 0.0, weight = 0.5, total = 0.0;
    for (int i = 0; i < octaves; ++i, weight *= 0.5, cells_s *= 2, cells_t *= 2) {
        sum += weight * wrapped_value(s * cells_s, t * cells_t, cells_s, cells_t, seed + static_cast<unsigned>(i));
        total += weight;
    }
    return sum / total;
}
inline double wrapped_fractal(double s, double t, int cells, int octaves, unsigned seed) {
    return wrapped_fractal(s, t, cells, cells, octaves, seed);
}

// 0 below `from`, 1 above `to`, smooth between.
inline double smooth(double from, double to, double v) {
    const double f = fmin(fmax((v - from) / (to - from), 0.0), 1.0);
    return f * f * (3.0 - 2.0 * f);
}
}  // namespace noise
