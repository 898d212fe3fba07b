// What every tile must hold, asked of the file through the simulator's own decoder.
#pragma once
#include <string>

class tile_writer;

// Empty when good, otherwise what is wrong.
std::string check_tile(const std::string& path, const tile_writer& meant);
