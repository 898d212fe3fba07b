// Tiles of the Earth.
#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ground_mesh.h"
#include "known_places.h"

struct tile_place {
    int lat, lon;  // south-west corner, whole degrees
};

struct made_tile {
    tile_place place;
    double seconds = 0;
    size_t bytes = 0;
};

// All that is known of the Earth's land, and its tiles. Data that are missing or damaged are thrown as
// std::runtime_error.
struct earth_sources;
class earth_land {
public:
    explicit earth_land(const std::string& apt_path);
    ~earth_land();
    earth_land(const earth_land&) = delete;
    earth_land& operator=(const earth_land&) = delete;

    // As write_ground takes them.
    node_values<ground_node> nodes(tile_place tile) const;
    const known_places& places() const;

private:
    std::unique_ptr<earth_sources> sources_;
};

// Who is told before and after each tile.
struct tile_progress {
    std::function<void(const tile_place&)> begun;
    std::function<void(const made_tile&)> done;
};

// Makes tiles into FOLDER/Earth nav data. Faults are thrown as std::runtime_error; no half tile stays.
void make_earth_tiles(const std::vector<tile_place>& tiles, const std::string& folder,
                      const std::string& apt_path, const tile_progress& progress);

// The side x side corners about the one given; those beyond the poles are left out, those beyond the date
// line wrapped.
std::vector<tile_place> block_of_tiles(int lat, int lon, int side);
// All corners of a box, both ends included; across the date line when east is less than west.
std::vector<tile_place> box_of_tiles(int south, int west, int north, int east);
