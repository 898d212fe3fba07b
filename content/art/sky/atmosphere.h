// The air of a planet: what scatters and absorbs at a height, and how much of it stands along a way.
// Role: the matter; how light runs through it is told in light.h.
#pragma once
#include <vector>

#include "spectrum.h"

// Lengths in metres, coefficients per metre.
enum constituent { molecules, aerosol, ozone, constituents };

// Amounts of the constituents as parts of their greatest; along a way, metres of that greatest amount.
using amounts = std::array<float, constituents>;

struct atmosphere {
    double radius, thickness;
    double molecule_scale;  // of the planet whose air falls off exponentially; 0 is the Earth's air
    double aerosol_scale;
    bool has_ozone;
    spectrum sun;                                   // before the air, W/m2/nm
    spectrum ground;                                // albedo of the surface
    std::array<spectrum, constituents> extinction;  // at the greatest amount
    spectrum molecule_scattering;
    spectrum aerosol_scattering, asymmetry;  // of all of the aerosol's light
    // What is left of the aerosol without its sharp forward peak (Delta scaling: J. H. Joseph, W. J. Wiscombe
    // and J. A. Weinman, J. Atmos. Sci. 33 (1976)); `extinction` of the aerosol is already without it.
    spectrum soft_scattering, soft_asymmetry;

    std::vector<amounts> profile;  // every 50 m
    std::vector<amounts> columns;  // to space, by height and direction
};

// Extinction of the aerosol through all the air at 550 nm.
atmosphere earth_air(double aerosol_depth);
atmosphere mars_air(double dust_depth);

amounts amounts_at(const atmosphere& a, double height);
// Metres of a ray from radius r, with the cosine of its angle from the vertical, to the ground (or -1) and to
// space.
double to_ground(const atmosphere& a, double r, double cosine);
double to_space(const atmosphere& a, double r, double cosine);
// Amounts from radius r to space; a ray below the horizon is taken as the horizon's.
amounts column_to_space(const atmosphere& a, double r, double cosine);
spectrum optical_depth(const atmosphere& a, const amounts& along);
// Of sunlight at a place, for the cosine of the sun's angle from the vertical: 0 in the planet's shadow, with
// the width of the sun's disc.
spectrum sun_transmittance(const atmosphere& a, double r, double cosine);
// Degrees below the horizontal at which the ground's edge is seen.
double horizon_dip(const atmosphere& a, double height);
