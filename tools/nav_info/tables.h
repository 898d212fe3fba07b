// The navigation tables of an install folder, and what stands where in them.
#pragma once
#include <string>
#include <vector>

#include "place.h"
#include "scenery/nav/nav_tables.h"

// Reads the tables of a planet (0 Earth, 1 Mars). Missing airports end the program with what is wrong.
void load_tables(const std::string& install_folder, int planet);

place airport_place(const vec_apt_struct& apt);  // of its first runway
inline place place_of(const vec_nav_struct& aid) { return {aid.lat, aid.lon}; }
inline place place_of(const vec_fix_struct& fix) { return {fix.lat, fix.lon}; }
inline place place_of(const vec_rwy_struct& rwy) { return {rwy.lat, rwy.lon}; }

// One end of a runway, as seen by who lands there.
struct runway_end {
    std::string name;       // "14L", "06", "H1"
    double heading;         // true
    double displaced, pad;  // metres: threshold inside the end, blast pad outside it
};
struct runway_ends {
    runway_end end[2];
};
enum class runway_kind { runway, helipad, pavement };
runway_kind kind_of(const vec_rwy_struct& rwy);
runway_ends ends_of(int apt_index, int rwy_index);

// Of an airport: localizers, glide slopes, markers and stations that stand on it or serve its runways.
std::vector<const vec_nav_struct*> aids_of(const vec_apt_struct& apt);
// The localizer that leads to one end of a runway, or null.
const vec_nav_struct* localizer_of(int apt_index, int rwy_index, int end);
// Beacons to fly by (VOR, NDB) within a distance, the nearest first.
std::vector<const vec_nav_struct*> beacons_near(const place& p, double metres);

// What an airway's end may be: the name of the fix or beacon there, or the place itself.
std::string name_at(const place& p);

struct airway_leg {
    const vec_awy_struct* leg;
    int end;  // that stands at the place
    bool is_high;
};
std::vector<airway_leg> legs_through(const place& p);
// An airway as chains of places; one that is written as "V8-V21" is part of both.
struct airway_chain {
    std::string name;
    bool is_high;
    std::vector<place> places;
};
std::vector<airway_chain> chains_of(const std::string& ident);
