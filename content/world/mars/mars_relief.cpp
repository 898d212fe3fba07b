// The shape of Mars. Places and sizes: Gazetteer of Planetary Nomenclature (IAU, USGS); heights: rounded from
// the published results of the Mars Orbiter Laser Altimeter (NASA, public domain).
#include "mars_relief.h"

#include <math.h>

#include <algorithm>

#include "node_window.h"
#include "sphere_noise.h"

namespace {
constexpr double radians = 0.017453292519943295;
constexpr double mars_degree = 59274.9, on_mars = mars_degree / earth_degree_metres;

double smooth(double from, double to, double v) {
    const double f = std::clamp((v - from) / (to - from), 0.0, 1.0);
    return f * f * (3.0 - 2.0 * f);
}

sphere_noise::place place_at(double lat, double lon) {
    const sphere_noise::place p = sphere_noise::at(lat, lon);
    return {p.x * on_mars, p.y * on_mars, p.z * on_mars};
}

struct spot {
    double lat, lon;
};

double km_between(const spot& a, double lat, double lon) {
    const double c = sin(a.lat * radians) * sin(lat * radians) +
                     cos(a.lat * radians) * cos(lat * radians) * cos((lon - a.lon) * radians);
    return acos(std::clamp(c, -1.0, 1.0)) * 3396.2;
}

// Shield volcanoes: summit above the datum, radius of the shield, of the caldera and its depth, all km.
struct volcano {
    spot at;
    double summit, radius, caldera, depth, scarp;
};
constexpr volcano volcanoes[] = {
    {{18.65, -133.80}, 21.2, 310, 35, 2.8, 5.5},  // Olympus Mons
    {{11.92, -104.08}, 18.2, 235, 20, 3.0, 0.0},  // Ascraeus Mons
    {{1.48, -112.96}, 14.1, 190, 23, 4.5, 0.0},   // Pavonis Mons
    {{-8.35, -120.09}, 17.8, 225, 58, 1.3, 0.0},  // Arsia Mons
    {{40.47, -109.60}, 6.8, 700, 50, 0.8, 0.0},   // Alba Mons
    {{13.25, -90.69}, 8.9, 75, 18, 2.0, 0.0},     // Tharsis Tholus
    {{25.02, 147.21}, 14.1, 250, 7, 0.6, 0.0},    // Elysium Mons
    {{32.12, 150.24}, 4.8, 95, 5, 0.5, 0.0},      // Hecates Tholus
    {{18.87, 150.47}, 3.9, 85, 15, 2.5, 0.0},     // Albor Tholus
};

// Basins: floor above the datum, radius of floor and of rim, height of the rim over its surroundings, km.
struct basin {
    spot at;
    double floor, floor_radius, rim_radius, rim;
};
constexpr basin basins[] = {
    {{-42.4, 70.5}, -7.8, 550, 1150, 1.2},   // Hellas
    {{-49.7, -43.4}, -3.0, 350, 800, 0.8},   // Argyre
    {{12.9, 87.0}, -3.8, 500, 750, 0.3},     // Isidis
    {{46.7, 117.5}, -4.8, 1000, 1700, 0.0},  // Utopia
    {{-5.4, 137.8}, -4.5, 45, 77, 0.4},      // Gale
};

// Troughs of the canyon: an axis, half of the width from rim to rim, and the floor above the datum, km.
struct trough {
    spot from, to;
    double half_width, floor;
};
constexpr trough troughs[] = {
    {{-6.9, -104.0}, {-7.2, -97.5}, 35, 2.5},  // Noctis Labyrinthus, in pieces
    {{-8.8, -103.0}, {-5.2, -99.5}, 22, 3.0},   {{-10.2, -99.5}, {-7.0, -96.0}, 22, 3.0},
    {{-6.6, -96.0}, {-7.2, -86.0}, 45, -1.0},                                                 // Ius
    {{-7.2, -86.0}, {-8.4, -77.5}, 48, -3.5},   {{-5.3, -92.0}, {-4.6, -80.5}, 28, 0.5},      // Tithonium
    {{-4.6, -80.5}, {-5.6, -77.0}, 24, -0.5},   {{-10.0, -75.2}, {-10.6, -70.8}, 120, -4.2},  // Melas
    {{-6.9, -76.8}, {-5.6, -68.5}, 68, -3.6},                                                 // Candor
    {{-4.0, -73.8}, {-4.2, -70.8}, 58, -3.8},                                                 // Ophir
    {{-5.0, -72.5}, {-9.0, -72.6}, 50, -3.6},    // where those three open into one another
    {{-11.4, -70.5}, {-13.0, -63.0}, 48, -4.3},  // Coprates
    {{-13.0, -63.0}, {-14.2, -56.0}, 55, -4.6}, {{-13.9, -56.0}, {-11.5, -46.0}, 110, -3.9},  // Eos and Capri
    {{-11.5, -46.0}, {-6.5, -39.0}, 120, -3.8}, {{-6.5, -39.0}, {4.0, -36.0}, 90, -3.8},
    {{-8.6, -50.5}, {-7.4, -45.0}, 60, -4.0},  // Ganges
    {{-1.0, -77.6}, {-1.3, -74.4}, 55, -2.0},  // Hebes
    {{-4.9, -62.2}, {-2.2, -61.2}, 50, -3.0},  // Juventae
};

double turned(double lon) { return lon - 360.0 * floor((lon + 180.0) / 360.0); }

// Part of the half width that lies between a place and the axis: 0 on it, 1 at the rim.
double from_axis(const trough& t, double lat, double lon, double waver) {
    const double across = cos(0.5 * (t.from.lat + t.to.lat) * radians), km = mars_degree / 1000.0;
    const double x = turned(lon - t.from.lon) * across * km, y = (lat - t.from.lat) * km;
    const double dx = (t.to.lon - t.from.lon) * across * km, dy = (t.to.lat - t.from.lat) * km;
    const double part = std::clamp((x * dx + y * dy) / (dx * dx + dy * dy), 0.0, 1.0);
    return (hypot(x - part * dx, y - part * dy) + waver) / t.half_width;
}

// Highlands in the south, lowlands in the north, the bulge of Tharsis in the west.
double plains(double lat, double lon, const sphere_noise::place& p) {
    const double border = 8.0 + 14.0 * sin((lon - 60.0) * radians) * sin((lon - 60.0) * radians) -
                          22.0 * exp(-pow(turned(lon - 140.0) / 50.0, 2)) +
                          28.0 * exp(-pow(turned(lon - 10.0) / 45.0, 2));
    const double south = 1.0 - smooth(border - 6.0, border + 9.0,
                                      lat + 9.0 * (sphere_noise::fractal(p, 400000.0, 3, 611) - 0.5));
    const double high = 1.6 + 1.2 * smooth(-10.0, -70.0, lat), low = -4.0 - 0.4 * smooth(40.0, 75.0, lat);
    double h = low + (high - low) * south;
    const double tharsis = km_between({-3.0, -101.0}, lat, lon) / 2900.0;
    if (tharsis < 1.0) h += (7.0 - h) * pow(1.0 - tharsis * tharsis, 1.5);
    // the plateau that the canyon is cut into, and the low ground of Chryse that it opens to
    const double plateau = km_between({-8.0, -74.0}, lat, lon) / 900.0;
    if (plateau < 1.0) h += (3.6 - h) * pow(1.0 - plateau * plateau, 2.0);
    const double chryse = km_between({24.0, -45.0}, lat, lon) / 1500.0;
    if (chryse < 1.0) h += (-3.7 - h) * pow(1.0 - chryse * chryse, 2.0);
    return h;
}

// Bowls with a raised rim, one at most in each cell of a lattice that turns with the latitude's width.
double craters(double lat, double lon, double lattice, unsigned seed, double share) {
    const double v = lat / lattice;
    double sum = 0.0;
    for (int j = static_cast<int>(floor(v)) - 1; j <= floor(v) + 1; ++j) {
        const double row_lat = (j + 0.5) * lattice;
        const int count = std::max(1, static_cast<int>(floor(360.0 / lattice * cos(row_lat * radians))));
        const double u = (lon + 180.0) / 360.0 * count;
        for (int n = static_cast<int>(floor(u)) - 1; n <= floor(u) + 1; ++n) {
            const int i = ((n % count) + count) % count;
            if (sphere_noise::hash(i, j, 0, seed) > share) continue;
            const double size = sphere_noise::hash(i, j, 1, seed) * sphere_noise::hash(i, j, 2, seed);
            const double radius = 0.10 + 0.36 * size;  // of a cell
            const double away =
                hypot(u - n - sphere_noise::hash(i, j, 3, seed), v - j - sphere_noise::hash(i, j, 4, seed)) /
                radius;
            // depth a tenth of the width for small ones, less for great ones
            const double km = 2.0 * radius * lattice * mars_degree / 1000.0, depth = 0.2 * pow(km, 0.7);
            if (away < 1.0)
                sum += std::max(depth * (1.28 * away * away - 1.0), -0.75 * depth);
            else
                sum += 0.28 * depth * (1.0 - smooth(1.0, 1.8, away));
        }
    }
    return sum;
}

// 0 outside of the canyon, 1 on its floor, and the floor's height.
double in_canyon(double lat, double lon, const sphere_noise::place& p, double* floor_km) {
    double inside = 0.0, weight = 0.0, sum = 0.0;
    double waver = 1.0e9;
    for (const trough& t : troughs) {
        const double rough = from_axis(t, lat, lon, 0.0);
        if (rough > 1.9) continue;
        if (waver > 1.0e8)  // spurs and gullies
            waver = 26.0 * (0.5 - sphere_noise::ridged(p, 42000.0, 5, 631)) +
                    16.0 * (sphere_noise::fractal(p, 90000.0, 2, 641) - 0.5);
        const double away =
            from_axis(t, lat, lon, std::clamp(waver, -0.4 * t.half_width, 0.4 * t.half_width));
        const double part = 1.0 - smooth(0.55, 1.0, away);
        if (part <= 0.0) continue;
        inside = std::max(inside, part);
        weight += part * part;
        sum += part * part * t.floor;
    }
    *floor_km = weight > 0.0 ? sum / weight : 0.0;
    return inside;
}
}  // namespace

mars_relief::mars_relief(const std::string& apt_path) { read_airports(apt_path, mars_degree, &airports_); }

double mars_relief::natural(double lat, double lon) const {
    const sphere_noise::place p = place_at(lat, lon);
    double h = plains(lat, lon, p);
    // the plains about the canyon and Tharsis are young and have few craters
    const double young = 1.0 - smooth(1500.0, 2600.0, km_between({0.0, -95.0}, lat, lon));
    const double old = smooth(-2.0, 1.0, h) * (1.0 - 0.85 * young);
    for (const basin& b : basins) {
        const double km = km_between(b.at, lat, lon);
        if (km < b.rim_radius)
            h = b.floor + (h + b.rim - b.floor) * smooth(b.floor_radius, b.rim_radius, km);
        else
            h += b.rim * (1.0 - smooth(b.rim_radius, 1.35 * b.rim_radius, km));
    }
    h += (0.45 + 0.55 * old) * craters(lat, lon, 0.17, 651, 0.25 + 0.5 * old);
    h += old * craters(lat, lon, 0.7, 652, 0.6) + 0.8 * old * craters(lat, lon, 2.6, 653, 0.5);
    h += 0.35 * (sphere_noise::ridged(p, 60000.0, 5, 601) - 0.4) * (0.4 + old) +
         0.12 * (sphere_noise::fractal(p, 9000.0, 4, 606) - 0.5);
    for (const volcano& v : volcanoes) {
        const double km = km_between(v.at, lat, lon);
        if (km > v.radius) continue;
        const double part = std::min((v.radius - km) / (v.radius - v.caldera), 1.0);
        const double shield =
            v.scarp + (v.summit - h - v.scarp) * (0.55 * part + 0.45 * part * part * (3.0 - 2.0 * part));
        const double flows = 0.10 * (sphere_noise::ridged(p, 14000.0, 4, 621) - 0.4) * smooth(0.0, 0.2, part);
        double top = h + shield * (v.scarp > 0.0 ? smooth(0.0, 0.02, part) : 1.0) + flows;
        top -= v.depth * (1.0 - smooth(0.75 * v.caldera, v.caldera, km));
        h = top;
    }
    double floor_km = 0.0;
    const double inside = in_canyon(lat, lon, p, &floor_km);
    if (inside > 0.0) {
        const double bed = floor_km + 0.5 * (sphere_noise::fractal(p, 30000.0, 5, 661) - 0.5);
        // a steep upper wall, a slope of scree, a floor
        const double wall = 0.65 * inside + 0.35 * smooth(0.0, 0.45, inside);
        h += (std::min(bed, h) - h) * wall;
    }
    const double north = km_between({88.0, 0.0}, lat, lon), south = km_between({-87.0, 0.0}, lat, lon);
    h += 2.6 * (1.0 - smooth(0.0, 560.0, north)) + 2.8 * (1.0 - smooth(0.0, 500.0, south));
    return 1000.0 * h;
}

double mars_relief::height(double lat, double lon) const {
    double h = natural(lat, lon);
    constexpr double flat = 1500.0, rim = 7000.0;
    for (const known_airport& a : airports_.near(lat, lon, 0.4)) {
        const double away = on_mars * metres_from(a, lat, lon);
        h += (a.ele - h) * (1.0 - smooth(flat, flat + rim, away));
    }
    return h;
}

double mars_relief::cliff(double lat, double lon) const {
    constexpr double step = 0.008;  // degrees
    const double width = 2.0 * step * mars_degree, across = std::max(cos(lat * radians), 0.02);
    const double slope = hypot((natural(lat + step, lon) - natural(lat - step, lon)) / width,
                               (natural(lat, lon + step) - natural(lat, lon - step)) / (width * across));
    return smooth(0.13, 0.26, slope);
}

double mars_relief::dark(double lat, double lon) const {
    const sphere_noise::place p = place_at(lat, lon);
    double floor_km = 0.0;
    const double inside = in_canyon(lat, lon, p, &floor_km);
    const double syrtis = 1.0 - smooth(400.0, 700.0, km_between({8.4, 69.5}, lat, lon));
    return std::max(smooth(0.90, 1.0, inside) * smooth(0.51, 0.54, sphere_noise::fractal(p, 40000.0, 3, 671)),
                    syrtis);
}

double mars_relief::ice(double lat, double lon) const {
    const double north = km_between({88.0, 0.0}, lat, lon), south = km_between({-87.0, -45.0}, lat, lon);
    return std::max(1.0 - smooth(480.0, 560.0, north), 1.0 - smooth(200.0, 300.0, south));
}

double mars_relief::plain(double lat, double lon) const {
    return smooth(0.485, 0.515, sphere_noise::fractal(place_at(lat, lon), 70000.0, 4, 681));
}
