// Noise over the globe without seams: value noise in space, asked on a sphere.
#pragma once
#include <math.h>

#include "node_window.h"

namespace sphere_noise {
struct place {
    double x, y, z;  // metres from the middle of the globe
};

inline place at(double lat, double lon) {
    constexpr double radians = 0.017453292519943295, radius = earth_degree_metres / radians;
    const double across = radius * cos(lat * radians);
    const double x = across * cos(lon * radians), y = across * sin(lon * radians),
                 z = radius * sin(lat * radians);
    // turned, so that the lattice of the noise lies along no meridian
    constexpr double c = 0.8, s = 0.6, c2 = 12.0 / 13.0, s2 = 5.0 / 13.0;
    const double u = c * x - s * y, v = s * x + c * y, w = c2 * v - s2 * z;
    return {c * u - s * w, s * u + c * w, s2 * v + c2 * z};
}

// 0 to 1; bits mixed by the finaliser of MurmurHash3 (public domain, A. Appleby).
inline float hash(int x, int y, int z, unsigned seed) {
    unsigned h = static_cast<unsigned>(x) * 0x9e3779b1u + static_cast<unsigned>(y) * 0x85ebca77u +
                 static_cast<unsigned>(z) * 0x27d4eb2fu + seed * 0xc2b2ae3du;
    h ^= h >> 16;
    h *= 0x85ebca6bu;
    h ^= h >> 13;
    h *= 0xc2b2ae35u;
    h ^= h >> 16;
    return static_cast<float>(h >> 8) * (1.0f / 16777215.0f);
}

inline double value(const place& p, double wavelength, unsigned seed) {
    const double x = p.x / wavelength, y = p.y / wavelength, z = p.z / wavelength;
    const double ix = floor(x), iy = floor(y), iz = floor(z);
    const auto ease = [](double f) { return f * f * f * (f * (6.0 * f - 15.0) + 10.0); };
    const double fx = ease(x - ix), fy = ease(y - iy), fz = ease(z - iz);
    const int jx = static_cast<int>(ix), jy = static_cast<int>(iy), jz = static_cast<int>(iz);
    const auto line = [&](int dy, int dz) {
        const double a = hash(jx, jy + dy, jz + dz, seed), b = hash(jx + 1, jy + dy, jz + dz, seed);
        return a + (b - a) * fx;
    };
    const double low = line(0, 0) + (line(1, 0) - line(0, 0)) * fy;
    const double high = line(0, 1) + (line(1, 1) - line(0, 1)) * fy;
    return low + (high - low) * fz;
}

// Octaves of half the size and half the weight, 0 to 1.
inline double fractal(const place& p, double wavelength, int octaves, unsigned seed) {
    double sum = 0.0, weight = 0.5, total = 0.0;
    for (int i = 0; i < octaves; ++i, weight *= 0.5, wavelength *= 0.49) {
        sum += weight * value(p, wavelength, seed + static_cast<unsigned>(i));
        total += weight;
    }
    return sum / total;
}

// The same with creases: sharp crests, broad valleys; 0 to 1.
inline double ridged(const place& p, double wavelength, int octaves, unsigned seed) {
    double sum = 0.0, weight = 0.5, total = 0.0, before = 1.0;
    for (int i = 0; i < octaves; ++i, weight *= 0.55, wavelength *= 0.48) {
        const double crest = 1.0 - fabs(2.0 * value(p, wavelength, seed + static_cast<unsigned>(i)) - 1.0);
        sum += weight * crest * crest * (0.3 + 0.7 * before);
        total += weight;
        before = crest;
    }
    return sum / total;
}
}  // namespace sphere_noise
