// Sunlight scattered by the air, as often as it may be.
// Role: from an atmosphere to radiance in a direction and to irradiance; knows nothing of pictures.
#pragma once
#include <vector>

#include "atmosphere.h"

// Angles in degrees; azimuth from the sun's. Heights in metres.
struct lit_air {
    atmosphere air;
    std::vector<spectrum> gathered;    // logarithm of the mean radiance of all directions, by height and sun
    std::vector<spectrum> lit_ground;  // radiance of the ground, by sun
};
lit_air light_up(const atmosphere& a);

// W/m2/nm/sr.
spectrum radiance(const lit_air& lit, double height, double elevation, double azimuth, double sun_elevation);
// Of a square to the sun, W/m2/nm, with the refraction of the planet's air at the ground.
spectrum beam(const lit_air& lit, double height, double sun_elevation);

struct irradiances {
    spectrum level;     // of all the sky on level ground
    spectrum from_sun;  // what a wall that faces the sun's azimuth gets more than its back
};
irradiances sky_irradiance(const lit_air& lit, double height, double sun_elevation);

// Does it for each of 0 to count - 1, on all processors.
void in_parallel(int count, void (*one)(int i, void* with), void* with);
template <class work>
void in_parallel(int count, work&& one) {
    in_parallel(
        count, [](int i, void* with) { (*static_cast<work*>(with))(i); }, &one);
}
