// Constants of the air of the Earth and of Mars.
#include "atmosphere.h"

#include <math.h>

#include <algorithm>

namespace {
constexpr int height_nodes = 96, direction_nodes = 256;
constexpr double profile_step = 50.0;       // metres
constexpr double sun_half_width = 0.00465;  // radians
constexpr double square_centimetre = 1e-4;  // in square metres

// Of one molecule of air, square metres: the fit of A. Bucholtz, "Rayleigh-scattering calculations for the
// terrestrial atmosphere", Appl. Opt. 34 (1995).
double air_cross_section(double nm) {
    const double um = nm * 1e-3;
    const double cm2 = um < 0.5 ? 3.01577e-28 * pow(um, -(3.55212 + 1.35579 * um + 0.11563 / um))
                                : 4.01061e-28 * pow(um, -(3.99668 + 1.10298e-3 * um + 2.71393e-2 / um));
    return cm2 * square_centimetre;
}
// Measured at 532 nm as 12.4e-27 cm2 against 5.17e-27 of air: M. Sneep and W. Ubachs, JQSRT 92 (2005).
constexpr double carbon_dioxide_against_air = 2.4;

// The Chappuis band, 1e-21 cm2 a molecule at 223 K: rounded from A. Serdyuchenko et al., Atmos. Meas. Tech. 7
// (2014).
constexpr spectrum ozone_cross_section = {0.007f, 0.028f, 0.085f, 0.23f, 0.49f, 0.90f, 1.60f, 2.76f,
                                          3.50f,  4.67f,  4.70f,  4.31f, 3.22f, 2.24f, 1.47f, 0.94f};

// The International Standard Atmosphere's density as a part of sea level's.
double standard_density(double h) {
    constexpr double tropopause = 11000.0;
    if (h < tropopause) return pow(1.0 - 2.25577e-5 * h, 4.25588);
    return 0.297076 * exp(-(h - tropopause) / 6341.62);
}

// A tent from 10 to 40 km (E. Bruneton and F. Neyret, "Precomputed Atmospheric Scattering", EGSR 2008, in the
// authors' later parameters).
constexpr double ozone_foot = 10000.0, ozone_peak = 25000.0, ozone_head = 40000.0;
double ozone_profile(double h) {
    return std::max(0.0, std::min((h - ozone_foot) / (ozone_peak - ozone_foot),
                                  (ozone_head - h) / (ozone_head - ozone_peak)));
}

amounts law_of_amounts(const atmosphere& a, double h) {
    const double air = a.molecule_scale > 0.0 ? exp(-h / a.molecule_scale) : standard_density(h);
    return {static_cast<float>(air), static_cast<float>(exp(-h / a.aerosol_scale)),
            static_cast<float>(a.has_ozone ? ozone_profile(h) : 0.0)};
}

void take_aerosol(atmosphere& a, const spectrum& extinction, const spectrum& single_albedo,
                  const spectrum& g) {
    a.aerosol_scattering = extinction * single_albedo;
    a.asymmetry = g;
    for (int i = 0; i < wavelengths; ++i) {
        const float peak = g[i] * g[i];
        a.extinction[aerosol][i] = extinction[i] * (1.0f - single_albedo[i] * peak);
        a.soft_scattering[i] = a.aerosol_scattering[i] * (1.0f - peak);
        a.soft_asymmetry[i] = g[i] / (1.0f + g[i]);
    }
}

// Nodes stand as in Bruneton and Neyret's table: by the distances to the horizon, so that none is lost there.
struct table_place {
    double r, cosine;
};
table_place place_of(const atmosphere& a, double u, double v) {
    const double to_rim = sqrt((2.0 * a.radius + a.thickness) * a.thickness), rho = to_rim * u;
    const double r = sqrt(rho * rho + a.radius * a.radius);
    const double least = a.radius + a.thickness - r, d = least + v * (rho + to_rim - least);
    const double cosine = d > 0.0 ? (to_rim * to_rim - rho * rho - d * d) / (2.0 * r * d) : 1.0;
    return {r, std::clamp(cosine, -1.0, 1.0)};
}

amounts integrate_column(const atmosphere& a, double r, double cosine) {
    constexpr int steps = 400;
    const double length = to_space(a, r, cosine);
    double sums[constituents] = {};
    for (int i = 0; i < steps; ++i) {
        const double s = length * (i + 0.5) / steps;
        const amounts here = amounts_at(a, sqrt(r * r + s * s + 2.0 * r * s * cosine) - a.radius);
        for (int c = 0; c < constituents; ++c) sums[c] += here[c];
    }
    amounts column;
    for (int c = 0; c < constituents; ++c) column[c] = static_cast<float>(sums[c] * length / steps);
    return column;
}

void fill_tables(atmosphere& a) {
    for (double h = 0.0; h <= a.thickness; h += profile_step) a.profile.push_back(law_of_amounts(a, h));
    a.columns.resize(height_nodes * direction_nodes);
    for (int h = 0; h < height_nodes; ++h)
        for (int d = 0; d < direction_nodes; ++d) {
            const table_place p = place_of(a, h / (height_nodes - 1.0), d / (direction_nodes - 1.0));
            a.columns[h * direction_nodes + d] = integrate_column(a, p.r, p.cosine);
        }
}
}  // namespace

atmosphere earth_air(double aerosol_depth) {
    constexpr double molecules_at_sea_level = 2.54743e25;   // per cubic metre at 15 Celsius
    constexpr double ozone_column = 300.0 * 2.6868e20;      // 300 Dobson units, per square metre
    constexpr double angstrom = 1.3, single_albedo = 0.94;  // of continental haze
    constexpr double haze_asymmetry = 0.76, ground_albedo = 0.2;
    atmosphere a = {};
    a.radius = 6371000.0, a.thickness = 80000.0;
    a.aerosol_scale = 1200.0;
    a.has_ozone = true;
    a.sun = sunlight;
    a.ground = constant(ground_albedo);
    spectrum haze;
    for (int i = 0; i < wavelengths; ++i) {
        const double nm = wavelength_nm(i);
        a.molecule_scattering[i] = static_cast<float>(molecules_at_sea_level * air_cross_section(nm));
        a.extinction[ozone][i] = static_cast<float>(ozone_column / (0.5 * (ozone_head - ozone_foot)) *
                                                    ozone_cross_section[i] * 1e-21 * square_centimetre);
        haze[i] = static_cast<float>(aerosol_depth / a.aerosol_scale * pow(nm / 550.0, -angstrom));
    }
    a.extinction[molecules] = a.molecule_scattering;
    take_aerosol(a, haze, constant(single_albedo), constant(haze_asymmetry));
    fill_tables(a);
    return a;
}

atmosphere mars_air(double dust_depth) {
    constexpr double molecules_at_ground = 2.1e23;  // 610 Pa at 210 K
    constexpr double sun_distance = 1.524;          // astronomical units
    // Dust: single scattering albedo and asymmetry rounded from M. E. Ockert-Bell et al., J. Geophys. Res.
    // 102 (1997), and M. G. Tomasko et al., J. Geophys. Res. 104 (1999): it takes the blue and throws what it
    // leaves of it in a narrower cone, which is the blue glow about a low sun.
    constexpr spectrum albedo = {0.70f, 0.71f, 0.73f, 0.755f, 0.78f,  0.805f, 0.835f, 0.865f,
                                 0.89f, 0.91f, 0.93f, 0.945f, 0.955f, 0.96f,  0.965f, 0.97f};
    constexpr spectrum g = {0.81f, 0.805f, 0.80f, 0.79f,  0.78f, 0.77f,  0.755f, 0.74f,
                            0.73f, 0.72f,  0.71f, 0.705f, 0.70f, 0.695f, 0.69f,  0.69f};
    // Bright soil as J. F. Bell et al., J. Geophys. Res. 105 (2000), saw it, rounded.
    constexpr spectrum soil = {0.06f,  0.065f, 0.07f,  0.075f, 0.08f, 0.09f,  0.10f,  0.12f,
                               0.145f, 0.175f, 0.205f, 0.23f,  0.25f, 0.265f, 0.275f, 0.285f};
    atmosphere a = {};
    a.radius = 3389500.0, a.thickness = 100000.0;
    a.molecule_scale = a.aerosol_scale = 11100.0;
    a.sun = sunlight * (1.0 / (sun_distance * sun_distance));
    a.ground = soil;
    for (int i = 0; i < wavelengths; ++i)
        a.molecule_scattering[i] = static_cast<float>(molecules_at_ground * carbon_dioxide_against_air *
                                                      air_cross_section(wavelength_nm(i)));
    a.extinction[molecules] = a.molecule_scattering;
    take_aerosol(a, constant(static_cast<float>(dust_depth / a.aerosol_scale)), albedo, g);
    fill_tables(a);
    return a;
}

amounts amounts_at(const atmosphere& a, double height) {
    const double u = std::clamp(height / profile_step, 0.0, a.profile.size() - 1.001);
    const size_t k = static_cast<size_t>(u);
    const float f = static_cast<float>(u - static_cast<double>(k));
    amounts here;
    for (int c = 0; c < constituents; ++c)
        here[c] = a.profile[k][c] + (a.profile[k + 1][c] - a.profile[k][c]) * f;
    return here;
}

double to_ground(const atmosphere& a, double r, double cosine) {
    const double square = r * r * (cosine * cosine - 1.0) + a.radius * a.radius;
    return cosine < 0.0 && square >= 0.0 ? std::max(-r * cosine - sqrt(square), 0.0) : -1.0;
}

double to_space(const atmosphere& a, double r, double cosine) {
    const double top = a.radius + a.thickness;
    return std::max(-r * cosine + sqrt(std::max(r * r * (cosine * cosine - 1.0) + top * top, 0.0)), 0.0);
}

amounts column_to_space(const atmosphere& a, double r, double cosine) {
    const double to_rim = sqrt((2.0 * a.radius + a.thickness) * a.thickness);
    const double rho = sqrt(std::max(r * r - a.radius * a.radius, 0.0));
    const double least = a.radius + a.thickness - r;
    const double d = to_space(a, r, std::max(cosine, -rho / r));
    const double u = std::clamp(rho / to_rim, 0.0, 1.0) * (height_nodes - 1);
    const double v = std::clamp((d - least) / (rho + to_rim - least), 0.0, 1.0) * (direction_nodes - 1);
    const int h = std::min(static_cast<int>(u), height_nodes - 2),
              k = std::min(static_cast<int>(v), direction_nodes - 2);
    const float fu = static_cast<float>(u - h), fv = static_cast<float>(v - k);
    const amounts* at = &a.columns[h * direction_nodes + k];
    amounts column;
    for (int c = 0; c < constituents; ++c)
        column[c] = (at[0][c] * (1.0f - fv) + at[1][c] * fv) * (1.0f - fu) +
                    (at[direction_nodes][c] * (1.0f - fv) + at[direction_nodes + 1][c] * fv) * fu;
    return column;
}

spectrum optical_depth(const atmosphere& a, const amounts& along) {
    spectrum depth;
    for (int i = 0; i < wavelengths; ++i)
        depth[i] = a.extinction[molecules][i] * along[molecules] + a.extinction[aerosol][i] * along[aerosol] +
                   a.extinction[ozone][i] * along[ozone];
    return depth;
}

spectrum sun_transmittance(const atmosphere& a, double r, double cosine) {
    const double horizon = -sqrt(std::max(1.0 - a.radius * a.radius / (r * r), 0.0));
    const double seen = std::clamp(0.5 + 0.5 * (cosine - horizon) / sun_half_width, 0.0, 1.0);
    if (seen <= 0.0) return constant(0.0f);
    spectrum depth = optical_depth(a, column_to_space(a, r, cosine));
    for (float& d : depth) d = std::max(-d, -80.0f);
    return exponential(depth) * (seen * seen * (3.0 - 2.0 * seen));
}

double horizon_dip(const atmosphere& a, double height) {
    return acos(a.radius / (a.radius + height)) * 180.0 / M_PI;
}
