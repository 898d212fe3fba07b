// Light as sixteen wavelengths, and the way from there to the linear colours of a screen.
// Role: the numbers that all of this folder computes in; knows neither air nor sky.
#pragma once
#include <array>

constexpr int wavelengths = 16;
// Nanometres, every 20 from 390 to 690.
constexpr double wavelength_nm(int i) { return 390.0 + 20.0 * i; }

using spectrum = std::array<float, wavelengths>;
inline spectrum constant(float value) {
    spectrum s;
    s.fill(value);
    return s;
}
inline spectrum operator+(const spectrum& a, const spectrum& b) {
    spectrum s;
    for (int i = 0; i < wavelengths; ++i) s[i] = a[i] + b[i];
    return s;
}
inline spectrum operator*(const spectrum& a, const spectrum& b) {
    spectrum s;
    for (int i = 0; i < wavelengths; ++i) s[i] = a[i] * b[i];
    return s;
}
inline spectrum operator*(const spectrum& a, double f) {
    spectrum s;
    for (int i = 0; i < wavelengths; ++i) s[i] = a[i] * static_cast<float>(f);
    return s;
}
inline spectrum mix(const spectrum& a, const spectrum& b, double part_of_b) {
    return a * (1.0 - part_of_b) + b * part_of_b;
}
// e to the power of each, for powers from -80 to 80; right to 4 parts in a million.
spectrum exponential(const spectrum& power);

// Sunlight before the air at one astronomical unit, W/m2/nm: ASTM G173-03, means of 20 nm, rounded.
extern const spectrum sunlight;

// In candela per square metre, or lux from an irradiance.
double luminance(const spectrum& s);

// Linear, of the primaries of IEC 61966-2-1 (sRGB); 1 is a luminance of 1 cd/m2 (or 1 lux).
struct colour {
    double r, g, b;
};
inline colour operator+(const colour& a, const colour& b) { return {a.r + b.r, a.g + b.g, a.b + b.b}; }
inline colour operator*(const colour& a, double f) { return {a.r * f, a.g * f, a.b * f}; }
inline colour mix(const colour& a, const colour& b, double part_of_b) {
    return a * (1.0 - part_of_b) + b * part_of_b;
}
inline double luminance(const colour& c) { return 0.2126 * c.r + 0.7152 * c.g + 0.0722 * c.b; }
struct tristimulus {
    double x, y, z;
};
tristimulus xyz_of(const spectrum& s);
colour linear_colour(const tristimulus& t);
