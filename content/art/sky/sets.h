// The sets of sky images and light tables that the simulator mixes.
// Role: what is seen at each place of the pictures; knows nothing of files.
#pragma once
#include <string>
#include <vector>

#include "eye.h"
#include "light.h"

constexpr int sky_columns = 64, sky_heights = 16, sky_frames = 16;
constexpr int light_columns = 64, light_rows = 512;
enum light_column {
    sun_ambient = 3,
    sun_direct = 8,
    sun_disc = 13,
    moon_disc = 18,
    water = 23,
    cloud_dark = 28,
    cloud_light = 33,
    moon_light = 38
};

struct sky_set {
    std::string planet, name;  // "Earth", "earth_clean"
    std::vector<shade> sky;    // [frame][height][column], heights upwards
    std::vector<shade> light;  // [row][column], rows upwards
    const shade& sky_at(int frame, int height, int column) const {
        return sky[(frame * sky_heights + height) * sky_columns + column];
    }
    const shade& light_at(int row, int column) const { return light[row * light_columns + column]; }
};
// All seven.
std::vector<sky_set> make_sets();

// Sun's elevation, degrees, that a frame or a row stands for, as the simulator counts them.
double sun_of_frame(int frame);
double sun_of_row(int row);
