// Single scattering along a ray with the true phase functions (T. Nishita et al., "Display of the Earth
// Taking into Account Atmospheric Scattering", SIGGRAPH 1993), and all later scatterings as equal in all
// directions, which makes their source a function of height and sun alone: it is found by repeating the
// gathering until it stands. (S. Hillaire, EGSR 2020, takes the same assumption and sums a series instead.)
#include "light.h"

#include <math.h>

#include <algorithm>
#include <atomic>
#include <thread>

namespace {
constexpr double degree = M_PI / 180.0;
constexpr int height_nodes = 24, sun_nodes = 61;  // the middle one is a sun on the horizontal
constexpr double lowest_sun = -30.0, highest_sun = 90.0;
constexpr int gathering_rounds = 5;
constexpr int fine_steps = 96, coarse_steps = 20;
constexpr float faintest_log = -60.0f;

struct vec {
    double x, y, z;  // x to the sun's azimuth, z up
};
double dot(const vec& a, const vec& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
vec direction(double elevation, double azimuth) {
    return {cos(elevation * degree) * cos(azimuth * degree), cos(elevation * degree) * sin(azimuth * degree),
            sin(elevation * degree)};
}

// Nodes crowd about the horizon, where twilight changes fast.
double sun_of_node(int k) {
    constexpr int middle = sun_nodes / 2;
    const double off = (k - middle) / static_cast<double>(middle);
    return off * off * (off < 0.0 ? lowest_sun : highest_sun);
}
double node_of_sun(double elevation) {
    constexpr int middle = sun_nodes / 2;
    const double off = elevation < 0.0 ? -sqrt(std::min(elevation / lowest_sun, 1.0))
                                       : sqrt(std::min(elevation / highest_sun, 1.0));
    return middle + off * middle;
}
double height_of_node(const atmosphere& a, int k) {
    const double u = k / (height_nodes - 1.0);
    return a.thickness * u * u;
}

spectrum between(const spectrum& a, const spectrum& b, float f) {
    spectrum s;
    for (int i = 0; i < wavelengths; ++i) s[i] = a[i] + (b[i] - a[i]) * f;
    return s;
}

spectrum log_gathered(const lit_air& lit, double height, double sun_elevation) {
    const double u = sqrt(std::clamp(height / lit.air.thickness, 0.0, 1.0)) * (height_nodes - 1);
    const double v = node_of_sun(sun_elevation);
    const int h = std::min(static_cast<int>(u), height_nodes - 2),
              k = std::min(static_cast<int>(v), sun_nodes - 2);
    const spectrum* at = &lit.gathered[h * sun_nodes + k];
    const float fv = static_cast<float>(v - k);
    return between(between(at[0], at[1], fv), between(at[sun_nodes], at[sun_nodes + 1], fv),
                   static_cast<float>(u - h));
}

spectrum ground_radiance(const lit_air& lit, double sun_elevation) {
    const double v = node_of_sun(sun_elevation);
    const int k = std::min(static_cast<int>(v), sun_nodes - 2);
    return between(lit.lit_ground[k], lit.lit_ground[k + 1], static_cast<float>(v - k));
}

// Parts of what is scattered, per steradian: Rayleigh's, and that of W. M. Cornette and J. G. Shanks,
// "Physically reasonable analytic expression for the single-scattering phase function", Appl. Opt. 31 (1992).
double molecule_phase(double cosine) { return 3.0 / (16.0 * M_PI) * (1.0 + cosine * cosine); }
spectrum aerosol_phase(const spectrum& g, double cosine) {
    spectrum p;
    for (int i = 0; i < wavelengths; ++i) {
        const float gg = g[i] * g[i], base = 1.0f + gg - 2.0f * g[i] * static_cast<float>(cosine);
        p[i] = static_cast<float>(3.0 / (8.0 * M_PI) * (1.0 + cosine * cosine)) * (1.0f - gg) /
               ((2.0f + gg) * base * sqrtf(base));
    }
    return p;
}

// What comes along a ray. The first scattering has the whole phase function while the light on its way loses
// only what leaves the forward peak (T. Nakajima and M. Tanaka, JQSRT 40 (1988)); for gathering, the soft
// one.
spectrum trace(const lit_air& lit, double height, const vec& view, const vec& sun, bool gathering) {
    const atmosphere& a = lit.air;
    const double r = a.radius + height, ground = to_ground(a, r, view.z);
    const double length = ground >= 0.0 ? ground : to_space(a, r, view.z);
    const int steps = gathering ? coarse_steps : fine_steps;
    const double turn = dot(view, sun);
    const spectrum from_molecules = a.molecule_scattering * molecule_phase(turn);
    const spectrum from_aerosol = gathering ? a.soft_scattering * aerosol_phase(a.soft_asymmetry, turn)
                                            : a.aerosol_scattering * aerosol_phase(a.asymmetry, turn);
    spectrum light = constant(0.0f), depth = constant(0.0f);
    for (int i = 0; i < steps; ++i) {
        // steps grow with the distance
        const double near = length * i * i / (steps * steps),
                     far = length * (i + 1) * (i + 1) / (steps * steps);
        const double s = 0.5 * (near + far), ds = far - near;
        const vec place = {view.x * s, view.y * s, view.z * s + r};
        const double distance = sqrt(dot(place, place)), cosine = dot(place, sun) / distance;
        amounts here = amounts_at(a, distance - a.radius);
        for (float& amount : here) amount *= static_cast<float>(ds);
        const spectrum step_depth = optical_depth(a, here);
        const spectrum sunlit = a.sun * sun_transmittance(a, distance, cosine);
        const spectrum gathered =
            exponential(log_gathered(lit, distance - a.radius, asin(std::clamp(cosine, -1.0, 1.0)) / degree));
        spectrum to_middle;
        for (int w = 0; w < wavelengths; ++w)
            to_middle[w] = std::max(-(depth[w] + 0.5f * step_depth[w]), -80.0f);
        const spectrum through = exponential(to_middle);
        for (int w = 0; w < wavelengths; ++w) {
            const float first =
                sunlit[w] * (from_molecules[w] * here[molecules] + from_aerosol[w] * here[aerosol]);
            const float later = gathered[w] * (a.molecule_scattering[w] * here[molecules] +
                                               a.soft_scattering[w] * here[aerosol]);
            light[w] += through[w] * (first + later);
            depth[w] += step_depth[w];
        }
    }
    if (ground < 0.0) return light;
    const vec place = {view.x * ground, view.y * ground, view.z * ground + r};
    const double cosine = dot(place, sun) / a.radius;
    for (float& d : depth) d = std::max(-d, -80.0f);
    return light + exponential(depth) * ground_radiance(lit, asin(std::clamp(cosine, -1.0, 1.0)) / degree);
}

struct sums {
    spectrum mean, level, from_sun;
};
// Over the sphere (mean) and its upper half (irradiances). Directions crowd about the horizon.
sums over_sky(const lit_air& lit, double height, double sun_elevation, bool gathering) {
    const int rings = gathering ? 14 : 20, azimuths = gathering ? 6 : 8;  // azimuths of half the sky
    const vec sun = direction(sun_elevation, 0.0);
    sums total = {constant(0.0f), constant(0.0f), constant(0.0f)};
    for (int ring = gathering ? 0 : rings / 2; ring < rings; ++ring) {
        const double t = (2.0 * ring + 1.0) / rings - 1.0, up = t * fabs(t);
        const double weight = 2.0 * fabs(t) * (2.0 / rings) * (2.0 * M_PI / azimuths);  // steradians
        for (int k = 0; k < azimuths; ++k) {
            const double azimuth = (k + 0.5) * M_PI / azimuths, level = sqrt(1.0 - up * up);
            const vec view = {level * cos(azimuth), level * sin(azimuth), up};
            const spectrum light = trace(lit, height, view, sun, gathering) * weight;
            total.mean = total.mean + light * (0.25 / M_PI);
            if (up > 0.0) total.level = total.level + light * up;
            total.from_sun = total.from_sun + light * view.x;
        }
    }
    return total;
}
}  // namespace

lit_air light_up(const atmosphere& a) {
    lit_air lit = {a, std::vector<spectrum>(height_nodes * sun_nodes, constant(faintest_log)),
                   std::vector<spectrum>(sun_nodes, constant(0.0f))};
    for (int round = 0; round < gathering_rounds; ++round) {
        lit_air next = lit;
        in_parallel(height_nodes * sun_nodes, [&](int node) {
            const int h = node / sun_nodes, k = node % sun_nodes;
            const double sun = sun_of_node(k);
            const sums total = over_sky(lit, height_of_node(a, h), sun, true);
            for (int w = 0; w < wavelengths; ++w)
                next.gathered[node][w] = std::max(logf(std::max(total.mean[w], 1e-26f)), faintest_log);
            if (h > 0) return;
            const spectrum direct =
                a.sun * sun_transmittance(a, a.radius, sin(sun * degree)) * std::max(sin(sun * degree), 0.0);
            next.lit_ground[k] = (direct + total.level) * a.ground * (1.0 / M_PI);
        });
        lit = next;
    }
    return lit;
}

spectrum radiance(const lit_air& lit, double height, double elevation, double azimuth, double sun_elevation) {
    return trace(lit, height, direction(elevation, azimuth), direction(sun_elevation, 0.0), false);
}

spectrum beam(const lit_air& lit, double height, double sun_elevation) {
    // T. Saemundsson, Sky and Telescope 72 (1986): minutes of arc, at sea level; it falls with the density
    const double lift = 1.02 / tan((sun_elevation + 10.3 / (sun_elevation + 5.11)) * degree) / 60.0;
    const double air =
        lit.air.has_ozone && sun_elevation > -2.0 ? amounts_at(lit.air, height)[molecules] : 0.0;
    const double apparent = sun_elevation + air * std::max(lift, 0.0);
    return lit.air.sun * sun_transmittance(lit.air, lit.air.radius + height, sin(apparent * degree));
}

irradiances sky_irradiance(const lit_air& lit, double height, double sun_elevation) {
    const sums total = over_sky(lit, height, sun_elevation, false);
    return {total.level, total.from_sun};
}

void in_parallel(int count, void (*one)(int i, void* with), void* with) {
    std::atomic<int> next = 0;
    const auto work = [&] {
        for (int i = next++; i < count; i = next++) one(i, with);
    };
    std::vector<std::thread> helpers;
    for (unsigned i = 1; i < std::thread::hardware_concurrency(); ++i) helpers.emplace_back(work);
    work();
    for (std::thread& t : helpers) t.join();
}
