// Outlines of regions.
#include "regions.h"

#include <math.h>

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "data_file.h"

regions::regions(const std::string& path) {
    static const char* const kinds[region_kinds_DIM] = {"desert", "dunes",  "irrigated",
                                                        "moist",  "plains", "ice"};
    for (const std::vector<std::string>& row : csv_rows(path, 3)) {
        outline o{};
        const auto found = std::find(kinds, kinds + region_kinds_DIM, row[0]);
        o.kind = static_cast<region_kind>(found - kinds);
        std::istringstream numbers(row[2]);
        for (corner c; numbers >> c.lat >> c.lon;) {
            o.corners.push_back(c);
            o.south = std::min(o.south, c.lat), o.north = std::max(o.north, c.lat);
            o.west = std::min(o.west, c.lon), o.east = std::max(o.east, c.lon);
        }
        if (o.kind == region_kinds_DIM || o.corners.size() < 3)
            throw std::runtime_error(path + ": \"" + row[0] + "," + row[1] + "\" is no region");
        outlines_.push_back(std::move(o));
    }
}

double regions::part(region_kind kind, double lat, double lon, double soft) const {
    double best = 0.0;
    for (const outline& o : outlines_) {
        if (o.kind != kind || lat < o.south - soft || lat > o.north + soft || lon < o.west - soft ||
            lon > o.east + soft)
            continue;
        bool inside = false;
        double nearest = 1.0e9;
        for (size_t n = 0, before = o.corners.size() - 1; n < o.corners.size(); before = n++) {
            const corner &a = o.corners[before], &b = o.corners[n];
            if ((a.lat > lat) != (b.lat > lat) &&
                lon < a.lon + (lat - a.lat) / (b.lat - a.lat) * (b.lon - a.lon))
                inside = !inside;
            const double dx = b.lon - a.lon, dy = b.lat - a.lat;
            const double t =
                std::clamp(((lon - a.lon) * dx + (lat - a.lat) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
            nearest = std::min(nearest, hypot(lon - a.lon - t * dx, lat - a.lat - t * dy));
        }
        const double depth = inside ? nearest : -nearest;
        best = std::max(best, std::clamp(0.5 + 0.5 * depth / soft, 0.0, 1.0));
    }
    return best;
}
