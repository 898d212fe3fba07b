// Seeded value noise: the same picture wherever it is drawn.
#pragma once
#include <math.h>

namespace noise {
// 0 to 1 from two integers: bits mixed by the finaliser of MurmurHash3 (public domain, A. Appleby).
inline double hash(int x, int y, unsigned seed) {
    unsigned h =
        static_cast<unsigned>(x) * 0x9e3779b1u + static_cast<unsigned>(y) * 0x85ebca77u + seed * 0xc2b2ae3du;
    h ^= h >> 16;
    h *= 0x85ebca6bu;
    h ^= h >> 13;
    h *= 0xc2b2ae35u;
    h ^= h >> 16;
    return h / 4294967295.0;
}

inline double value(double x, double y, unsigned seed) {
    const int ix = static_cast<int>(floor(x)), iy = static_cast<int>(floor(y));
    const auto ease = [](double f) { return f * f * f * (f * (6.0 * f - 15.0) + 10.0); };
    const double fx = ease(x - ix), fy = ease(y - iy);
    const double low = hash(ix, iy, seed) * (1.0 - fx) + hash(ix + 1, iy, seed) * fx;
    const double high = hash(ix, iy + 1, seed) * (1.0 - fx) + hash(ix + 1, iy + 1, seed) * fx;
    return low * (1.0 - fy) + high * fy;
}

// Octaves of half the size and half the weight, 0 to 1.
inline double fractal(double x, double y, int octaves, unsigned seed) {
    double sum = 0.0, weight = 0.5, total = 0.0;
    for (int i = 0; i < octaves; ++i, weight *= 0.5, x *= 2.03, y *= 2.03) {
        sum += weight * value(x, y, seed + static_cast<unsigned>(i));
        total += weight;
    }
    return sum / total;
}

// The same with creases: sharp crests, broad valleys.
inline double ridged(double x, double y, int octaves, unsigned seed) {
    double sum = 0.0, weight = 0.5, total = 0.0, before = 1.0;
    for (int i = 0; i < octaves; ++i, weight *= 0.5, x *= 2.07, y *= 2.07) {
        const double crest = 1.0 - fabs(2.0 * value(x, y, seed + static_cast<unsigned>(i)) - 1.0);
        before *= crest;
        sum += weight * crest * (0.35 + 0.65 * before);
        total += weight;
        before = crest;
    }
    return sum / total;
}
}  // namespace noise
