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
    {250, 40, 200, 500, 2, 20}, {400, 50, 350, 1100, 4, 60}, {550, 75, 700, 2600, 6, 160}};

// Feet along and right of the first runway from its first end to a place.
struct runway_frame {
    const nav_globe& globe;
    nav_place origin;
    double heading;
    int side;
    nav_place at(double along, double beside) const {
        return place_beside(globe, origin, heading, along * foot, side * beside * foot);
    }
};

void add_pavement(nav_airport& a, const runway_frame& f, const layout& plan, int lights) {
    const nav_runway& main = a.runways[0];
    const double len = main.len, width = plan.taxi_width;
    const int surface = main.surface;
    std::vector<nav_runway> pieces;
    const auto piece = [&](double along1, double beside1, double along2, double beside2, double wide) {
        pieces.push_back(pavement_between(f.globe, f.at(along1, beside1), f.at(along2, beside2), wide,
                                          surface, wide > width ? no_lights : lights));
    };
    piece(width / 2, plan.offset, len - width / 2, plan.offset, width);
    const int links = std::max(1, static_cast<int>(len / 3000));
    for (int n = 0; n <= links; ++n) {
        const double along = width / 2 + (len - width) * n / links;
        piece(along, main.width / 2, along, plan.offset - width / 2, width);
    }
    const double deep = plan.offset + width / 2 + plan.apron_deep / 2, half = plan.apron_long / 2;
    piece(len / 2 - half + plan.apron_deep / 2, deep, len / 2 + half - plan.apron_deep / 2, deep,
          plan.apron_deep);
    a.runways.insert(a.runways.end(), pieces.begin(), pieces.end());
}

void add_ramps(nav_airport& a, const runway_frame& f, const layout& plan, bool hard) {
    const double beside =
        hard ? plan.offset + plan.taxi_width / 2 + 0.6 * plan.apron_deep : a.runways[0].width / 2 + 60;
    for (int n = 0; n < plan.ramps; ++n) {
        const double along = a.runways[0].len / 2 + plan.apron_long * ((n + 0.5) / plan.ramps - 0.5);
        const char* kind = n == 0 ? "Terminal" : n == plan.ramps - 1 ? "Cargo" : "Parking";
        const std::string name = plan.ramps > 2 ? std::string(kind) + " " + std::to_string(n + 1)
                                                : std::string("Parking ") + std::to_string(n + 1);
        a.ramps.push_back({f.at(along, beside), wrap_heading(f.heading - f.side * 90), name});
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
    const runway_frame f = {globe, runway_end(globe, main, 0), main.psi, plan.side};
    const layout& l = layouts[plan.size];
    const bool hard = is_hard(main.surface) && main.num[0] != 'H' && main.len > 2 * l.apron_long;
    const bool has_pavement =
        std::any_of(a.runways.begin(), a.runways.end(), [](const nav_runway& r) { return r.num == "xxx"; });
    if (hard && !has_pavement) add_pavement(a, f, l, plan.lit ? taxi_lights : no_lights);
    if (a.ramps.empty()) add_ramps(a, f, l, hard);
    const double behind = l.offset + l.taxi_width / 2 + l.apron_deep;
    if (!a.has_viewpoint) {
        a.has_viewpoint = true;
        a.viewpoint = f.at(main.len / 2, hard ? behind + 100 : main.width / 2 + 150);
        a.viewpoint_height = a.tower ? l.tower_height : 15;
    }
    if (!a.beacon && plan.lit) {
        a.beacon = a.type == 16 ? beacon_water : a.type == 17 ? beacon_heliport : beacon_land;
        a.beacon_at = f.at(main.len * 0.6, hard ? behind + 200 : main.width / 2 + 200);
    }
    if (a.windsocks.empty()) {
        const double beside = main.width / 2 + 120, in = std::min(1000.0, main.len / 4);
        a.windsocks.push_back({f.at(in, beside), plan.lit});
        if (main.len > 5000) a.windsocks.push_back({f.at(main.len - in, beside), plan.lit});
    }
    add_frequencies(a, plan.size);
}
