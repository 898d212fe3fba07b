// Radio aids by rule for a world that lacks them.
#include "nav_plant.h"

#include <algorithm>
#include <map>

#include "nav_channels.h"
#include "nav_geo.h"
#include "nav_ils.h"
#include "nav_random.h"
#include "nav_text.h"

namespace {
constexpr double vor_spacing = 60 * nautical_mile, high_spacing = 120 * nautical_mile;
constexpr double ndb_spacing = 10 * nautical_mile;
constexpr double high_range = 130, low_range = 40, ndb_range = 25, ils_range = 18;  // nautical miles

struct site {
    const listed_airport* listed;
    const nav_airport* airport;
};

// Large airports first, then those with airlines, then the rest; each in the list's order.
std::vector<site> sites_by_weight(const nav_world& world, const std::vector<listed_airport>& list) {
    std::map<std::string, const nav_airport*> by_id;
    for (const nav_airport& a : world.airports) by_id[a.id] = &a;
    std::vector<site> sites;
    for (const listed_airport& l : list)
        if (const auto at = by_id.find(l.id); at != by_id.end()) sites.push_back({&l, at->second});
    std::stable_sort(sites.begin(), sites.end(), [](const site& a, const site& b) {
        return 2 * a.listed->size + a.listed->served > 2 * b.listed->size + b.listed->served;
    });
    return sites;
}

bool clear_of(const nav_globe& globe, const std::vector<nav_place>& places, nav_place at, double distance) {
    const double degrees = distance / globe.radius * 57.3;
    for (const nav_place& p : places)
        if (std::abs(p.lat - at.lat) < degrees && distance_between(globe, p, at) < distance) return false;
    return true;
}

std::string short_name(const nav_airport& a) {
    std::string name = a.name;
    for (const char* word : {" Intl", " Muni", " Rgnl", " AFB", " AB", " /", " -", " ("})
        if (const size_t at = name.find(word); at != std::string::npos && at > 2) name.resize(at);
    return plain_name(name);
}

struct planting {
    nav_world& world;
    nav_channels vor = vor_channels(), ndb = ndb_channels();
    nav_idents idents;
    std::vector<nav_place> vors, high, ndbs;

    explicit planting(nav_world& w) : world(w) {
        for (const nav_aid& a : world.aids) {
            idents.taken.insert(a.id);
            (a.type == aid_ndb ? ndb : vor).note(a.frq, a.at, a.range);
            if (a.type == aid_vor) vors.push_back(a.at);
            if (a.type == aid_vor && a.range >= high_range) high.push_back(a.at);
            if (a.type == aid_ndb) ndbs.push_back(a.at);
        }
    }
};

void plant_vor(planting& p, const site& s) {
    const nav_globe& globe = p.world.globe;
    nav_random draw(s.airport->id, 3);
    const double bearing = 360 * draw.part(), away = (1 + 4 * draw.part()) * nautical_mile;
    const int start = draw.whole(0, 999);
    nav_aid a;
    a.at = place_from(globe, s.listed->at, bearing, away);
    if (!clear_of(globe, p.vors, a.at, vor_spacing)) return;
    a.range = clear_of(globe, p.high, a.at, high_spacing) ? high_range : low_range;
    a.frq = p.vor.take(a.at, a.range, start);
    if (!a.frq) a.frq = p.vor.take(a.at, a.range = low_range, start);
    if (!a.frq) return;
    a.type = aid_vor;
    a.ele = s.airport->ele;
    a.psi = -variation_at(globe, a.at);
    a.name = short_name(*s.airport);
    a.id = p.idents.take(s.airport->id.size() == 4 ? s.airport->id.substr(1) + a.name : a.name, 3);
    p.vors.push_back(a.at);
    if (a.range == high_range) p.high.push_back(a.at);
    p.world.aids.push_back(a);
    a.type = aid_dme;
    a.psi = 0;
    p.world.aids.push_back(a);
}

// On the extended centre line of the main runway, where it also serves as a locator.
void plant_ndb(planting& p, const site& s) {
    const nav_globe& globe = p.world.globe;
    nav_random draw(s.airport->id, 2);
    const nav_runway& main = s.airport->runways[0];
    nav_aid a;
    a.at = place_beside(globe, runway_end(globe, main, 0), main.psi, -(3 + draw.part()) * nautical_mile, 0);
    const int start = draw.whole(0, 999);
    if (!clear_of(globe, p.vors, a.at, ndb_spacing) || !clear_of(globe, p.ndbs, a.at, ndb_spacing)) return;
    a.range = ndb_range;
    a.frq = p.ndb.take(a.at, a.range, start);
    if (!a.frq) return;
    a.type = aid_ndb;
    a.ele = s.airport->ele;
    a.name = short_name(*s.airport);
    a.id = p.idents.take(a.name, draw.chance(0.5) ? 2 : 3);
    p.ndbs.push_back(a.at);
    p.world.aids.push_back(a);
}

// Both ends of a city's main runway and one of each other; one end at a part of the towns with airlines.
std::vector<ils_wish> generated_wishes(const nav_world& world, const std::vector<site>& sites) {
    constexpr double shortest = 5500;  // feet
    std::vector<ils_wish> wishes;
    std::set<std::string> have;
    for (const nav_aid& a : world.aids)
        if (a.type == aid_ils || a.type == aid_loc) have.insert(a.name.substr(0, a.name.find(' ')));
    for (const site& s : sites) {
        nav_random draw(s.airport->id, 4);
        const bool town = s.listed->size == 1;
        if (have.count(s.airport->id) || (town && !(s.listed->served && draw.chance(0.4)))) continue;
        const size_t index = static_cast<size_t>(s.airport - world.airports.data());
        for (size_t r = 0; r < s.airport->runways.size(); ++r) {
            const nav_runway& runway = s.airport->runways[r];
            if (runway.num == "xxx" || runway.len < shortest || !is_hard(runway.surface) || (town && r))
                continue;
            wishes.push_back({index, r, 0});
            if (!town && r == 0) wishes.push_back({index, r, 1});
        }
    }
    return wishes;
}
}  // namespace

void plant_ils(nav_world& world, const std::vector<ils_wish>& wishes) {
    nav_channels channels = ils_channels();
    nav_idents idents;
    for (const nav_aid& a : world.aids) {
        idents.taken.insert(a.id);
        if (a.type != aid_ndb) channels.note(a.frq, a.at, a.range);
    }
    for (const ils_wish& wish : wishes) {
        const nav_airport& a = world.airports[wish.airport];
        const nav_runway& r = a.runways[wish.runway];
        nav_random draw(a.id, 5 + wish.runway * 2 + static_cast<size_t>(wish.end));
        ils_plan ils;
        ils.end = wish.end;
        ils.frq = channels.take(r.at, ils_range, draw.whole(0, 999));
        if (!ils.frq) continue;
        const std::string own = a.id.size() == 4 ? a.id.substr(1) : a.id;
        ils.id = idents.take(own + a.name, 3, "I");
        ils.inner = r.lights[wish.end] % 10 == 5 || r.lights[wish.end] % 10 == 8;  // with red side rows
        add_ils(world, a, r, ils);
    }
}

void plant_aids(nav_world& world, const std::vector<listed_airport>& list) {
    const std::vector<site> sites = sites_by_weight(world, list);
    planting p(world);
    for (const site& s : sites) plant_vor(p, s);
    for (const site& s : sites)
        if (s.listed->size == 1) plant_ndb(p, s);
    plant_ils(world, generated_wishes(world, sites));
}
