// Magnetic variation of the Earth.
#pragma once

// 5 degrees apart, south to north from -90, west to east from -180; added to a true heading gives the
// magnetic one, degrees. Computed in the build from the World Magnetic Model.
constexpr int mag_lats = 37, mag_lons = 73;
extern const float raw_mag_var[mag_lats][mag_lons];

// At a place in degrees, bilinear in the table.
float magnetic_variation(double lat, double lon);
