// The pictures of effects. Each goes to its path below FOLDER, the world's pictures; throws
// std::runtime_error.
#pragma once
#include <string>

// clouds.cpp: sheets that repeat, puffs, smoke
void draw_clouds(const std::string& folder);
// fire.cpp: flames of engines, s across and t from the nozzle, and fire on the ground
void draw_fires(const std::string& folder);
// glass.cpp: what covers the windshield, and the grain of the image intensifier
void draw_glass(const std::string& folder);
// overlays.cpp: fence, propeller's disc, snow, wake, landing light, cables
void draw_overlays(const std::string& folder);
// things.cpp: buildings, decks, cars, a person, parachute, balloons
void draw_things(const std::string& folder);
// movie.cpp: a small film of 35 frames
void draw_movie(const std::string& folder);
// maps.cpp: paper of three charts, and the sectional's colours of heights
void draw_maps(const std::string& folder);
