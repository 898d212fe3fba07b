// How much of each texel of a map is land.
#pragma once
#include <vector>

#include "shores.h"

// A map of whole even degrees in longitude and latitude, north in the first row.
struct map_window {
    int south, west, height, width;  // degrees; all even
    int dx, dy;                      // texels
};

// 0 to 1; lakes are no land.
std::vector<float> land_parts(const shores& from, const map_window& window);
