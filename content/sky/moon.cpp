// The Moon in its phases. Its face is drawn once: brightness and heights over the disc; a phase is that face
// under a sun of its own direction.
#include <math.h>
#include <stdio.h>

#include <algorithm>

#include "noise.h"
#include "moon_features.h"
#include "sky_bodies.h"
#include "texel_picture.h"

namespace {
constexpr double rad = M_PI / 180.0, radius_km = 1737.4;
constexpr int phases = 23, size = 256, fine = 3, fine_size = size * fine;  // samples a texel and side
constexpr double disc = 0.965;                                             // of half the picture

double smooth(double from, double to, double x) {
    const double f = std::clamp((x - from) / (to - from), 0.0, 1.0);
    return f * f * (3.0 - 2.0 * f);
}

struct vector3 {
    double x, y, z;  // right, up, towards the eye
};
double dot(const vector3& a, const vector3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
vector3 at_place(double lat, double lon) {
    return {cos(lat * rad) * sin(lon * rad), sin(lat * rad), cos(lat * rad) * cos(lon * rad)};
}

// Noise over the sphere, about -0.5 to 0.5: three planes of it, each where it is least foreshortened, and in
// each two turned against each other, or the squares of the noise would show in the shores.
double noise_on(const vector3& p, double scale, int octaves, unsigned seed) {
    const double wx = p.x * p.x, wy = p.y * p.y, wz = p.z * p.z;
    const auto plane = [&](double a, double b, double shift) {
        const double x = scale * a, y = scale * b;
        const double one =
            noise::fractal(0.8 * x + 0.6 * y + shift, 0.8 * y - 0.6 * x + 2.0 * shift, octaves, seed);
        const double two =
            noise::fractal(0.28 * x - 0.96 * y + shift, 0.28 * y + 0.96 * x - shift, octaves, seed + 1000);
        return 0.7 * (one + two - 1.0);
    };
    return wx * plane(p.y, p.z, 31.7) + wy * plane(p.x, p.z, 57.3) + wz * plane(p.x, p.y, 83.9);
}

// A place as seen from another: how far, in km, and in which direction, radians from east.
struct offset {
    double km, turn, east, north;
};
offset from_place(double lat, double lon, const vector3& p) {
    const vector3 middle = at_place(lat, lon);
    const vector3 east = {cos(lon * rad), 0.0, -sin(lon * rad)};
    const vector3 north = {-sin(lat * rad) * sin(lon * rad), cos(lat * rad),
                           -sin(lat * rad) * cos(lon * rad)};
    const double e = dot(p, east), n = dot(p, north);
    const double km = radius_km * acos(std::clamp(dot(p, middle), -1.0, 1.0)),
                 flat = std::max(hypot(e, n), 1e-9);
    return {km, atan2(n, e), km * e / flat, km * n / flat};
}

// -- the face

struct face_point {
    double bright;  // 0 to 1
    double height;  // km
};

// Seas flow together where they meet; shores wander; the lavas are of uneven age and colour.
double sea_depth(const vector3& p) {
    constexpr double merge = 45.0;  // km
    const auto pull = [&](unsigned seed) {
        return 0.110 * noise_on(p, 5.5, 3, seed) + 0.060 * noise_on(p, 17.0, 4, seed + 10);
    };
    vector3 q = {p.x + pull(3), p.y + pull(4), p.z + pull(5)};
    const double length = sqrt(dot(q, q));
    q = {q.x / length, q.y / length, q.z / length};
    double weights = 1e-9, depths = 0.0;
    for (const moon_sea& sea : moon_seas) {
        const offset o = from_place(sea.lat, sea.lon, q);
        const double smaller = std::min(sea.half_lon, sea.half_lat);
        if (o.km > 2.0 * std::max(sea.half_lon, sea.half_lat) + 300.0) continue;
        const double c = cos(sea.turn * rad), s = sin(sea.turn * rad);
        const double r =
            hypot((o.east * c + o.north * s) / sea.half_lon, (o.north * c - o.east * s) / sea.half_lat);
        const double weight = exp((1.0 - r) * smaller / merge);
        weights += weight, depths += weight * sea.depth;
    }
    const double inside = merge * log(weights) + 130.0 * noise_on(p, 30.0, 5, 13);  // km from the shore
    const double mean = depths / weights;
    const double thin = 1.0 + 0.55 * noise_on(p, 6.0, 3, 23) + 0.30 * noise_on(p, 20.0, 4, 24);
    return mean * smooth(-20.0, 34.0, inside) * thin * (0.90 + 0.10 * smooth(0.0, 160.0, inside));
}

// Bundles of straight rays from a crater, brightest near it.
double ray_light(const moon_crater& crater, const offset& o, const vector3& p, unsigned seed) {
    const double radius = 0.5 * crater.diameter, reach = crater.rays * radius;
    if (crater.rays <= 0.0 || o.km > reach || o.km < 0.8 * radius) return 0.0;
    const double turn = o.turn / (2.0 * M_PI) + 0.5;
    double bundle = 0.0;
    for (int set = 0; set < 2; ++set) {
        const int count = set ? 23 : 11;
        for (int n = 0; n < count; ++n) {
            const double at = (n + 0.8 * noise::hash(n, set, seed)) / count;
            const double length = reach * (0.25 + 0.75 * noise::hash(n, set + 2, seed));
            if (o.km > length) continue;
            const double width = radius * (0.22 + 0.6 * noise::hash(n, set + 4, seed)) + 0.045 * o.km;
            const double across = fabs(remainder(turn - at, 1.0)) * 2.0 * M_PI * o.km;
            bundle += (set ? 0.55 : 1.0) * exp(-across * across / (width * width)) * (1.0 - o.km / length);
        }
    }
    const double apron = exp(-(o.km - radius) / (1.3 * radius));
    const double broken = 0.75 + 1.1 * noise_on(p, 40.0, 4, seed + 50);
    return crater.ray_strength * (0.32 * std::min(bundle, 1.5) * broken + 0.24 * apron);
}

double crater_height(double d, double diameter_km) {
    // a bowl or a flat floor, a rim, and a blanket of what was thrown out: depths by Pike (1977), rounded
    const double depth = diameter_km < 15.0 ? 0.2 * diameter_km : std::min(1.0 * pow(diameter_km, 0.3), 4.5);
    if (d < 1.0) {
        const double peak = diameter_km > 35.0 && diameter_km < 140.0 ? 0.25 * exp(-d * d / 0.02) : 0.0;
        return depth * (-0.72 + peak + smooth(0.55, 1.0, d));
    }
    return 0.28 * depth * pow(d, -3.0);
}

// Craters without a name: many small and few large ones, on the old bright ground most.
double field_height(const vector3& p, double sea) {
    double sum = 0.0;
    for (int level = 0; level < 4; ++level) {
        const double cell = 210.0 / radius_km * pow(0.52, level);  // radii of the Moon
        const int ix = static_cast<int>(floor(p.x / cell)), iy = static_cast<int>(floor(p.y / cell)),
                  iz = static_cast<int>(floor(p.z / cell));
        for (int n = 0; n < 27; ++n) {
            const int x = ix + n % 3 - 1, y = iy + n / 3 % 3 - 1, z = iz + n / 9 - 1;
            const auto lot = [&](int k) {
                return noise::hash(x + 977 * z, y, static_cast<unsigned>(100 + 10 * level + k));
            };
            if (lot(0) > 0.42 * (1.0 - 0.9 * sea)) continue;
            vector3 m = {(x + lot(1)) * cell, (y + lot(2)) * cell, (z + lot(3)) * cell};
            const double length = sqrt(dot(m, m));
            if (fabs(length - 1.0) > 0.5 * cell) continue;
            m = {m.x / length, m.y / length, m.z / length};
            const double r = cell * (0.16 + 0.26 * lot(4));
            const double d = sqrt(std::max(0.0, 2.0 - 2.0 * dot(p, m))) / r;
            if (d < 2.2) sum += 0.75 * crater_height(d, 2.0 * r * radius_km) * (1.0 - smooth(1.6, 2.2, d));
        }
    }
    return sum;
}

face_point face_at(const vector3& p) {
    constexpr double highland = 0.74, lava = 0.30;
    const double sea = std::clamp(sea_depth(p), 0.0, 1.0);
    face_point f;
    f.bright = highland * (1.0 - sea) + lava * sea;
    f.bright *= 1.0 + 0.50 * noise_on(p, 26.0, 6, 33) + 0.34 * noise_on(p, 4.0, 4, 43);
    f.height = (1.0 - 0.85 * sea) * (2.4 * noise_on(p, 12.0, 7, 53)) - 1.2 * sea + field_height(p, sea);
    unsigned seed = 200;
    double light = 0.0;
    for (const moon_crater& crater : moon_craters) {
        const offset o = from_place(crater.lat, crater.lon, p);
        const double d = 2.0 * o.km / crater.diameter;
        if (d < 2.6) {
            f.height += crater_height(d, crater.diameter) * (1.0 - smooth(1.8, 2.6, d));
            light += crater.floor * (1.0 - smooth(0.85, 1.25, d));
            // walls are steep, so that dust slides off and leaves them bright
            light += 0.05 * smooth(0.7, 0.95, d) * (1.0 - smooth(1.0, 1.2, d));
            if (crater.rays > 20.0) light -= 0.10 * smooth(1.0, 1.2, d) * (1.0 - smooth(1.4, 1.9, d));
        }
        light += ray_light(crater, o, p, seed++);
    }
    f.bright = std::clamp(f.bright + std::min(light, 0.6) * (1.0 - 0.55 * f.bright), 0.05, 1.0);
    return f;
}

// -- the face as it is seen: samples over the picture, rows from below

struct sample {
    bool on = false;
    vector3 normal{};  // of the rough ground
    vector3 sphere{};
    double bright = 0.0;
};

std::vector<sample> seen_face() {
    std::vector<sample> face(static_cast<size_t>(fine_size) * fine_size);
    std::vector<double> heights(face.size());
    const auto at = [](int i, int j) { return static_cast<size_t>(j) * fine_size + i; };
    for (int j = 0; j < fine_size; ++j)
        for (int i = 0; i < fine_size; ++i) {
            const double x = ((2.0 * i + 1.0) / fine_size - 1.0) / disc,
                         y = ((2.0 * j + 1.0) / fine_size - 1.0) / disc;
            const double flat = x * x + y * y;
            if (flat >= 1.0) continue;
            sample& s = face[at(i, j)];
            s.on = true;
            s.sphere = {x, y, sqrt(1.0 - flat)};
            const face_point f = face_at(s.sphere);
            s.bright = f.bright;
            heights[at(i, j)] = f.height / radius_km;
        }
    const double step = 4.0 / (fine_size * disc);  // between the neighbours of a sample
    for (int j = 1; j < fine_size - 1; ++j)
        for (int i = 1; i < fine_size - 1; ++i) {
            sample& s = face[at(i, j)];
            s.normal = s.sphere;
            if (!s.on || !face[at(i - 1, j)].on || !face[at(i + 1, j)].on || !face[at(i, j - 1)].on ||
                !face[at(i, j + 1)].on)
                continue;
            const vector3 slope = {(heights[at(i + 1, j)] - heights[at(i - 1, j)]) / step,
                                   (heights[at(i, j + 1)] - heights[at(i, j - 1)]) / step, 0.0};
            const double out = dot(slope, s.sphere);
            vector3 n = {s.sphere.x - slope.x + out * s.sphere.x, s.sphere.y - slope.y + out * s.sphere.y,
                         s.sphere.z + out * s.sphere.z};
            const double length = sqrt(dot(n, n));
            s.normal = {n.x / length, n.y / length, n.z / length};
        }
    return face;
}

// Light sent to the eye, 1 at full moon: Lommel and Seeliger's law, which leaves the limb as bright as the
// middle, passing to Lambert's as the phase grows (A. S. McEwen, Icarus 92, 1991).
double returned(const sample& s, const vector3& sun, double lunar_part) {
    const double in = dot(s.normal, sun), out = std::max(s.normal.z, 0.02);
    const double level = dot(s.sphere, sun);
    // mountains catch light a little beyond the terminator
    if (in <= 0.0 || level < -0.035) return 0.0;
    const double lit = lunar_part * 2.0 * in / (in + out) + (1.0 - lunar_part) * in;
    return std::min(lit, 1.25) * smooth(-0.035, 0.03, level);
}

// Night is lit by the Earth. Alpha holds the brightness of white: by day the darker ground lets more of the
// sky through, as light adds up, so that a new moon is not there, and by night it is what is seen.
void draw_phase(const std::vector<sample>& face, int phase, const std::string& path) {
    constexpr double earthshine = 0.03, gamma = 1.0 / 1.5;
    const double elongation = 2.0 * M_PI * (phase - 1) / (phases - 1);  // of the moon, east of the sun
    const vector3 sun = {sin(elongation), 0.0, -cos(elongation)};
    const double from_full = 180.0 - fabs(elongation / rad - 180.0) - 180.0, a = fabs(from_full);
    const double lunar_part = std::clamp(1.0 + a * (-0.019 + a * (2.42e-4 - a * 1.46e-6)), 0.0, 1.0);
    texel_picture picture(size, size);
    for (int t = 0; t < size; ++t)
        for (int s = 0; s < size; ++s) {
            double light = 0.0, cover = 0.0;
            for (int n = 0; n < fine * fine; ++n) {
                const sample& p =
                    face[static_cast<size_t>(t * fine + n / fine) * fine_size + s * fine + n % fine];
                if (!p.on) continue;
                cover += 1.0;
                light += pow(p.bright * std::max(returned(p, sun, lunar_part), 1e-9), gamma) +
                         earthshine * p.bright;
            }
            texel& texel = picture.at(s, t);
            if (cover == 0.0) continue;
            texel.a = std::min(1.0, light / (fine * fine));
            texel.r = 1.0, texel.g = 0.985, texel.b = 0.955;
        }
    picture.save(path);
}
}  // namespace

void draw_moons(const std::string& folder) {
    const std::vector<sample> face = seen_face();
    for (int phase = 1; phase <= phases; ++phase) {
        char name[32];
        snprintf(name, sizeof name, "/moon%02d.png", phase);
        draw_phase(face, phase, folder + name);
    }
}
