// Magnetic variation between the nodes of the table.
#include "scenery/nav/magnetic.h"

#include <math.h>

namespace {
constexpr double node_deg = 5.0;

struct table_place {
    int cell;
    double part;  // of the way to the next node
};

// Past the table's edge the edge holds.
table_place place_in(double degrees, double first, int nodes) {
    const double at = fmin(fmax((degrees - first) / node_deg, 0.0), nodes - 1.0);
    const int cell = static_cast<int>(fmin(at, nodes - 2.0));
    return {cell, at - cell};
}
}  // namespace

// Near the poles neighbouring nodes may stand on both sides of 180 degrees; the value between them is then a
// plain mean all the same.
float magnetic_variation(double lat, double lon) {
    if (!isfinite(lat) || !isfinite(lon)) return 0.0f;
    const table_place y = place_in(lat, -90.0, mag_lats), x = place_in(lon, -180.0, mag_lons);
    const auto along = [&](const float* node) {
        const double west = node[0], east = node[1];
        return west + x.part * (east - west);
    };
    const double at_south = along(raw_mag_var[y.cell] + x.cell);
    const double at_north = along(raw_mag_var[y.cell + 1] + x.cell);
    return static_cast<float>(at_south + y.part * (at_north - at_south));
}
