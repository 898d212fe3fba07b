// The show piece: a tile with land to look at around 34.1 N 117.3 W.
#include <math.h>

#include <algorithm>
#include <string>
#include <vector>

#include "blend_mesh.h"
#include "tile_mesh.h"
#include "world_make.h"
#include "world_package.h"
#include "wrap_noise.h"

namespace {
constexpr int corner_lat = 34, corner_lon = -118;
constexpr double focus_lat = 34.1, focus_lon = -117.3;
constexpr double east_metres = degree_metres_earth * 0.8280710,
                 north_metres = degree_metres_earth;  // cos 34.1

// Metres east and north of the focus.
struct place {
    double x, y;
};
place place_of(double lat, double lon) {
    return {(lon - focus_lon) * east_metres, (lat - focus_lat) * north_metres};
}
double lat_of(const place& p) { return focus_lat + p.y / north_metres; }
double lon_of(const place& p) { return focus_lon + p.x / east_metres; }
double distance(const place& a, const place& b) { return hypot(a.x - b.x, a.y - b.y); }

// -- the land

constexpr place lake_middle = {-700, 2700}, village = {1450, 2000};
constexpr double lake_level = 340.0;

// Metres outside of the lake's shore, negative in the lake.
double from_lake(const place& p) {
    const double a = atan2(p.y - lake_middle.y, p.x - lake_middle.x);
    const double radius =
        1250.0 + 220.0 * sin(2.0 * a + 0.4) + 130.0 * sin(3.0 * a + 1.0) + 60.0 * sin(7.0 * a);
    return distance(p, lake_middle) - radius;
}

// Metres inland of the sea, which lies in the west; the mesh is coarse there.
double from_sea(const place& p) {
    return p.x + 54000.0 + 0.25 * (p.y - 20000.0) +
           9000.0 * (noise::fractal(p.x / 15000.0, p.y / 15000.0, 4, 401) - 0.5);
}

double hump(const place& p, const place& top, double height, double width) {
    const double d = distance(p, top);
    return height * exp(-d * d / (2.0 * width * width));
}

double wild_height(const place& p) {
    double h = 395.0 + 480.0 * (noise::fractal(p.x / 4400.0, p.y / 4400.0, 5, 402) - 0.45) +
               70.0 * (noise::fractal(p.x / 950.0, p.y / 950.0, 3, 403) - 0.5);
    h += hump(p, {0, -400}, 190.0, 560.0);
    h += hump(p, {3700, 300}, 260.0, 620.0) * (0.6 + 0.8 * noise::ridged(p.x / 1100.0, p.y / 1100.0, 4, 404));
    const double wander = 8000.0 * (noise::fractal(p.x / 9000.0, p.y / 9000.0, 3, 405) - 0.5);
    const double mountains = noise::smooth(3000.0, 20000.0, p.y + wander);
    return h + mountains * (250.0 + 2000.0 * noise::ridged(p.x / 14000.0, p.y / 14000.0, 6, 406));
}

// Where people settle they have levelled the ground.
double settled_height(const place& p) {
    constexpr double ground = 358.0;
    const double wild = wild_height(p);
    return ground + (wild - ground) * (0.15 + 0.85 * noise::smooth(450.0, 1300.0, distance(p, village)));
}

// Level as far as the water's cells reach, in the lake's fine and the sea's coarse mesh.
double height_at(double lat, double lon) {
    constexpr double lake_flat = 160.0, sea_flat = 1700.0;  // metres from the shore
    const place p = place_of(lat, lon);
    const double land = std::max(settled_height(p), lake_level + 5.0);
    const double above = noise::smooth(lake_flat, 1500.0, from_lake(p));
    const double dry = lake_level + (land - lake_level) * above;
    return dry * noise::smooth(sea_flat, 12000.0, from_sea(p));
}

bool is_water(double lat, double lon) {
    const place p = place_of(lat, lon);
    return from_lake(p) < 0.0 || from_sea(p) < 0.0;
}

// Metres up for each metre along.
double slope_at(double lat, double lon) {
    tile_point p;
    p.lat = lat;
    p.lon = lon;
    set_normal(height_at, degree_metres_earth, &p);
    const double across = hypot(p.nx, p.nz);
    return across / sqrt(1.0 - across * across);
}

// -- land classes; none but the sand reaches into the water

// 1 on the shore, half out into the water where cells end in steps, 0 beyond.
double shore(double from, double cell, double beach) {
    return std::min(noise::smooth(-2.0 * cell, -0.5 * cell, from),
                    1.0 - noise::smooth(0.6 * beach, beach, from));
}
double sand_weight(double lat, double lon) {
    const place p = place_of(lat, lon);
    return std::max(shore(from_lake(p), 140.0, 300.0), shore(from_sea(p), 1100.0, 3800.0));
}

double dryness(const place& p) {
    return noise::smooth(250.0, 600.0, from_lake(p)) * noise::smooth(2500.0, 5000.0, from_sea(p));
}
double scrub_weight(double lat, double lon) {
    const place p = place_of(lat, lon);
    const double patches = noise::fractal(p.x / 1500.0, p.y / 1500.0, 4, 411);
    const double high = 0.3 * noise::smooth(420.0, 800.0, height_at(lat, lon));
    const double away = noise::smooth(350.0, 800.0, distance(p, village));
    return noise::smooth(0.5, 0.64, patches + high) * dryness(p) * away;
}
double rock_weight(double lat, double lon) {
    const place p = place_of(lat, lon);
    const double ragged = noise::fractal(p.x / 900.0, p.y / 900.0, 4, 412) - 0.5;
    const double steep = noise::smooth(0.3, 0.48, slope_at(lat, lon) + 0.25 * ragged);
    const double high = noise::smooth(1500.0, 1900.0, height_at(lat, lon) + 700.0 * ragged);
    return std::max(steep, high) * dryness(p);
}

void write_land(tile_writer* tile) {
    constexpr double whole_degree = 65535.0;
    const auto lines = [](double centre) {
        constexpr int reach = 5200, finest = 97, coarsest = 771;  // 0.08, 0.0015 and 0.012 degrees
        return graded_lines(static_cast<int>(lround(centre * whole_degree)), reach, finest, coarsest);
    };
    blend_source source;
    source.columns = lines(focus_lon - corner_lon);
    source.rows = lines(focus_lat - corner_lat);
    source.height = height_at;
    source.water = is_water;
    source.classes = {{world_package::ground_name(ground::grass), nullptr},
                      {world_package::ground_name(ground::sand), sand_weight},
                      {world_package::ground_name(ground::scrub), scrub_weight},
                      {world_package::ground_name(ground::rock), rock_weight}};
    write_blend_mesh(tile, source);
}

// -- the road

// Through the control points, by Catmull and Rom's cubic, some 50 m apart.
std::vector<place> road_line() {
    const std::vector<place> via = {{-9500, -6500}, {-6200, -4300}, {-3200, -2900}, {-900, -1900},
                                    {900, -300},    {1250, 1100},   {1600, 2400},   {2500, 3900},
                                    {4200, 6300},   {6200, 8600}};
    std::vector<place> line;
    constexpr int pieces = 50;
    for (size_t n = 1; n + 2 < via.size(); ++n)
        for (int i = 0; i < pieces; ++i) {
            const double f = static_cast<double>(i) / pieces;
            const auto at = [f](double a, double b, double c, double d) {
                return b + 0.5 * f * (c - a + f * (2 * a - 5 * b + 4 * c - d + f * (3 * (b - c) + d - a)));
            };
            line.push_back({at(via[n - 1].x, via[n].x, via[n + 1].x, via[n + 2].x),
                            at(via[n - 1].y, via[n].y, via[n + 1].y, via[n + 2].y)});
        }
    return line;
}

void write_road(tile_writer* tile, const std::vector<place>& line) {
    constexpr size_t longest = 200;  // points from junction to junction
    const unsigned network = tile->network("country_road.net");
    uint32_t node = 1;
    for (size_t first = 0; first + 1 < line.size(); first += longest, ++node) {
        const size_t last = std::min(first + longest, line.size() - 1);
        std::vector<road_point> chain;
        for (size_t n = first; n <= last; ++n) {
            const double lat = lat_of(line[n]), lon = lon_of(line[n]);
            chain.push_back({lon, lat, height_at(lat, lon), n == first ? node : n == last ? node + 1 : 0});
        }
        tile->add_road(network, country_road, chain);
    }
}

double from_road(const place& p, const std::vector<place>& line) {
    double least = 1e9;
    for (const place& q : line) least = std::min(least, distance(p, q));
    return least;
}

// -- what stands about

class settler {
public:
    settler(tile_writer* tile, const std::vector<place>& road) : tile_(*tile), road_(road) {}

    void settle() {
        build_village();
        build_farms();
        build_landmarks();
        plant();
    }

private:
    void stand(const std::string& object, const place& p, double heading, double room) {
        tile_.place(tile_.object(object), lon_of(p), lat_of(p), heading);
        taken_.push_back({p, room});
    }
    bool is_free(const place& p, double room) const {
        return std::all_of(taken_.begin(), taken_.end(),
                           [&](const site& s) { return distance(p, s.at) > room + s.room; });
    }
    static bool is_dry(const place& p) { return from_lake(p) > 60.0; }

    // Beside the road at a point of it, facing it.
    void beside_road(size_t n, double away, const std::string& object, double room) {
        const place &a = road_[n], &b = road_[n + 1];
        const double along = atan2(b.x - a.x, b.y - a.y);  // from north, clockwise
        const place p = {a.x + away * cos(along), a.y - away * sin(along)};
        // an object's front looks south at heading 0
        const double facing = along / (M_PI / 180.0) + (away > 0.0 ? 90.0 : -90.0);
        if (is_dry(p) && is_free(p, room)) stand(object, p, facing, room);
    }

    void build_village() {
        constexpr double reach = 900.0;
        for (size_t n = 0; n + 1 < road_.size(); ++n) {
            if (distance(road_[n], village) > reach) continue;
            for (const double away : {-26.0, 26.0, -75.0, 70.0})
                if (noise::hash(static_cast<int>(n), static_cast<int>(away), 421) < 0.42)
                    beside_road(n,
                                away + 14.0 * noise::hash(static_cast<int>(n), static_cast<int>(away), 422),
                                "house.obj", 9.5);
        }
    }
    void build_farms() {
        for (size_t n = 20; n + 1 < road_.size(); n += 23) {
            if (distance(road_[n], village) < 1100.0) continue;
            const double side = noise::hash(static_cast<int>(n), 0, 423) < 0.5 ? -1.0 : 1.0;
            beside_road(n, side * 70.0, "barn.obj", 22.0);
            beside_road(n + 1, side * 34.0, "house.obj", 10.0);
        }
    }
    void build_landmarks() {
        stand("water_tower.obj", {village.x - 250, village.y + 380}, 0.0, 8.0);
        stand("lib/samples/chimney.obj", {village.x + 620, village.y - 480}, 30.0, 25.0);
        stand("lib/samples/chimney.obj", {village.x + 680, village.y - 540}, 30.0, 25.0);
        stand("lib/samples/picture_house.obj", {village.x + 420, village.y + 250}, 200.0, 30.0);
        stand("lib/samples/panel_desk.obj", {village.x - 190, village.y + 390}, 120.0, 3.0);
        stand("lib/samples/landing_deck.obj", {village.x - 760, village.y - 250}, 15.0, 30.0);
        stand("lib/airport/NAVAIDS/VOR.obj", {60, -420}, 0.0, 30.0);
    }

    // Oaks on the grass and the shore, pines where the scrub is; more of them where more grows.
    void plant() {
        constexpr int candidates = 2600, most = 750;
        constexpr double reach = 2600.0;
        int planted = 0;
        for (int n = 0; n < candidates && planted < most; ++n) {
            const place p = {reach * (2.0 * noise::hash(n, 0, 424) - 1.0),
                             1200.0 + reach * (2.0 * noise::hash(n, 1, 424) - 1.0)};
            const double lat = lat_of(p), lon = lon_of(p), wild = scrub_weight(lat, lon);
            const double groves = noise::smooth(0.5, 0.62, noise::fractal(p.x / 420.0, p.y / 420.0, 3, 425));
            if (noise::hash(n, 2, 424) > 0.06 + 0.5 * wild + 0.5 * groves) continue;
            if (!is_dry(p) || rock_weight(lat, lon) > 0.5 || !is_free(p, 4.0) || from_road(p, road_) < 40.0)
                continue;
            stand(wild > 0.5 ? "pine.obj" : "oak.obj", p, 360.0 * noise::hash(n, 3, 424), 2.0);
            ++planted;
        }
    }

    struct site {
        place at;
        double room;
    };
    tile_writer& tile_;
    const std::vector<place>& road_;
    std::vector<site> taken_;
};

// An irregular ring, counter-clockwise seen from above, or clockwise for a clearing in it.
tile_writer::winding ring(const place& middle, double radius, bool clearing, unsigned seed) {
    constexpr int corners = 14;
    tile_writer::winding w;
    for (int n = 0; n < corners; ++n) {
        const double a = 2.0 * M_PI * n / corners * (clearing ? -1.0 : 1.0);
        const double r = radius * (0.75 + 0.5 * noise::hash(n, 0, seed));
        const place p = {middle.x + r * cos(a), middle.y + r * sin(a)};
        tile_point point;
        point.lat = lat_of(p);
        point.lon = lon_of(p);
        w.push_back(point);
    }
    return w;
}

void write_woods(tile_writer* tile) {
    const unsigned woods = tile->polygon("woods.for");
    constexpr uint16_t density = 255;
    tile->add_polygon(woods, density,
                      {ring({-3300, 900}, 620, false, 431), ring({-3300, 900}, 180, true, 432)});
    tile->add_polygon(woods, density, {ring({-2400, -1000}, 420, false, 433)});
    tile->add_polygon(woods, density, {ring({3300, 3300}, 520, false, 434)});
}
}  // namespace

void make_scene(world_package* package) {
    package->add_ground(ground::grass, 420);
    package->add_ground(ground::sand, 250, true);
    package->add_ground(ground::scrub, 380, true);
    package->add_ground(ground::rock, 330, true);
    package->add_land_objects();
    package->add_woods();
    package->add_road();

    tile_writer tile(corner_lat, corner_lon, 0.0, 4096.0);
    write_land(&tile);
    const std::vector<place> road = road_line();
    settler(&tile, road).settle();
    write_woods(&tile);
    write_road(&tile, road);
    package->add_tile(tile);
}
