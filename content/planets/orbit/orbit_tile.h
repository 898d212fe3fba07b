// One square of 10 degrees as it is seen from orbit.
#pragma once
#include <string>

#include "colour_layers.h"
#include "elevation.h"
#include "land_map.h"

constexpr int square_degrees = 10;

struct orbit_sources {
    const shores& coast;
    const elevation& heights;
    const colour_layers& colours;
};

// False, and nothing written, when the square shows nothing but the deep sea. The file's name is that of the
// square's south-western corner. Throws std::runtime_error.
bool draw_square(const orbit_sources& from, int south, int west, const std::string& folder);
// The picture of all squares without their own.
void draw_ocean(const colour_layers& colours, const std::string& path);
