// Tables of sunlight and of the eye.
#include "spectrum.h"

#include <math.h>
#include <string.h>

const spectrum sunlight = {1.10f, 1.69f, 1.72f, 1.93f, 2.04f, 1.97f, 1.88f, 1.87f,
                           1.86f, 1.83f, 1.80f, 1.72f, 1.66f, 1.58f, 1.52f, 1.44f};

namespace {
constexpr double step_nm = 20.0;
constexpr double lumens_per_watt = 683.0;

// A bell of two widths.
double lobe(double nm, double middle, double below, double above) {
    const double off = (nm - middle) / (nm < middle ? below : above);
    return exp(-0.5 * off * off);
}

// The colour matching functions of the CIE 1931 observer by the fits of C. Wyman, P.-P. Sloan and P. Shirley,
// "Simple Analytic Approximations to the CIE XYZ Color Matching Functions", JCGT 2 (2013).
tristimulus matching(double nm) {
    return {1.056 * lobe(nm, 599.8, 37.9, 31.0) + 0.362 * lobe(nm, 442.0, 16.0, 26.7) -
                0.065 * lobe(nm, 501.1, 20.4, 26.2),
            0.821 * lobe(nm, 568.8, 46.9, 40.5) + 0.286 * lobe(nm, 530.9, 16.3, 31.1),
            1.217 * lobe(nm, 437.0, 11.8, 36.0) + 0.681 * lobe(nm, 459.0, 26.0, 13.8)};
}

std::array<tristimulus, wavelengths> matching_table() {
    std::array<tristimulus, wavelengths> table;
    for (int i = 0; i < wavelengths; ++i) table[i] = matching(wavelength_nm(i));
    return table;
}
const std::array<tristimulus, wavelengths> observer = matching_table();
}  // namespace

spectrum exponential(const spectrum& power) {
    constexpr float log2_e = 1.44269504f;
    spectrum s;
    for (int i = 0; i < wavelengths; ++i) {
        const float p = power[i] * log2_e;
        const float shifted = p + 12582912.0f;  // 1.5 * 2^23: the whole part lands in the low bits
        const float part = (p - (shifted - 12582912.0f)) * 0.693147181f;
        const float series =
            1.0f +
            part * (1.0f + part * (0.5f + part * (1.0f / 6 + part * (1.0f / 24 + part * (1.0f / 120)))));
        int whole, bits;
        memcpy(&whole, &shifted, sizeof whole);
        memcpy(&bits, &series, sizeof bits);
        bits += (whole - 0x4B400000) * (1 << 23);
        memcpy(&s[i], &bits, sizeof bits);
    }
    return s;
}

tristimulus xyz_of(const spectrum& s) {
    tristimulus t = {0.0, 0.0, 0.0};
    for (int i = 0; i < wavelengths; ++i) {
        const double watts = s[i] * step_nm * lumens_per_watt;
        t.x += watts * observer[i].x, t.y += watts * observer[i].y, t.z += watts * observer[i].z;
    }
    return t;
}
double luminance(const spectrum& s) { return xyz_of(s).y; }

colour linear_colour(const tristimulus& t) {
    return {3.2404542 * t.x - 1.5371385 * t.y - 0.4985314 * t.z,
            -0.9692660 * t.x + 1.8760108 * t.y + 0.0415560 * t.z,
            0.0556434 * t.x - 0.2040259 * t.y + 1.0572252 * t.z};
}
