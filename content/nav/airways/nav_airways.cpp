// Airways and fixes from the net of radio aids.
#include "nav_airways.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "nav_geo.h"
#include "nav_net.h"

namespace {
constexpr double ocean_leg = 500 * nautical_mile;

struct knot {
    nav_place at;
    std::string id;
};

struct builder {
    nav_world& world;
    const airway_rules& rules;
    std::set<std::string> names;  // of fixes and aids
    int drawn = 0;

    // The next name that is free; the world has far fewer fixes than there are names.
    std::string next_name() {
        while (drawn < fix_names) {
            const std::string name = fix_name(drawn++);
            if (!is_rude(name) && names.insert(name).second) return name;
        }
        return "";
    }
    knot add_fix(nav_place at) {
        world.fixes.push_back({at, next_name()});
        return {at, world.fixes.back().name};
    }
};

// Those of the low net, or the ones far apart that the high net joins; in the order of the aids.
std::vector<knot> knots_of(const nav_world& world, const airway_rules& rules, bool high) {
    std::vector<knot> knots;
    for (const nav_aid& a : world.aids) {
        if (a.type != aid_vor || (high && a.range < rules.high_range)) continue;
        const double apart = (high ? rules.high_spacing : rules.low_spacing) * nautical_mile;
        const bool clear = std::none_of(knots.begin(), knots.end(), [&](const knot& k) {
            return std::fabs(k.at.lat - a.at.lat) * 0.017453293 * world.globe.radius < apart &&
                   distance_between(world.globe, k.at, a.at) < apart;
        });
        if (clear) knots.push_back({a.at, a.id});
    }
    return knots;
}

// The stretch between two aids, with fixes evenly along it.
void add_stretch(builder& b, const knot& from, const knot& to, int level, const std::string& name) {
    const double length = std::round(distance_between(b.world.globe, from.at, to.at));
    const double spacing = level == 1           ? b.rules.low_fix
                           : length > ocean_leg ? b.rules.ocean_fix
                                                : b.rules.high_fix;
    const int parts = std::max(1, static_cast<int>(std::ceil(length / (spacing * nautical_mile))));
    knot last = from;
    for (int n = 1; n <= parts; ++n) {
        const knot next =
            n == parts ? to : b.add_fix(place_between(from.at, to.at, static_cast<double>(n) / parts));
        b.world.legs.push_back({{last.at, next.at}, {last.id, next.id}, level, name});
        last = next;
    }
}

void add_level(builder& b, int level) {
    const std::vector<knot> knots = knots_of(b.world, b.rules, level == 2);
    std::vector<nav_place> places;
    for (const knot& k : knots) places.push_back(k.at);
    const double longest = (level == 1 ? b.rules.low_leg : b.rules.high_leg) * nautical_mile;
    const std::vector<net_edge> edges = net_between(b.world.globe, places, longest);
    int number = 0;
    for (const net_line& line : lines_of(b.world.globe, places, edges)) {
        const std::string name = (level == 1 ? "V" : "J") + std::to_string(++number);
        for (size_t n = 1; n < line.size(); ++n)
            add_stretch(b, knots[static_cast<size_t>(line[n - 1])], knots[static_cast<size_t>(line[n])],
                        level, name);
    }
}

// Ten miles before the localizer's runway, where a slope of 3 degrees is met about 3,000 feet up.
void add_approach_fixes(builder& b) {
    constexpr double out = 12 * nautical_mile;  // from the localizer, which stands past the far end
    for (size_t n = 0; n < b.world.aids.size(); ++n) {
        const nav_aid& a = b.world.aids[n];
        if (a.type == aid_ils || a.type == aid_loc)
            b.add_fix(place_from(b.world.globe, a.at, a.psi + 180, out));
    }
}
}  // namespace

void add_airways(nav_world& world, const airway_rules& rules) {
    builder b = {world, rules, {}, 0};
    for (const nav_aid& a : world.aids) b.names.insert(a.id);
    for (const nav_fix& f : world.fixes) b.names.insert(f.name);
    add_level(b, 1);
    add_level(b, 2);
    add_approach_fixes(b);
}
