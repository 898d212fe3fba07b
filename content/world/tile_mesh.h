// Terrain of a tile as a regular mesh, from functions of the place.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "tile_writer.h"

struct mesh_source {
    int cells = 85;   // each way; 51, 85 and 255 have points that the file holds exactly
    int patches = 8;  // each way
    std::function<double(double lat, double lon)> height;   // metres
    std::function<int(double lat, double lon)> land_class;  // index into terrain, by a cell's middle
    std::vector<std::string> terrain = {"terrain_Water"};   // class 0 is the water
};

// The unit normal's east and south parts, by central differences over some 110 metres of the Earth.
void set_normal(const std::function<double(double lat, double lon)>& height, double degree_metres,
                tile_point* p);

// Base patches of all classes, in strips along the rows. Heights and normals are those of the functions, so
// that neighbouring tiles of one source meet.
void write_mesh(tile_writer* writer, const mesh_source& source);
