// Rules of land cover.
#include "land_cover.h"

#include <math.h>

#include <algorithm>

#include "ground_mesh.h"
#include "land_classes.h"
#include "sphere_noise.h"

namespace {
constexpr double radians = 0.017453292519943295;
constexpr double node_metres = earth_degree_metres / nodes_per_degree;
}  // namespace

node_values<unsigned char> land_cover(const relief::ground& g, const known_places& places, const rivers&) {
    const node_window& w = g.height.window;
    node_values<unsigned char> cover(w, cover_water);
    const double mid_lat = w.lat(w.rows / 2), mid_lon = w.lon(w.columns / 2);
    const auto towns = places.towns.near(mid_lat, mid_lon, 1.5);
    for (int j = 0; j < w.rows; ++j)
        for (int i = 0; i < w.columns; ++i) {
            if (!g.shore.at(j, i).land()) continue;
            const double lat = w.lat(j), lon = w.lon(i), h = g.height.at(j, i);
            const int j0 = std::max(j - 1, 0), j1 = std::min(j + 1, w.rows - 1);
            const int i0 = std::max(i - 1, 0), i1 = std::min(i + 1, w.columns - 1);
            const double slope = hypot((g.height.at(j1, i) - g.height.at(j0, i)) / ((j1 - j0) * node_metres),
                                       (g.height.at(j, i1) - g.height.at(j, i0)) /
                                           ((i1 - i0) * node_metres * std::max(cos(lat * radians), 0.02)));
            int k = slope > 0.4 ? land_rock : slope > 0.08 ? land_scrub : land_grass_dry;
            if (h > 2700) k = land_rock;
            const double n = sphere_noise::fractal(sphere_noise::at(lat, lon), 3000.0, 3, 501);
            for (const known_town& t : towns) {
                const double reach = std::max(1800.0, 12.7 * sqrt(t.people));
                const double away = metres_between(lat, lon, t.lat, t.lon) / reach + 0.5 * (n - 0.5);
                if (away < 1.0 && slope < 0.09) k = std::min<int>(k, away < 0.15 ? land_city : land_suburb_dry);
            }
            cover.at(j, i) = static_cast<unsigned char>(k);
        }
    return cover;
}
