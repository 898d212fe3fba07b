// Rules of land cover: climate from latitude, height and outlines, then the lie of the land, then people.
#include "land_cover.h"

#include <math.h>

#include <algorithm>
#include <iterator>

#include "ground_mesh.h"
#include "land_classes.h"
#include "sphere_noise.h"

namespace {
constexpr double radians = 0.017453292519943295;
constexpr double node_metres = earth_degree_metres / nodes_per_degree;

struct table_row {
    double at, value;
};
template <size_t rows>
double table(const table_row (&t)[rows], double at) {
    if (at <= t[0].at) return t[0].value;
    for (size_t n = 1; n < rows; ++n)
        if (at < t[n].at)
            return t[n - 1].value +
                   (t[n].value - t[n - 1].value) * (at - t[n - 1].at) / (t[n].at - t[n - 1].at);
    return t[rows - 1].value;
}

// By latitude. Snow as late winter leaves it outside the tropics; trees as far up as they grow.
constexpr table_row snow_metres[] = {{0, 4900},  {20, 5000}, {30, 4000}, {34, 2950}, {40, 2850},
                                     {46, 2400}, {55, 1400}, {62, 900},  {70, 450},  {80, 50}};
constexpr table_row tree_metres[] = {{0, 3800},  {20, 3900}, {35, 3250}, {40, 3000}, {46, 2100},
                                     {55, 1250}, {63, 700},  {68, 300},  {71, 0}};
// 0 desert to 1 rain forest, away from named regions.
constexpr table_row moisture_by_latitude[] = {{0, 1.0},   {8, 0.85},  {14, 0.5},  {20, 0.34}, {30, 0.33},
                                              {36, 0.40}, {43, 0.55}, {60, 0.60}, {72, 0.45}};

// One node as the rules see it.
struct site {
    double lat, height, slope, moisture, temperature, to_water, to_sea;
    double irrigated, dunes, plains, ice;
    double open_sea;     // share of sea in some 3 km about a place near the sea
    double broad, fine;  // noise, 0 to 1, of some 9 km and some 2 km
    double upstream;     // nodes that drain through it
};

double clamp_part(double from, double to, double v) { return std::clamp((v - from) / (to - from), 0.0, 1.0); }

land_class cold_or_high(const site& s, double trees, double snow) {
    if (s.ice > 0.5 || s.lat < -62.0) return s.slope > 0.55 && s.fine > 0.5 ? land_rock : land_ice;
    if (s.height > snow + 500.0 * (s.fine - 0.5)) return s.slope > 0.75 ? land_rock : land_snow;
    if (s.slope > 0.5 || s.height > trees + 350.0 || s.fine > 0.55) return land_rock;
    return fabs(s.lat) > 55.0 ? land_tundra : land_grass_green;
}

land_class of_desert(const site& s) {
    if (s.irrigated > 0.5 && s.slope < 0.04) return s.broad > 0.62 ? land_orchard : land_farm_dry;
    if (s.dunes > 0.5 && s.slope < 0.12) return land_dunes;
    if (s.slope > 0.10 + 0.06 * (s.fine - 0.5)) return land_desert_rock;
    if (s.broad < 0.14 && s.fine < 0.6 && s.slope > 0.012) return land_desert_rock;  // stony plains
    if (s.upstream > 250.0 && s.slope < 0.05) return land_wash;
    if (s.height > 1350.0 && s.moisture > 0.17) return s.fine > 0.5 ? land_scrub : land_desert;
    return land_desert;
}

// Dry summers: golden hills, chaparral, oaks, and pines above.
land_class of_dry_country(const site& s) {
    const double wooded = s.height + 500.0 * (s.fine - 0.5);
    if (wooded > 1750.0) {
        if (s.slope > 0.38 && s.fine > 0.62) return land_rock;
        return s.fine < 0.28 && s.broad < 0.6 ? land_woods_open : land_forest_conifer;
    }
    if (wooded > 1300.0 && s.slope > 0.05) return s.fine > 0.62 ? land_scrub : land_woods_open;
    if (s.slope > 0.42 && s.fine > 0.72) return land_rock;
    if (fabs(s.lat) < 25.0) return s.slope > 0.15 ? land_scrub : land_savanna;
    if (s.slope > 0.065) return s.broad + 0.3 * (s.moisture - 0.33) > 0.60 ? land_woods_open : land_scrub;
    if (s.irrigated > 0.5) return s.broad > 0.55 ? land_orchard : land_farm_dry;
    if (s.upstream > 700.0 && s.slope < 0.03) return land_wash;
    if (s.slope < 0.03 && s.broad > 0.56) return s.plains > 0.5 ? land_farm_square : land_farm_dry;
    if (s.slope < 0.03 && s.broad < 0.36) return land_orchard;
    return s.fine > 0.55 ? land_scrub : land_grass_dry;
}

land_class of_moist_country(const site& s) {
    const bool flat = s.slope < 0.045;
    if (s.temperature < 2.5)
        return flat && s.fine > 0.66 ? land_marsh : s.temperature < -7.0 ? land_tundra : land_forest_conifer;
    if (flat && s.height < 12.0 && s.to_water < 2500.0 && s.fine > 0.62) return land_marsh;
    if (flat && s.upstream > 1500.0) return s.fine > 0.6 ? land_marsh : land_forest_broad;  // along rivers
    if (s.temperature > 19.0 && s.moisture > 0.68)
        return flat && s.broad > 0.60 ? land_farm_green : land_jungle;
    if (s.temperature > 18.0 && s.moisture < 0.68)
        return flat && s.broad > 0.58 ? land_farm_green : land_savanna;
    if (flat && s.plains > 0.5) return s.broad > 0.30 ? land_farm_square : land_grass_green;
    if (flat && s.broad > 0.42) return land_farm_green;
    if (s.slope < 0.12 && s.fine > 0.58) return land_grass_green;
    if (s.slope > 0.62 && s.fine > 0.55) return land_rock;
    if (s.temperature > 10.0 && s.slope < 0.25 && s.broad > 0.60) return land_farm_green;  // terraces
    if (s.slope < 0.35 && s.fine > 0.74) return land_grass_green;                          // pastures
    return s.temperature < 6.0 || s.height > 900.0 ? land_forest_conifer : land_forest_broad;
}

// Harbours and lagoons have none.
bool is_beach(const site& s) {
    return s.to_sea < 520.0 && s.open_sea > 0.36 && s.slope < 0.05 && s.broad > 0.30 && fabs(s.lat) < 62.0;
}

land_class natural(const site& s) {
    const double snow = table(snow_metres, fabs(s.lat)), trees = table(tree_metres, fabs(s.lat));
    if (s.ice > 0.5 || s.lat < -62.0 || s.height > snow + 500.0 * (s.fine - 0.5) ||
        s.height > trees + 300.0 * (s.fine - 0.5))
        return cold_or_high(s, trees, snow);
    if (s.moisture < 0.22) return of_desert(s);
    if (s.moisture < 0.43) return of_dry_country(s);
    return of_moist_country(s);
}

class cover_maker {
public:
    cover_maker(const relief::ground& ground, const known_places& places, const regions& outlines)
        : g_(ground), outlines_(outlines), cover_(ground.height.window, cover_water) {
        const node_window& w = window();
        const double lat = w.lat(w.rows / 2), lon = w.lon(w.columns / 2),
                     half = 0.5 * w.rows / nodes_per_degree;
        towns_ = places.towns.near(lat, lon, half + 0.8);
        salt_ = places.salt_lakes.near(lat, lon, half + 0.5);
        airports_ = places.airports.near(lat, lon, half + 0.1);
        for (const known_airport& a : airports_) {  // a place without a name on the list has people too
            constexpr int people = 20000;
            if (a.strips.size() > 2) towns_.push_back({a.lat, a.lon, people});
        }
    }

    node_values<unsigned char> make() {
        for (int j = 0; j < window().rows; ++j)
            for (int i = 0; i < window().columns; ++i)
                if (g_.shore.at(j, i).land()) cover_.at(j, i) = static_cast<unsigned char>(class_at(j, i));
        drop_specks();
        lay_airfields();
        return cover_;
    }

private:
    // A class on two nodes or three would show as no more than the ghost of its soft border. What is narrow
    // by nature stays.
    void drop_specks() {
        const node_values<unsigned char> before = cover_;
        const node_window& w = window();
        constexpr int fewest = 3;  // neighbours of its own class
        for (int j = 1; j + 1 < w.rows; ++j)
            for (int i = 1; i + 1 < w.columns; ++i) {
                const int own = before.at(j, i);
                if (own < land_grass_green || own == cover_water || own == land_forest_broad ||
                    own == land_marsh || own == land_wash || own == land_beach)
                    continue;
                int counts[land_classes_DIM] = {}, best = own;
                for (int dj = -1; dj <= 1; ++dj)
                    for (int di = -1; di <= 1; ++di) {
                        const int cover = before.at(j + dj, i + di);
                        if (cover != cover_water && (dj || di)) ++counts[cover];
                    }
                if (counts[own] >= fewest) continue;
                for (int k = land_grass_green; k < land_classes_DIM; ++k)
                    if (counts[k] > counts[best]) best = k;
                cover_.at(j, i) = static_cast<unsigned char>(best);
            }
    }

    const node_window& window() const { return g_.height.window; }

    double slope_at(int j, int i) const {
        const node_window& w = window();
        const int j0 = std::max(j - 1, 0), j1 = std::min(j + 1, w.rows - 1);
        const int i0 = std::max(i - 1, 0), i1 = std::min(i + 1, w.columns - 1);
        const double side = node_metres * std::max(cos(w.lat(j) * radians), 0.02);
        return hypot((g_.height.at(j1, i) - g_.height.at(j0, i)) / ((j1 - j0) * node_metres),
                     (g_.height.at(j, i1) - g_.height.at(j, i0)) / ((i1 - i0) * side));
    }

    double sea_about(int j, int i) const {
        const node_window& w = window();
        constexpr int up = 7;  // nodes
        const int across = static_cast<int>(up / std::max(cos(w.lat(j) * radians), 0.1));
        int sea = 0, all = 0;
        for (int y = std::max(j - up, 0); y <= std::min(j + up, w.rows - 1); ++y)
            for (int x = std::max(i - across, 0); x <= std::min(i + across, w.columns - 1); ++x, ++all)
                sea += g_.shore.at(y, x).level == 0;
        return static_cast<double>(sea) / all;
    }

    site site_at(int j, int i, const sphere_noise::place& p) const {
        const double lat = window().lat(j), lon = window().lon(i);
        site s{};
        s.lat = lat;
        s.height = g_.height.at(j, i);
        s.slope = slope_at(j, i);
        s.to_water = g_.to_water.at(j, i);
        s.to_sea = g_.water_level.at(j, i) == 0.0f ? s.to_water : 1.0e9;
        s.open_sea = s.to_sea < 1500.0 ? sea_about(j, i) : 0.0;
        s.upstream = g_.upstream.at(j, i);
        s.broad = clamp_part(0.2, 0.8, sphere_noise::fractal(p, 9000.0, 3, 511));
        s.fine = clamp_part(0.2, 0.8, sphere_noise::fractal(p, 2200.0, 2, 521));
        s.irrigated = outlines_.part(region_irrigated, lat, lon, 0.05) + 0.3 * (s.fine - 0.5);
        s.dunes = outlines_.part(region_dunes, lat, lon, 0.05);
        s.plains = outlines_.part(region_plains, lat, lon, 0.5);
        s.ice = outlines_.part(region_ice, lat, lon, 0.5);
        const double usual = table(moisture_by_latitude, fabs(lat));
        const double desert = outlines_.part(region_desert, lat, lon, 0.10),
                     moist = outlines_.part(region_moist, lat, lon, 1.0);
        s.moisture = usual + moist * std::max(0.72 - usual, 0.0);
        s.moisture += desert * (0.10 - s.moisture) + 0.04 * (s.broad - 0.5);
        s.moisture += 0.06 * clamp_part(1000.0, 3000.0, s.height) +
                      0.10 * desert * clamp_part(1300.0, 2300.0, s.height);
        s.temperature = 28.0 - 46.0 * pow(sin(fabs(lat) * radians), 3.0) + 4.0 * moist - 0.006 * s.height;
        return s;
    }

    // Town, or nothing where nobody builds.
    int settled(const site& s, double lat, double lon) const {
        if (s.slope > 0.075) return -1;
        constexpr int port_people = 150000;
        // towns that lie close together fill what is between them
        double nearest = 9.0, sum = 0.0;
        bool is_port = false;
        for (const known_town& t : towns_) {
            // from the middle to the rim, metres, as densely as towns are built
            const double reach = std::max(1500.0, 15.0 * sqrt(t.people));
            if (fabs(lat - t.lat) * earth_degree_metres > 1.5 * reach) continue;
            const double away = metres_between(lat, lon, t.lat, t.lon) / reach +
                                (reach > 6000.0 ? 0.4 * (s.broad - 0.5) : 0.6 * (s.fine - 0.5));
            nearest = std::min(nearest, away);
            is_port |= away < 1.0 && t.people >= port_people;
            if (away < 1.5) sum += (1.0 - away * away / 2.25) * (1.0 - away * away / 2.25);
        }
        constexpr double rim = 0.31, fields = 0.36;  // of one town: at its reach, and a little within
        if (sum < rim) return -1;
        const bool dry = s.moisture < 0.44;
        if (sum < fields) return land_village;
        // broken shores of large towns are built over with quays
        if (is_port && s.to_sea < 900.0 && s.open_sea > 0.10 && s.open_sea < 0.36) return land_industry;
        if (nearest < 0.10) return land_city;
        if (s.fine > 0.80 && s.slope < 0.025) return land_industry;
        return dry ? land_suburb_dry : land_suburb;
    }

    land_class class_at(int j, int i) const {
        const double lat = window().lat(j), lon = window().lon(i);
        const sphere_noise::place p = sphere_noise::at(lat, lon);
        const site s = site_at(j, i, p);
        for (const known_point& lake : salt_)
            if (metres_between(lat, lon, lake.lat, lake.lon) < lake.reach * (0.7 + 0.6 * s.fine))
                return land_salt;
        if (is_beach(s)) return land_beach;
        const int town = settled(s, lat, lon);
        return town >= 0 ? static_cast<land_class>(town) : natural(s);
    }

    void lay_airfields() {
        const node_window& w = window();
        for (const known_airport& a : airports_) {
            const double side = node_metres * std::max(cos(a.lat * radians), 0.02);
            const int up = 14, across = static_cast<int>(6000.0 / side);
            const int j0 = static_cast<int>((a.lat - w.lat(0)) * nodes_per_degree);
            const int i0 = static_cast<int>((a.lon - w.lon(0)) * nodes_per_degree);
            for (int j = std::max(j0 - up, 0); j < std::min(j0 + up + 1, w.rows); ++j)
                for (int i = std::max(i0 - across, 0); i < std::min(i0 + across + 1, w.columns); ++i) {
                    if (!g_.shore.at(j, i).land() || metres_from(a, w.lat(j), w.lon(i)) > 300.0) continue;
                    const site s = site_at(j, i, sphere_noise::at(w.lat(j), w.lon(i)));
                    cover_.at(j, i) = s.moisture < 0.43 ? land_airfield_dry : land_airfield;
                }
        }
    }

    const relief::ground& g_;
    const regions& outlines_;
    node_values<unsigned char> cover_;
    std::vector<known_town> towns_;
    std::vector<known_point> salt_;
    std::vector<known_airport> airports_;
};
}  // namespace

node_values<unsigned char> land_cover(const relief::ground& ground, const known_places& places,
                                      const regions& outlines) {
    return cover_maker(ground, places, outlines).make();
}
