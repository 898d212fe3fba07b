// What a tile holds, counted.
#pragma once
#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "tile_file.h"

enum definition_kind : int { def_terrain, def_object, def_polygon, def_network, def_DIM };

struct definition {
    std::string name;
    long uses = 0, triangles = 0;
};

// Grows around what is put into it.
struct range {
    double min = 1e30, max = -1e30;
    void grow(double value) {
        if (value < min) min = value;
        if (value > max) max = value;
    }
    bool holds_any() const { return min <= max; }
    double size() const { return max - min; }
};
struct area {
    range lon, lat;
    void grow(const double* lon_lat) {
        lon.grow(lon_lat[0]);
        lat.grow(lon_lat[1]);
    }
};

// Patches alike: terrain, flags, near and far distance, coordinates of a vertex.
using patch_kind = std::tuple<unsigned, unsigned char, double, double, int>;
struct patch_sum {
    long patches = 0, vertices = 0, triangles = 0;
    long primitives[3] = {};  // by dsf_primitive
    double largest = 0.0;     // diameter, m
};

struct road_sum {
    long segments = 0, shape_points = 0;
    double metres = 0.0;
};

struct pool_facts {
    int bits = 16, planes = 0, points = 0;
    size_t bytes = 0;
    std::vector<std::pair<double, double>> scaling;  // scale and offset of each plane
};

struct tile_survey {
    double metres_per_degree = earth_degree;  // along a meridian
    std::vector<std::pair<std::string, std::string>> properties;
    std::vector<definition> definitions[def_DIM];
    long undefined[def_DIM] = {};  // uses of definitions that are not there
    std::vector<pool_facts> pools;
    std::map<patch_kind, patch_sum> patches;
    std::map<unsigned, road_sum> roads;  // by subtype
    long objects = 0, polygons = 0, windings = 0, corners = 0;
    range elevation;
    area mesh, things;  // extents of the vertices; of objects, polygons and roads

    patch_sum all_patches() const;
    area extent;  // degrees: what the properties say if they say it well, else what the mesh covers
    bool has_extent() const { return extent.lon.holds_any(); }
};

// Throws std::runtime_error for a bad tile.
tile_survey survey_tile(const tile_file& file, double metres_per_degree);
