// Terrain of a tile from heights and land classes at the nodes.
#pragma once
#include "node_window.h"
#include "tile_writer.h"

constexpr unsigned char cover_water = 255;

struct ground_node {
    float height = 0;  // metres
    float nx = 0, nz = 0;
    // Where a shore crosses the line to the eastern and northern neighbour, in parts of 257.
    short east = 0, north = 0;
    unsigned char cover = 0;  // land_class, or cover_water
};

// `nodes` are the 256 x 256 of the tile and one more all round. Shores are cut exactly; open water is coarse.
// Later classes lie over earlier ones with soft borders.
void write_ground(tile_writer* writer, const node_values<ground_node>& nodes);
