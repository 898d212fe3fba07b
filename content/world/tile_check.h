// What every tile must hold, asked of the file through the simulator's own decoder.
#pragma once
#include <string>

#include "tile_writer.h"

// Empty when good, otherwise what is wrong: all that was asked for comes back within half a step of the file,
// nothing else does, and the terrain is such as the simulator wants it. edges may be null.
std::string check_tile(const std::string& path, const tile_writer& meant, tile_edges* edges);

// The same of two neighbours' common border: the points of both stand at the same places, heights and slopes.
std::string check_border(const tile_edges::border& a, const tile_edges::border& b, double slack);
