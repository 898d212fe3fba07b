// Borders of the tiles so far, which later ones must meet.
#pragma once
#include <map>
#include <string>
#include <utility>

#include "tile_writer.h"

class tile_borders {
public:
    // Writes a tile to its place under a planet's folder ("Earth nav data/"), which is made, and compares its
    // borders with those of the neighbours that came before. Gives the file's name; a fault is thrown as
    // std::runtime_error.
    std::string write(const tile_writer& tile, const std::string& planet_folder);

private:
    std::map<std::pair<int, int>, tile_edges> edges_;  // by latitude and longitude
};
