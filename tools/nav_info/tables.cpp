// The navigation tables of an install folder.
#include "tables.h"

#include <math.h>
#include <strings.h>

#include <algorithm>

#include "core/disk/paths.h"
#include "core/program/jobs.h"
#include "core/records/records.h"
#include "scenery/nav/nav_lookup.h"
#include "scenery/nav/planet_nav.h"
#include "scenery/packages/library.h"
#include "weather/atmosphere.h"
#include "words.h"

namespace {
constexpr double same_place = 0.0015;  // degrees: the tables write places with 4 to 6 decimals

bool at_same_place(const place& a, const place& b) {
    return fabs(a.lat - b.lat) < same_place && fabs(remainder(a.lon - b.lon, 360.0)) < same_place;
}

// A name that ends in "x" has no letter.
std::string without_x(const std::string& name) {
    return name.size() == 3 && name[2] == 'x' ? name.substr(0, 2) : name;
}

std::vector<airway_leg> all_legs() {
    std::vector<airway_leg> legs;
    for (const vec_awy_struct& leg : vec_loa) legs.push_back({&leg, 0, false});
    for (const vec_awy_struct& leg : vec_hia) legs.push_back({&leg, 0, true});
    return legs;
}

place end_of(const vec_awy_struct& leg, int end) { return {leg.lat[end], leg.lon[end]}; }

// Does "V8-V21" name V21?
bool is_named(const std::string& name, const std::string& ident) {
    for (size_t from = 0; from <= name.size();) {
        const size_t dash = std::min(name.find('-', from), name.size());
        if (!strcasecmp(name.substr(from, dash - from).c_str(), ident.c_str())) return true;
        from = dash + 1;
    }
    return !strcasecmp(name.c_str(), ident.c_str());
}

int legs_at(const std::vector<airway_leg>& legs, const place& p) {
    int count = 0;
    for (const airway_leg& l : legs)
        count += at_same_place(end_of(*l.leg, 0), p) || at_same_place(end_of(*l.leg, 1), p);
    return count;
}

// Takes the leg that goes on from the last place; false when there is none.
bool lengthen(std::vector<airway_leg>* legs, std::vector<place>* places) {
    for (size_t i = 0; i < legs->size(); ++i)
        for (int end = 0; end < 2; ++end)
            if (at_same_place(end_of(*(*legs)[i].leg, end), places->back())) {
                places->push_back(end_of(*(*legs)[i].leg, 1 - end));
                legs->erase(legs->begin() + static_cast<long>(i));
                return true;
            }
    return false;
}

place start_of_chain(const std::vector<airway_leg>& legs) {
    for (const airway_leg& l : legs)
        for (int end = 0; end < 2; ++end)
            if (legs_at(legs, end_of(*l.leg, end)) == 1) return end_of(*l.leg, end);
    return end_of(*legs.front().leg, 0);  // a ring
}
}  // namespace

void load_tables(const std::string& install_folder, int planet) {
    clear_records();
    THREAD_Init();
    init_con();
    set_planet_specs(planet);
    env.planet = planet;
    init_paths(install_folder);
    DSF_ScanSceneryFolder();
    read_nav_tables();
}

place airport_place(const vec_apt_struct& apt) {
    return apt.rwy.empty() ? place{apt.twr_lat, apt.twr_lon} : place_of(apt.rwy.front());
}

runway_kind kind_of(const vec_rwy_struct& rwy) {
    if (rwy.num_str[0] == 'x') return runway_kind::pavement;
    return rwy.num_str[0] == 'H' ? runway_kind::helipad : runway_kind::runway;
}

// Feet of the first end before the point, of the second in 1/10,000 behind it.
static double feet_of(float packed, int end) {
    const double whole = floor(packed);
    return end == 0 ? whole : round(1e4 * (packed - whole));
}

runway_ends ends_of(int apt_index, int rwy_index) {
    const vec_rwy_struct& rwy = vec_apt[static_cast<size_t>(apt_index)].rwy[static_cast<size_t>(rwy_index)];
    std::string name[2];
    get_rway_strings(apt_index, rwy_index, &name[0], &name[1]);
    if (kind_of(rwy) != runway_kind::runway) name[0] = name[1] = rwy.num_str;
    runway_ends ends;
    for (int end = 0; end < 2; ++end)
        ends.end[end] = {without_x(name[end]), wrap_degrees(rwy.psi_true + 180.0 * end),
                         feet_of(rwy.disp, end) / feet_per_metre, feet_of(rwy.blast, end) / feet_per_metre};
    return ends;
}

// A localizer stands within a short way of the airport; markers and outlying stations carry its identifier.
std::vector<const vec_nav_struct*> aids_of(const vec_apt_struct& apt) {
    constexpr double on_airport = 6000.0, around = 25000.0;
    const place middle = airport_place(apt);
    std::vector<const vec_nav_struct*> found;
    std::vector<std::string> idents;
    for (const vec_nav_struct& aid : vec_nav)
        if ((aid.type == nav_ils || aid.type == nav_loc) && distance_m(middle, place_of(aid)) < on_airport)
            idents.push_back(aid.nav_id);
    for (const vec_nav_struct& aid : vec_nav) {
        const bool is_part = aid.type >= nav_ils && aid.type <= nav_dme;
        if (is_part && std::count(idents.begin(), idents.end(), aid.nav_id) &&
            distance_m(middle, place_of(aid)) < around)
            found.push_back(&aid);
    }
    return found;
}

// On the runway's line and along it.
const vec_nav_struct* localizer_of(int apt_index, int rwy_index, int end) {
    constexpr double widest_turn = 8.0, widest_offset = 150.0, around = 8000.0;  // degrees, metres
    const vec_rwy_struct& rwy = vec_apt[static_cast<size_t>(apt_index)].rwy[static_cast<size_t>(rwy_index)];
    const double heading = ends_of(apt_index, rwy_index).end[end].heading;
    for (const vec_nav_struct& aid : vec_nav) {
        if (aid.type != nav_ils && aid.type != nav_loc) continue;
        if (fabs(remainder(aid.psi_true - heading, 360.0)) > widest_turn) continue;
        const double away = distance_m(place_of(rwy), place_of(aid));
        if (away > around) continue;
        const double turn = (bearing_true(place_of(rwy), place_of(aid)) - heading) * M_PI / 180.0;
        if (cos(turn) > 0.0 && fabs(away * sin(turn)) < widest_offset) return &aid;
    }
    return nullptr;
}

std::vector<const vec_nav_struct*> beacons_near(const place& p, double metres) {
    std::vector<const vec_nav_struct*> found;
    for (const vec_nav_struct& aid : vec_nav)
        if ((aid.type == nav_ndb || aid.type == nav_vor) && distance_m(p, place_of(aid)) < metres)
            found.push_back(&aid);
    std::sort(found.begin(), found.end(), [&](const vec_nav_struct* a, const vec_nav_struct* b) {
        return distance_m(p, place_of(*a)) < distance_m(p, place_of(*b));
    });
    return found;
}

std::string name_at(const place& p) {
    for (const vec_nav_struct& aid : vec_nav)
        if ((aid.type == nav_ndb || aid.type == nav_vor) && at_same_place(place_of(aid), p))
            return aid.nav_id;
    for (const vec_fix_struct& fix : vec_fix)
        if (at_same_place(place_of(fix), p)) return fix.fix_name;
    return place_text(p);
}

std::vector<airway_leg> legs_through(const place& p) {
    std::vector<airway_leg> through;
    for (airway_leg l : all_legs())
        for (l.end = 0; l.end < 2; ++l.end)
            if (at_same_place(end_of(*l.leg, l.end), p)) {
                through.push_back(l);
                break;
            }
    return through;
}

std::vector<airway_chain> chains_of(const std::string& ident) {
    std::vector<airway_chain> chains;
    for (const bool is_high : {false, true}) {
        std::vector<airway_leg> legs;
        for (const airway_leg& l : all_legs())
            if (l.is_high == is_high && is_named(l.leg->awy_name, ident)) legs.push_back(l);
        while (!legs.empty()) {
            airway_chain chain = {ident, is_high, {start_of_chain(legs)}};
            while (lengthen(&legs, &chain.places)) {
            }
            chains.push_back(chain);
        }
    }
    return chains;
}
