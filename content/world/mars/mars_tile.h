// Tiles of Mars.
#pragma once
#include "earth_tile.h"

// As make_earth_tiles, into FOLDER/Mars nav data.
void make_mars_tiles(const std::vector<tile_place>& tiles, const std::string& folder,
                     const std::string& apt_path, const tile_progress& progress);
