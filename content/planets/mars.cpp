// Mars: relief and dust drawn from the places and sizes of its large features (IAU names, longitudes east),
// the small ones by seeded noise. Reliefs are shaded faintly from the west, as high resolution maps are.
#include <math.h>

#include <algorithm>

#include "../art/noise.h"
#include "globe_map.h"

namespace {
constexpr double rad = M_PI / 180.0;

double smooth(double from, double to, double x) {
    const double f = std::clamp((x - from) / (to - from), 0.0, 1.0);
    return f * f * (3.0 - 2.0 * f);
}
double bump(double d) { return d >= 1.0 ? 0.0 : (1.0 - d * d) * (1.0 - d * d); }

// -- noise on the sphere, so that neither the date line nor the poles show

struct point {
    double x, y, z;
};
point on_sphere(double lat, double lon) {
    return {cos(lat * rad) * cos(lon * rad), cos(lat * rad) * sin(lon * rad), sin(lat * rad)};
}

double hash3(int x, int y, int z, unsigned seed) { return noise::hash(x, y + 7919 * z, seed); }

double value3(const point& p, unsigned seed) {
    const int ix = static_cast<int>(floor(p.x)), iy = static_cast<int>(floor(p.y)),
              iz = static_cast<int>(floor(p.z));
    const auto ease = [](double f) { return f * f * (3.0 - 2.0 * f); };
    const double fx = ease(p.x - ix), fy = ease(p.y - iy), fz = ease(p.z - iz);
    double layer[2];
    for (int z = 0; z < 2; ++z) {
        double edge[2];
        for (int y = 0; y < 2; ++y)
            edge[y] = hash3(ix, iy + y, iz + z, seed) * (1.0 - fx) + hash3(ix + 1, iy + y, iz + z, seed) * fx;
        layer[z] = edge[0] * (1.0 - fy) + edge[1] * fy;
    }
    return layer[0] * (1.0 - fz) + layer[1] * fz;
}

// -1 to 1; finest detail 2 ^ octaves times as fine as the coarsest, which is `scale` to the radius.
double fractal3(const point& on, double scale, int octaves, unsigned seed) {
    double sum = 0.0, weight = 1.0, total = 0.0;
    for (int i = 0; i < octaves; ++i, scale *= 2.03, weight *= 0.55) {
        const point p = {on.x * scale + 11.3, on.y * scale + 5.7, on.z * scale + 23.1};
        sum += weight * (2.0 * value3(p, seed + static_cast<unsigned>(i)) - 1.0);
        total += weight;
    }
    return sum / total;
}

// -- features

struct ellipse {
    double lon, lat, half_lon, half_lat;  // degrees; half axes as they measure on the ground
    double turn;                          // of the long axis, counter-clockwise, degrees
    double strength;
};

// Distance from the middle, 1 at the edge.
double inside(const ellipse& e, double lat, double lon) {
    const double east = remainder(lon - e.lon, 360.0) * cos(0.5 * (lat + e.lat) * rad), north = lat - e.lat;
    const double c = cos(e.turn * rad), s = sin(e.turn * rad);
    return hypot((east * c + north * s) / e.half_lon, (north * c - east * s) / e.half_lat);
}

constexpr ellipse dark_regions[] = {
    // Syrtis Major, a wedge that points north
    {68, 2, 9, 9, 0, 1.0},
    {69, 10, 6.5, 9, 0, 1.0},
    {68, 18, 3, 6, 20, 0.7},
    // Mare Tyrrhenum, Mare Hadriacum, Iapygia
    {106, -22, 18, 8, -22, 0.9},
    {84, -14, 10, 5, 10, 0.6},
    {122, -30, 12, 7, -20, 0.7},
    {50, -22, 14, 8, 0, 0.6},
    // Mare Cimmerium
    {138, -25, 16, 7, -18, 0.95},
    {158, -34, 16, 8, -12, 0.85},
    {150, -14, 8, 4, -25, 0.6},
    // Mare Sirenum
    {200, -31, 16, 6, 14, 0.95},
    {182, -36, 12, 7, 0, 0.6},
    {218, -27, 8, 4, 20, 0.6},
    // Mare Erythraeum, Aurorae Sinus, Margaritifer Sinus, Bosporos
    {326, -27, 17, 10, 10, 0.8},
    {309, -13, 9, 6, 0, 0.9},
    {336, -8, 8, 8, 60, 0.85},
    {300, -35, 10, 6, 0, 0.6},
    // Sinus Meridiani and Sinus Sabaeus
    {0, -5, 8, 4.5, 0, 1.0},
    {22, -8, 17, 3.6, 3, 0.95},
    {40, -9, 8, 5, 10, 0.7},
    // Noachis, Hellespontus, the rim of the southern frost
    {15, -36, 22, 8, 0, 0.45},
    {42, -48, 9, 9, 0, 0.75},
    {350, -42, 14, 6, 0, 0.4},
    {100, -57, 26, 6, 0, 0.5},
    {200, -58, 32, 6, 0, 0.4},
    {300, -62, 26, 5, 0, 0.4},
    {20, -62, 24, 5, 0, 0.5},
    // Solis Lacus
    {274, -26, 6, 4.5, 0, 0.85},
    // Mare Acidalium, Nilokeras, Niliacus Lacus
    {330, 46, 15, 12, 0, 1.0},
    {326, 31, 9, 7, 0, 0.75},
    {306, 28, 9, 3, 25, 0.5},
    {345, 56, 12, 7, 0, 0.6},
    // Utopia, Casius, Cerberus, Propontis
    {88, 44, 13, 9, 30, 0.7},
    {112, 52, 22, 8, 0, 0.6},
    {160, 12, 9, 2.4, 12, 0.6},
    {182, 40, 8, 4, 0, 0.5},
    {230, 58, 30, 5, 0, 0.35},
    {30, 58, 26, 5, 0, 0.35},
};
constexpr ellipse bright_regions[] = {
    {70, -42, 20, 14, 0, 1.1},   // Hellas
    {317, -50, 9, 8, 0, 0.9},    // Argyre
    {22, 22, 24, 15, 0, 0.8},    // Arabia
    {88, 13, 8, 8, 0, 0.6},      // Isidis
    {250, 8, 30, 24, 0, 0.75},   // Tharsis
    {205, 18, 22, 18, 0, 0.6},   // Amazonis
    {145, 26, 20, 14, 0, 0.65},  // Elysium
    {290, 8, 12, 9, 0, 0.4},     // Xanthe
    {275, -34, 14, 7, 0, 0.4},   // Thaumasia
    {120, 0, 18, 10, 0, 0.4},    // Aeolis
};

struct mountain {
    double lon, lat, radius, height, caldera;  // degrees, and the caldera's part of the radius
};
constexpr mountain mountains[] = {
    {226.2, 18.6, 5.4, 3.2, 0.15}, {255.5, 11.8, 3.6, 2.2, 0.14}, {247.0, 1.5, 3.3, 2.0, 0.16},
    {239.1, -8.4, 3.9, 2.3, 0.28}, {250.4, 40.5, 9.0, 1.2, 0.10}, {147.2, 25.0, 4.6, 1.7, 0.08},
    {150.0, 32.0, 2.2, 0.8, 0.1},  {150.6, 18.7, 2.0, 0.8, 0.12}, {262.0, 2.5, 1.0, 0.6, 0.4},
    {268.5, 13.4, 1.2, 0.7, 0.45}, {264.0, 24.2, 1.0, 0.5, 0.35}, {68.0, 8.9, 3.0, 0.3, 0.3},
};

// Valles Marineris: Noctis, Ius, Melas, Coprates, Eos; then Candor, Ophir, and the channels to the north.
struct canyon_leg {
    double lon1, lat1, lon2, lat2, half_width;
};
constexpr canyon_leg canyon_legs[] = {
    {258, -6, 264, -7, 1.0},     {262, -8, 268, -6, 0.9},      {266, -7, 276, -7.4, 1.2},
    {276, -7.4, 284, -8, 1.5},   {284, -8.6, 290, -10.2, 2.6}, {290, -11, 300, -13.4, 1.7},
    {300, -13.4, 310, -14, 2.0}, {310, -14, 319, -12.5, 2.8},  {284, -6, 291, -5.6, 1.9},
    {285, -4.2, 291, -3.8, 1.2}, {274, -4.8, 282, -4.8, 0.7},  {319, -12.5, 325, -6, 2.0},
    {325, -6, 327, 2, 1.3},      {297, 0, 299, 10, 0.9},       {299, 10, 304, 20, 0.9},
};

double canyon_depth(double lat, double lon) {
    double depth = 0.0;
    for (const canyon_leg& leg : canyon_legs) {
        const double x = remainder(lon - leg.lon1, 360.0), y = lat - leg.lat1;
        const double dx = leg.lon2 - leg.lon1, dy = leg.lat2 - leg.lat1;
        const double part = std::clamp((x * dx + y * dy) / (dx * dx + dy * dy), 0.0, 1.0);
        depth =
            std::max(depth, 1.0 - smooth(0.55, 1.15, hypot(x - part * dx, y - part * dy) / leg.half_width));
    }
    return depth;
}

// Walls that land has slid from: the borders wander.
double canyon_at(double lat, double lon, const point& p) {
    if (lat < -22.0 || lat > 26.0 || lon > -28.0 || lon < -108.0) return 0.0;
    const double north = 2.6 * fractal3(p, 22.0, 5, 60), east = 2.6 * fractal3(p, 22.0, 5, 140);
    return canyon_depth(lat + north, lon + east);
}

// -- relief

struct relief_map {
    std::vector<double> heights = std::vector<double>(globe_dx * globe_dy);
    double& at(int column, int row) {
        return heights[static_cast<size_t>(row) * globe_dx + (column + globe_dx) % globe_dx];
    }
};

// 1 in the old, cratered south, 0 in the smooth north.
double is_highland(double lat, double lon, double wander) {
    const double border = 8.0 + 22.0 * cos((lon - 10.0) * rad) + 14.0 * wander - 4.0;
    const double tharsis = bump(inside({250, 8, 44, 36, 0, 1}, lat, lon));
    return (1.0 - smooth(border - 6.0, border + 6.0, lat)) * (1.0 - 0.85 * tharsis) *
           (1.0 - 0.9 * bump(inside({70, -42, 22, 16, 0, 1}, lat, lon)));
}

double mountain_height(const mountain& m, double d) {
    if (d >= 1.15) return 0.0;
    const double flank = pow(std::max(0.0, 1.0 - d / 1.15), 1.3);
    const double bowl = 0.25 * (1.0 - smooth(0.75 * m.caldera, m.caldera, d));
    return m.height * (flank + 0.07 * (1.0 - smooth(0.90, 1.08, d)) - bowl);
}

void raise_ground(relief_map& relief) {
    for (int row = 0; row < globe_dy; ++row)
        for (int column = 0; column < globe_dx; ++column) {
            const double lat = row_lat(row), lon = column_lon(column);
            const point p = on_sphere(lat, lon);
            const double rough = 0.3 + 0.7 * is_highland(lat, lon, fractal3(p, 2.5, 3, 90));
            double h = 0.9 * rough * fractal3(p, 9.0, 7, 10);
            for (const mountain& m : mountains)
                h += mountain_height(m, inside({m.lon, m.lat, m.radius, m.radius, 0, 1}, lat, lon));
            h -= 0.8 * canyon_at(lat, lon, p);
            relief.at(column, row) = h;
        }
}

double crater_height(double d) {
    if (d < 1.0) return -0.5 + 0.8 * smooth(0.45, 1.0, d);
    return 0.3 * exp(-(d - 1.0) * 4.0);
}

void dig_crater(relief_map& relief, double lat, double lon, double radius) {
    constexpr double reach = 1.8, row_deg = 180.0 / globe_dy;
    const double age = noise::hash(static_cast<int>(1e4 * lat), static_cast<int>(1e4 * lon), 8);
    const double height = (0.10 + 0.42 * age) * pow(radius, 0.75);
    const int row1 = std::max(0, static_cast<int>((90.0 - lat - reach * radius) / row_deg));
    const int row2 = std::min(globe_dy - 1, static_cast<int>((90.0 - lat + reach * radius) / row_deg));
    for (int row = row1; row <= row2; ++row) {
        const double half = reach * radius / std::max(cos(row_lat(row) * rad), 0.02);
        const int middle = static_cast<int>((lon + 180.0) / row_deg);
        const int columns = std::min(globe_dx / 2, static_cast<int>(half / row_deg) + 1);
        for (int column = middle - columns; column < middle + columns; ++column) {
            const double d = inside({lon, lat, radius, radius, 0, 1}, row_lat(row), column_lon(column)) *
                             (1.0 + 0.10 * noise::value(column / (4.0 * radius), row / (4.0 * radius), 9));
            if (d < reach) relief.at(column, row) += height * crater_height(d);
        }
    }
}

// Many small and few large ones: the number above a radius falls with its square.
void dig_craters(relief_map& relief) {
    constexpr int tries = 26000;
    constexpr double smallest = 0.16, largest = 2.4;
    for (int i = 0; i < tries; ++i) {
        const double lat = asin(2.0 * noise::hash(i, 1, 5) - 1.0) / rad,
                     lon = 360.0 * noise::hash(i, 2, 5) - 180.0;
        const double keep = 0.08 + 0.92 * is_highland(lat, lon, 0.0);
        if (noise::hash(i, 3, 5) > keep) continue;
        const double radius = smallest / sqrt(1.0 - 0.9915 * noise::hash(i, 4, 5));
        dig_crater(relief, lat, lon, std::min(radius, largest));
    }
}

// Light from the west: part of the brightness that the slope adds or takes.
double shade(relief_map& relief, int column, int row) {
    constexpr double texel = 180.0 / globe_dy;
    const int above = std::max(row - 1, 0), below = std::min(row + 1, globe_dy - 1);
    const double stretch = std::max(cos(row_lat(row) * rad), 0.25);
    const double to_east =
        (relief.at(column + 1, row) - relief.at(column - 1, row)) / (2.0 * texel * stretch);
    const double to_north = (relief.at(column, above) - relief.at(column, below)) / (2.0 * texel);
    const double slope = 0.9 * to_east - 0.35 * to_north;
    return slope / sqrt(1.0 + slope * slope);
}

// -- colours

// How deep in the regions, 0 to 1 and beyond where they overlap.
template <int count>
double depth_in(const ellipse (&regions)[count], double lat, double lon) {
    double sum = 0.0;
    for (const ellipse& e : regions) {
        const double d = inside(e, lat, lon);
        if (d < 1.7) sum += e.strength * (1.0 - smooth(0.3, 1.7, d));
    }
    return sum;
}

rgb dust_and_rock(double lat, double lon, const point& p) {
    const rgb rock = {0.225, 0.165, 0.145}, ground = {0.600, 0.345, 0.215}, dust = {0.860, 0.600, 0.385};
    // the borders of the regions wander and fray
    const double north = 9.0 * fractal3(p, 4.0, 5, 20), east = 12.0 * fractal3(p, 4.0, 5, 40);
    const double streaks = fractal3(p, 12.0, 7, 70), fine = fractal3(p, 70.0, 4, 80);
    const double dark = smooth(0.14, 0.95, depth_in(dark_regions, lat + north, lon + east) + 0.75 * streaks);
    const double bright = depth_in(bright_regions, lat + north, lon + east);
    rgb c = mix(ground, dust, std::clamp(0.22 + 0.70 * bright + 0.65 * streaks, 0.0, 1.0));
    c = mix(c, rock, std::clamp(dark * (0.74 + 0.5 * streaks), 0.0, 0.9));
    return c * (1.0 + 0.16 * fine);
}

double degrees_between(const point& a, const point& b) {
    return acos(std::clamp(a.x * b.x + a.y * b.y + a.z * b.z, -1.0, 1.0)) / rad;
}

// How much ice covers: water in the north, cut by spiral troughs; the small southern rest stands off its
// pole.
double ice(double lat, double lon, const point& p) {
    const double wander = 3.2 * fractal3(p, 12.0, 6, 100);
    if (lat > 0.0) {
        const double from_pole = 90.0 - lat;
        const double spiral = sin(lon * rad * 3.0 + from_pole * 1.9 + 2.0 * fractal3(p, 9.0, 3, 110));
        const double troughs = smooth(0.55, 0.95, spiral) * smooth(1.5, 4.0, from_pole);
        return (1.0 - smooth(8.6, 10.2, from_pole + wander)) * (1.0 - 0.6 * troughs);
    }
    const double from_middle = degrees_between(p, on_sphere(-87.0, 316.0));
    const double frost = 0.30 * (1.0 - smooth(6.0, 15.0, 90.0 + lat + 3.0 * wander));
    return std::max(1.0 - smooth(3.4, 4.6, from_middle + wander), frost);
}

// The dark sand around the northern ice.
double dunes(double lat, const point& p) {
    const double at = lat + 9.0 * fractal3(p, 8.0, 6, 120);
    return smooth(70.0, 77.0, at) * (1.0 - smooth(81.0, 83.5, at));
}

// A thin haze of dust softens and reddens, clouds of ice lie over the high mountains.
rgb hazed(const rgb& c, double lat, double lon, const point& p) {
    double cloud = 0.0;
    for (const mountain& m : mountains)
        if (m.height > 1.6)
            cloud = std::max(cloud, bump(inside({m.lon - 3.0, m.lat + 0.6, 6.5, 3.4, 10, 1}, lat, lon)));
    cloud *= 0.30 * std::clamp(0.6 + 1.3 * fractal3(p, 18.0, 5, 130), 0.0, 1.0);
    return mix(mix(c, {0.80, 0.56, 0.40}, 0.07), {0.90, 0.88, 0.88}, cloud);
}
}  // namespace

void draw_mars(globe_map& map) {
    relief_map relief;
    raise_ground(relief);
    dig_craters(relief);
    for (int row = 0; row < globe_dy; ++row)
        for (int column = 0; column < globe_dx; ++column) {
            const double lat = row_lat(row), lon = column_lon(column);
            const point p = on_sphere(lat, lon);
            rgb c = dust_and_rock(lat, lon, p);
            c = mix(c, {0.25, 0.19, 0.17}, 0.6 * dunes(lat, p));
            c = mix(c, {0.30, 0.19, 0.15}, 0.62 * canyon_at(lat, lon, p));
            c = mix(c, {0.95, 0.93, 0.91}, ice(lat, lon, p));
            map.at(column, row) = hazed(c * (1.0 + 0.34 * shade(relief, column, row)), lat, lon, p);
        }
}
