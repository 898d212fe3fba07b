// Terrain of a tile on a grid that may be finer where it is looked at, its land classes lying over each other
// with soft borders.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "tile_writer.h"

struct blend_class {
    std::string terrain;  // its definition has a border mask, all but the first class's
    std::function<double(double lat, double lon)> weight;  // 0 none to 1 all; not asked of the first class
};

struct blend_source {
    // Grid lines in parts of 65535 of a degree from the south-western corner; the first 0, the last 65535.
    std::vector<int> columns, rows;
    std::function<double(double lat, double lon)> height;  // metres
    std::function<bool(double lat, double lon)> water;     // by a cell's middle
    std::vector<blend_class> classes;                      // later ones lie over earlier ones
    int patch_lines = 24;                                  // at most, each way
    bool even_mask = false;  // borders run evenly along the mask instead of in stretches of their own
};

// Lines that lie `finest` apart within `reach` of `centre` (all in parts of 65535 of a degree) and farther
// apart beyond, up to `coarsest`.
std::vector<int> graded_lines(int centre, int reach, int finest, int coarsest);

// Each cell is drawn with the topmost class that covers it whole, and over it with all higher classes that
// have a part in it; those are overlays, masked by their weight. Water is the base of its cells; the first
// class has no part in them.
void write_blend_mesh(tile_writer* writer, const blend_source& source);

// The mask's second coordinate, 0 to 1, of a place in cells of the grid: back and forth, without a jump.
double mask_along(double column, double row);
