// Shores of the sea and of lakes.
// Role: tells for the nodes of a window what is land and what is water, and where shores cross the lines
// between nodes. Reads GSHHG in its binned netCDF-4 form, in place.
#pragma once
#include <memory>
#include <string>

#include "node_window.h"

constexpr const char* shores_path = "/usr/share/gmt-gshhg/binned_GSHHS_h.nc";

struct shore_node {
    unsigned char level = 0;  // 0 sea, 1 land, 2 lake, 3 island in it, 4 pond on that
    // Where a shore crosses the line to the eastern and northern neighbour, in parts of 257; 0 nowhere.
    short east = 0, north = 0;
    int lake = 0;  // number of the lake whose water this is; 0 unknown or none
    bool land() const { return level % 2 == 1; }
};

struct shore_data;
class shores {
public:
    // Throws std::runtime_error that names the package when the file is not there or is not whole.
    explicit shores(const std::string& path = shores_path);
    ~shores();
    shores(const shores&) = delete;
    shores& operator=(const shores&) = delete;

    node_values<shore_node> nodes(const node_window& window) const;
    // Stretches of land along the rows of nodes of a square of 2 degrees, from south to north, in parts of
    // the square's width; the square by half the degrees of its south-western corner.
    struct stretch {
        double west, east;
    };
    std::vector<std::vector<stretch>> land_rows(int south, int west) const;
    // Some points of a lake's shore over all the Earth, degrees.
    struct place {
        double lat, lon;
    };
    std::vector<place> lake_shore(int lake) const;
    double lake_area(int lake) const;  // km2

private:
    std::unique_ptr<shore_data> data_;
};
