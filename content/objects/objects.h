// The parts of the program that makes the default objects.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "shape.h"

// The fields of the navaids' texture.
constexpr cell wall{0, 3}, wall_door{1, 3}, wall_vent{2, 3}, roof{3, 3};
constexpr cell lattice_steel{0, 2}, lattice_red{1, 2}, lattice_white{2, 2}, fence_mesh{3, 2};
constexpr cell concrete{0, 1}, gravel{1, 1}, radome{2, 1}, steel_mesh{3, 1};
constexpr cell bands{0, 0}, steel{1, 0}, insulator{2, 0}, orange{3, 0};
// Those of the samples' texture.
constexpr cell brick{0, 1, 2}, windows{1, 1, 2}, deck{0, 0, 2}, enamel{1, 0, 2};

// pictures.cpp: both textures by day and by night, into a folder.
void draw_pictures(const std::string& folder);
// navaids.cpp: the aerials and huts that stand where the radio aids are.
void write_navaids(const std::string& folder);
// samples.cpp: what the navaids do not use of the format.
void write_samples(const std::string& folder);
// airport_objects.cpp: beacons, windsocks, buoys and signs, the signs' texture, and all their names below
// "lib/airport/".
void draw_sign_pictures(const std::string& folder);
void write_airport_objects(const std::string& folder);
std::vector<std::string> airport_object_names();
