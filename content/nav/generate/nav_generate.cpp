// Runways by rule for airports of which only the place is known.
#include "nav_generate.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "nav_furnish.h"
#include "nav_geo.h"
#include "nav_random.h"
#include "nav_text.h"

namespace {
constexpr double same_place = 3000;    // m from a runway that is already there
constexpr double parallel_gap = 4300;  // feet between parallel runways, terminals in the middle

bool stands_there(const nav_world& world, nav_place at) {
    for (const nav_airport& a : world.airports)
        if (a.type == 1 && std::fabs(a.runways[0].at.lat - at.lat) < 0.1 &&
            distance_between(world.globe, a.runways[0].at, at) < same_place)
            return true;
    return false;
}

double runway_length(const listed_airport& l, nav_random& draw) {
    constexpr double longest = 14500, per_foot = 0.04 / 1000;  // thin air needs more
    const double base = l.size == 2 ? 9000 : l.served ? 5500 : 4000;
    const double spread = l.size == 2 ? 3500 : 3200;
    const double len = (base + spread * draw.part()) * (1 + per_foot * std::max(0.0, l.ele));
    return 10 * std::round(std::min(len, longest) / 10);
}

int runway_surface(const listed_airport& l, nav_random& draw) {
    const double chance = draw.part();
    if (l.size == 2) return chance < 0.5 ? surface_concrete : surface_asphalt;
    if (!l.served && std::fabs(l.at.lat) > 58 && chance < 0.4) return surface_gravel;
    return chance < 0.1 ? surface_concrete : surface_asphalt;
}

// Pairs of red side rows stand in America's and its neighbours' approach lights, crossbars elsewhere.
std::string approach_words(const listed_airport& l, bool main_end) {
    constexpr const char* american[] = {"US", "CA", "MX", "PR", "KR", "JP", "TW", "PH"};
    const bool alsf = std::any_of(std::begin(american), std::end(american),
                                  [&](const char* country) { return l.country == country; });
    if (l.size == 2) return main_end ? (alsf ? "ALSF-2" : "Calvert-2") : (alsf ? "MALSR" : "Calvert");
    if (l.served) return main_end ? (alsf ? "MALSR" : "Calvert") : "ODALS";
    return "";
}

void light_runway(const listed_airport& l, nav_runway& r, bool second) {
    std::string unknown;
    const bool precision = r.len >= 6000 && is_hard(r.surface) && !(second && l.size == 1);
    for (int end = 0; end < 2; ++end) {
        std::string words = is_hard(r.surface) ? "papi edge" : "edge";
        if (precision) words += l.size == 2 ? (end ? " centre " : " touchdown ") : " threshold ";
        if (precision) words += approach_words(l, end == 0);
        r.lights[end] = lights_with_words(words, &unknown);
    }
    r.markings = !is_hard(r.surface) ? 0 : precision && (l.size == 2 || l.served) ? 3 : r.len >= 5000 ? 2 : 1;
    if (r.len >= 8000 && is_hard(r.surface)) {
        r.shoulder = r.surface;
        r.blast[0] = r.blast[1] = 200;
        r.signs = 1;
    }
    r.roughness = is_hard(r.surface) ? 0.25 : 0.6;
}

double runway_width(double len, int size) { return size == 2 || len >= 6500 ? 150 : len >= 5000 ? 100 : 75; }

std::string name_of(const nav_globe& globe, const nav_runway& r, char side) {
    const int number = runway_number(globe, r.at, r.psi);
    return std::string(number < 10 ? "0" : "") + std::to_string(number) + side;
}

// A second runway beside the terminals or, shorter, at an angle clear of the first one's other side.
void add_second(const nav_globe& globe, const listed_airport& l, nav_airport& a, int side, nav_random& draw) {
    const bool parallel = l.size == 2 && draw.chance(0.65);
    nav_runway& first = a.runways[0];
    nav_runway second = first;
    if (parallel) {
        second.len = 10 * std::round(first.len * (0.75 + 0.25 * draw.part()) / 10);
        second.at = place_beside(globe, l.at, first.psi, 0, side * parallel_gap / 2 * foot);
        first.at = place_beside(globe, l.at, first.psi, 0, -side * parallel_gap / 2 * foot);
        first.num[2] = side > 0 ? 'L' : 'R';
        second.num = first.num.substr(0, 2) + (side > 0 ? 'R' : 'L');
    } else {
        const double turn = (draw.chance(0.5) ? 1 : -1) * (50 + 40 * draw.part());
        second.len = 10 * std::round(first.len * (0.55 + 0.25 * draw.part()) / 10);
        second.psi = std::round(wrap_heading(first.psi + turn) * 100) / 100;
        const double clear = second.len / 2 * std::fabs(sin(turn * 0.017453292519943295)) + 500;
        second.at = place_beside(globe, first.at, first.psi, 0, -side * clear * foot);
        second.num = name_of(globe, second, 'x');
        if (second.num == first.num || second.num.substr(0, 2) == first.num.substr(0, 2)) return;
    }
    second.width = runway_width(second.len, parallel ? 2 : 1);
    second.shoulder = second.blast[0] = second.blast[1] = second.signs = 0;
    light_runway(l, second, !parallel);
    a.runways.push_back(second);
}

nav_airport airport_of(const nav_globe& globe, const listed_airport& l) {
    nav_random draw(l.id);
    nav_airport a;
    a.id = l.id;
    a.name = airport_name(l.name);
    a.ele = l.ele;
    a.tower = l.size == 2 || (l.served && draw.chance(0.7));
    nav_runway r;
    r.at = l.at;
    r.len = runway_length(l, draw);
    r.surface = runway_surface(l, draw);
    r.width = runway_width(r.len, l.size);
    const double scatter = 45 * (draw.part() + draw.part() - 1);
    r.psi = std::round(wrap_heading(prevailing_wind(l.at.lat) + scatter) * 100) / 100;
    r.num = name_of(globe, r, 'x');
    light_runway(l, r, false);
    a.runways.push_back(r);
    const int side = draw.chance(0.5) ? 1 : -1;
    if (draw.chance(l.size == 2 ? 0.8 : 0.25)) add_second(globe, l, a, side, draw);
    furnish_airport(globe, a, {side, l.size == 2 ? 2 : is_hard(r.surface) ? 1 : 0, true});
    return a;
}
}  // namespace

double prevailing_wind(double lat) {
    constexpr double trades = 30, westerlies = 60;  // degrees of latitude where the belts end
    const bool west = std::fabs(lat) >= trades && std::fabs(lat) < westerlies;
    const double north = west ? 250 : 60;
    return lat >= 0 ? north : 180 - north + (west ? 360 : 0);
}

void generate_airports(nav_world& world, const std::vector<listed_airport>& list) {
    std::set<std::string> ids;
    for (const nav_airport& a : world.airports) ids.insert(a.id);
    std::vector<nav_airport> more;
    for (const listed_airport& l : list)
        // within a minute or so of a pole, longitudes tell nothing of what stands beside what
        if (std::fabs(l.at.lat) < 89.9 && !ids.count(l.id) && !stands_there(world, l.at))
            more.push_back(airport_of(world.globe, l));
    world.airports.insert(world.airports.end(), more.begin(), more.end());
}
