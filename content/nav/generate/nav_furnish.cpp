// What stands around runways, by rule.
#include "nav_furnish.h"

#include <algorithm>
#include <cmath>

#include "nav_geo.h"
#include "nav_random.h"

namespace {
constexpr int no_lights = 111, taxi_lights = 161;

struct layout {
    double offset;      // of the taxiway's centre from the runway's, feet
    double taxi_width;  // feet
    double apron_deep, apron_long;
    int ramps;
    double tower_height;  // feet
};
constexpr layout layouts[] = {
    {200, 40, 120, 300, 2, 20}, {400, 50, 350, 1100, 4, 60}, {550, 75, 700, 2600, 6, 160}};

// Feet along and beside the first runway from its first end to a place.
struct runway_frame {
    const nav_globe& globe;
    nav_place origin;
    double heading;
    int side;
    nav_place at(double along, double beside) const {
        return place_beside(globe, origin, heading, along * foot, side * beside * foot);
    }
};

// Where the apron lies, feet.
struct apron_site {
    bool found = false;
    int side = 1;
    double offset = 0;  // of the taxiway's centre
    double middle = 0;  // along the runway
};

// Whether a place keeps off all runways but the first by a margin in feet; the first it stands beside anyway.
bool off_runways(const nav_globe& globe, const nav_airport& a, nav_place at, double margin) {
    constexpr double degtorad = 0.017453292519943295;
    for (size_t n = 1; n < a.runways.size(); ++n) {
        const nav_runway& r = a.runways[n];
        if (r.num == "xxx") continue;
        const double away = distance_between(globe, r.at, at) / foot;
        const double turn = (bearing_between(globe, r.at, at) - r.psi) * degtorad;
        if (std::fabs(away * cos(turn)) < r.len / 2 + margin &&
            std::fabs(away * sin(turn)) < r.width / 2 + margin)
            return false;
    }
    return true;
}

// The same for a rectangle along the first runway, on a raster.
bool clear_strip(const nav_airport& a, const runway_frame& f, double along1, double along2, double beside1,
                 double beside2) {
    constexpr double step = 150, margin = 110;  // feet; the margin covers half the raster's diagonal
    for (double along = along1; along <= along2; along += step)
        for (double beside = beside1; beside <= beside2; beside += step)
            if (!off_runways(f.globe, a, f.at(along, beside), margin)) return false;
    return true;
}

// Beside the middle of the runway if it can be, else along it, on the other side, or further off.
apron_site find_site(const nav_airport& a, const runway_frame& f, const layout& l,
                     const nav_furniture& plan) {
    constexpr double parts[] = {0.5, 0.35, 0.65, 0.2, 0.8};
    constexpr double buildings = 250;  // feet behind the apron
    const double len = a.runways[0].len, half = l.apron_long / 2;
    for (const double offset : {l.offset, 1.6 * l.offset, 2.5 * l.offset, 5 * l.offset})
        for (const int side : {plan.side, -plan.side}) {
            const runway_frame here = {f.globe, f.origin, f.heading, side};
            const double front = offset + l.taxi_width / 2;
            for (const double part : parts)
                if (clear_strip(a, here, part * len - half, part * len + half, front,
                                front + l.apron_deep + buildings))
                    return {true, side, offset, part * len};
        }
    return {};
}

void add_pavement(nav_airport& a, const runway_frame& f, const layout& l, const apron_site& site,
                  int lights) {
    const nav_runway& main = a.runways[0];
    const double len = main.len, width = l.taxi_width;
    const int surface = main.surface;
    std::vector<nav_runway> pieces;
    const auto piece = [&](double along1, double beside1, double along2, double beside2, double wide) {
        pieces.push_back(pavement_between(f.globe, f.at(along1, beside1), f.at(along2, beside2), wide,
                                          surface, wide > width ? no_lights : lights));
    };
    piece(width / 2, site.offset, len - width / 2, site.offset, width);
    const int links = std::max(1, static_cast<int>(len / 3000));
    for (int n = 0; n <= links; ++n) {
        const double along = width / 2 + (len - width) * n / links;
        piece(along, main.width / 2, along, site.offset - width / 2, width);
    }
    const double deep = site.offset + width / 2 + l.apron_deep / 2, half = (l.apron_long - l.apron_deep) / 2;
    piece(site.middle - half, deep, site.middle + half, deep, l.apron_deep);
    a.runways.insert(a.runways.end(), pieces.begin(), pieces.end());
}

void add_ramps(nav_airport& a, const runway_frame& f, const layout& l, const apron_site& site) {
    const double beside = site.offset + l.taxi_width / 2 + 0.6 * l.apron_deep;
    for (int n = 0; n < l.ramps; ++n) {
        const double along = site.middle + l.apron_long * ((n + 0.5) / l.ramps - 0.5);
        const char* kind = l.ramps == 2       ? "Parking"
                           : n == 0           ? "Terminal"
                           : n == l.ramps - 1 ? "Cargo"
                                              : "Parking";
        a.ramps.push_back({f.at(along, beside), wrap_heading(f.heading - f.side * 90),
                           std::string(kind) + " " + std::to_string(n + 1)});
    }
}

// Near both ends of a long runway, near one of a short one; further in where another runway is in the way.
void add_windsocks(nav_airport& a, const runway_frame& f, bool lit) {
    const nav_runway main = a.runways[0];
    const double beside = main.width / 2 + 120, from_end = std::min(1000.0, main.len / 4);
    for (int end = 0; end < (main.len > 5000 ? 2 : 1); ++end)
        for (double in = from_end; in <= main.len / 2; in += 250) {
            const nav_place at = f.at(end ? main.len - in : in, beside);
            if (!off_runways(f.globe, a, at, 50)) continue;
            a.windsocks.push_back({at, lit});
            break;
        }
}

int channel(nav_random& draw, int from_mhz, int to_mhz, int step) {
    const int steps = (to_mhz - from_mhz) * 100 / step;
    return from_mhz * 100 + step * draw.whole(0, steps);
}
}  // namespace

nav_runway pavement_between(const nav_globe& globe, nav_place from, nav_place to, double width, int surface,
                            int lights) {
    nav_runway piece;
    piece.at = place_between(from, to, 0.5);
    piece.num = "xxx";
    piece.psi = bearing_between(globe, piece.at, to);
    piece.len = distance_between(globe, from, to) / foot + width;
    piece.width = width;
    piece.surface = surface;
    piece.lights[0] = piece.lights[1] = lights;
    return piece;
}

std::string runway_num(const std::string& name) {
    std::string num = name;
    if (!num.empty() && isdigit(static_cast<unsigned char>(num[0])) &&
        (num.size() == 1 || !isdigit(static_cast<unsigned char>(num[1]))))
        num = "0" + num;
    if (num.size() == 2) num += 'x';
    return num;
}

void add_frequencies(nav_airport& a, int size) {
    nav_random draw(a.id, 50);
    const auto give = [&](int service, int frq, const char* what) {
        if (a.frequency[service].frq == 0) a.frequency[service] = {frq, what};
    };
    // drawn whether used or not, so that one more service leaves the others as they are
    const int awos = channel(draw, 118, 121, 5), tower = channel(draw, 118, 120, 5);
    const int ground = 12160 + 5 * draw.whole(0, 6), clearance = channel(draw, 124, 126, 5);
    const int approach = channel(draw, 124, 128, 5), departure = channel(draw, 132, 135, 5);
    constexpr int unicoms[] = {12270, 12280, 12300, 12305};
    const int unicom = unicoms[draw.whole(0, 3)];
    if (size >= 1) give(nav_awos, awos, size == 2 ? "ATIS" : "AWOS");
    give(nav_unicom, size == 2 ? 12295 : unicom, "UNICOM");
    if (a.tower) {
        if (size == 2) give(nav_clearance, clearance, "CLNC DEL");
        give(nav_ground, ground, "GND");
        give(nav_tower, tower, "TWR");
        if (size == 2) give(nav_approach, approach, "APP");
        if (size == 2) give(nav_departure, departure, "DEP");
    }
}

void furnish_airport(const nav_globe& globe, nav_airport& a, const nav_furniture& plan) {
    const nav_runway main = a.runways[0];
    const layout& l = layouts[plan.size];
    const bool hard = is_hard(main.surface) && main.num[0] != 'H' && main.len > 2 * l.apron_long;
    runway_frame f = {globe, runway_end(globe, main, 0), main.psi, plan.side};
    apron_site site = find_site(a, f, l, plan);
    if (!site.found) site = {false, plan.side, main.width / 2 + 60, main.len / 2};
    f.side = site.side;
    const bool has_pavement =
        std::any_of(a.runways.begin(), a.runways.end(), [](const nav_runway& r) { return r.num == "xxx"; });
    if (hard && site.found && !has_pavement) add_pavement(a, f, l, site, plan.lit ? taxi_lights : no_lights);
    if (a.ramps.empty()) add_ramps(a, f, l, site);
    const double behind = site.offset + l.taxi_width / 2 + l.apron_deep;
    if (!a.has_viewpoint) {
        a.has_viewpoint = true;
        a.viewpoint = f.at(site.middle, behind + 100);
        a.viewpoint_height = a.tower ? l.tower_height : 15;
    }
    if (!a.beacon && plan.lit) {
        a.beacon = a.type == 16 ? beacon_water : a.type == 17 ? beacon_heliport : beacon_land;
        a.beacon_at = f.at(site.middle + l.apron_long / 3, behind + 200);
    }
    if (a.windsocks.empty()) add_windsocks(a, f, plan.lit);
    add_frequencies(a, plan.size);
}
