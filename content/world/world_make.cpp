// The worlds that consist of terrain alone.
#include "world_make.h"

#include <math.h>

#include <algorithm>
#include <stdexcept>

#include "tile_mesh.h"
#include "world_package.h"
#include "wrap_noise.h"

namespace {
constexpr double radians = 0.017453292519943295;
constexpr int home_lat = 34, home_lon = -118;  // corner of the tile that most worlds use
constexpr double middle_lat = 34.5, middle_lon = -117.5;
constexpr int grass_repeat = 400, sand_repeat = 250;  // metres

// Metres between two places of the Earth, on a map that is true at the middle of the home tile.
double metres_from_middle(double lat, double lon) {
    const double east = (lon - middle_lon) * degree_metres_earth * cos(middle_lat * radians);
    return hypot(east, (lat - middle_lat) * degree_metres_earth);
}

void write_tile(world_package* package, int lat, int lon, double ele_min, double ele_max,
                const mesh_source& source, bool is_mars = false) {
    tile_writer tile(lat, lon, ele_min, ele_max);
    if (is_mars) tile.set_degree_metres(degree_metres_mars);
    write_mesh(&tile, source);
    package->add_tile(tile, is_mars);
}

int always_land(double, double) { return 1; }

void make_cone(world_package* package) {
    package->add_ground(ground::grass, grass_repeat);
    mesh_source source;
    source.height = [](double lat, double lon) {
        constexpr double plain = 200.0, rise = 1600.0, radius = 30000.0;  // metres
        return plain + rise * std::max(0.0, 1.0 - metres_from_middle(lat, lon) / radius);
    };
    source.land_class = always_land;
    source.terrain = {"terrain_Water", world_package::ground_name(ground::grass)};
    write_tile(package, home_lat, home_lon, 0.0, 2048.0, source);
}

void make_lake(world_package* package) {
    package->add_ground(ground::grass, grass_repeat);
    package->add_ground(ground::sand, sand_repeat);
    static constexpr double level = 372.0, radius = 12000.0, beach = 3500.0;  // metres
    mesh_source source;
    // the lowest value that the file can hold, so that the level is exact; level ground as far as the water's
    // cells reach
    source.height = [](double lat, double lon) {
        constexpr double slope = 0.012, flat = 1800.0, highest = 180.0;
        return level + std::clamp(slope * (metres_from_middle(lat, lon) - radius - flat), 0.0, highest);
    };
    source.land_class = [](double lat, double lon) {
        const double away = metres_from_middle(lat, lon) - radius;
        return away < 0.0 ? 0 : away < beach ? 2 : 1;
    };
    source.terrain = {"terrain_Water", world_package::ground_name(ground::grass),
                      world_package::ground_name(ground::sand)};
    write_tile(package, home_lat, home_lon, level, level + 256.0, source);
}

// Metres inland of a winding shore.
double inland(double lat, double lon) {
    return (lat - 34.4 - 0.06 * sin(11.0 * lon) - 0.025 * sin(29.0 * lon)) * degree_metres_earth;
}

void make_coast(world_package* package) {
    package->add_ground(ground::grass, grass_repeat);
    package->add_ground(ground::sand, sand_repeat);
    mesh_source source;
    source.height = [](double lat, double lon) {
        constexpr double slope = 0.01, flat = 1800.0;
        return std::max(0.0, slope * (inland(lat, lon) - flat));
    };
    source.land_class = [](double lat, double lon) {
        constexpr double beach = 3000.0;
        const double away = inland(lat, lon);
        return away < 0.0 ? 0 : away < beach ? 2 : 1;
    };
    source.terrain = {"terrain_Water", world_package::ground_name(ground::grass),
                      world_package::ground_name(ground::sand)};
    write_tile(package, home_lat, home_lon, 0.0, 1024.0, source);
}

double rolling(double lat, double lon) {
    return 300.0 + 700.0 * noise::fractal((lon + 180.0) * 14.0, (lat + 90.0) * 17.0, 4, 301);
}

mesh_source hills(int cells) {
    mesh_source source;
    source.cells = cells;
    source.height = rolling;
    source.land_class = always_land;
    source.terrain = {"terrain_Water", world_package::ground_name(ground::grass)};
    return source;
}

void make_pair(world_package* package) {
    package->add_ground(ground::grass, grass_repeat);
    for (const int lon : {home_lon, home_lon + 1}) write_tile(package, home_lat, lon, 0.0, 1024.0, hills(85));
}

void make_large(world_package* package) {
    package->add_ground(ground::grass, grass_repeat);
    write_tile(package, home_lat, home_lon, 0.0, 1024.0, hills(255));
}

// Bowls with a raised rim, one at most in each cell of a lattice.
double craters(double lat, double lon) {
    constexpr double lattice = 0.17;  // degrees
    const double u = lon / lattice, v = lat / lattice;
    double sum = 0.0;
    for (int j = static_cast<int>(floor(v)) - 1; j <= floor(v) + 1; ++j)
        for (int i = static_cast<int>(floor(u)) - 1; i <= floor(u) + 1; ++i) {
            const double radius = 0.12 + 0.38 * noise::hash(i, j, 312) * noise::hash(i, j, 313);
            const double away =
                hypot(u - i - noise::hash(i, j, 310), v - j - noise::hash(i, j, 311)) / radius;
            const double depth = 1500.0 * radius;
            if (away < 1.0)
                sum += depth * (1.35 * away * away - 1.0);
            else
                sum += 0.35 * depth * (1.0 - noise::smooth(1.0, 1.9, away));
        }
    return sum;
}

void make_mars(world_package* package) {
    package->add_ground(ground::mars, 500);
    mesh_source source;
    source.height = [](double lat, double lon) {
        constexpr double plain = -4000.0;
        return plain + craters(lat, lon) + 500.0 * noise::fractal(lon * 6.0, lat * 6.0, 4, 314);
    };
    source.land_class = always_land;
    source.terrain = {"terrain_Water", world_package::ground_name(ground::mars)};
    constexpr int lat = -11, lon = -73;
    write_tile(package, lat, lon, -8192.0, 0.0, source, true);
}
}  // namespace

const std::vector<world_entry>& all_worlds() {
    static const std::vector<world_entry> worlds = {
        {"cone", "a mountain of closed form, 34.5 N 117.5 W", make_cone},
        {"lake", "a round lake above the sea, 34.5 N 117.5 W", make_lake},
        {"coast", "land that falls to the sea, with a beach, +34-118", make_coast},
        {"pair", "rolling hills over the edge of two tiles, +34-118 and +34-117", make_pair},
        {"large", "a tile of 130,050 triangles, +34-118", make_large},
        {"mars", "craters of Mars, -11-073", make_mars},
        {"scene", "hills, woods, rocks, a lake and a village to look at, 34.1 N 117.3 W", make_scene},
    };
    return worlds;
}

void make_world(const std::string& name, const std::string& folder) {
    const std::vector<world_entry>& worlds = all_worlds();
    const auto found =
        std::find_if(worlds.begin(), worlds.end(), [&](const world_entry& w) { return name == w.name; });
    if (found == worlds.end()) throw std::runtime_error("there is no world " + name);
    world_package package(folder);
    found->make(&package);
}
