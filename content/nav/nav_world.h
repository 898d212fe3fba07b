// A planet's airports, navaids, fixes and airways as they are compiled: positions in double degrees, other
// values in the units of the files that are written, so that nothing is rounded twice.
#pragma once
#include <string>
#include <vector>

struct nav_place {
    double lat = 0, lon = 0;  // degrees, north and east positive
};

struct nav_globe {
    double radius = 6378145;  // of the simulator's sphere, m
    bool magnetic = true;     // has a field; elsewhere magnetic is true
};
constexpr nav_globe earth_globe = {6378145, true};
constexpr nav_globe mars_globe = {3396200, false};

constexpr double foot = 0.3048;         // m
constexpr double nautical_mile = 1852;  // m
constexpr size_t name_max = 39;         // longest name that the simulator keeps

// Kinds of surface as the airport file numbers them.
enum surface_code : int {
    surface_asphalt = 1,
    surface_concrete = 2,
    surface_grass = 3,
    surface_dirt = 4,
    surface_gravel = 5,
    surface_pad_asphalt = 6,
    surface_pad_concrete = 7,
    surface_pad_grass = 8,
    surface_pad_dirt = 9,
    surface_lakebed = 12,
    surface_water = 13,
};
inline bool is_hard(int surface) {
    return surface == surface_asphalt || surface == surface_concrete || surface == surface_pad_asphalt ||
           surface == surface_pad_concrete;
}

// One of a pair is that of the first end, two that of the second.
struct nav_runway {
    nav_place at;                     // centre
    std::string num;                  // three characters: "14L", "06x", "H1x"; "xxx" is a piece of pavement
    double psi = 0;                   // of the first end, degrees true
    double len = 0, width = 0;        // feet
    int disp[2] = {}, blast[2] = {};  // displaced threshold, blast pad, feet
    int lights[2] = {111, 111};       // glide, runway and approach lights, each digit 1 more
    int surface = surface_asphalt;
    int shoulder = 0, markings = 0, signs = 0;
    double roughness = 0.25;  // 0 to 1
};

struct nav_ramp {
    nav_place at;
    double psi = 0;  // degrees true
    std::string name;
};

struct nav_windsock {
    nav_place at;
    bool lit = false;
};

enum nav_service : int {
    nav_awos,
    nav_unicom,
    nav_clearance,
    nav_ground,
    nav_tower,
    nav_approach,
    nav_departure,
    nav_service_DIM
};

struct nav_frequency {
    int frq = 0;  // 10 kHz; 0 none
    std::string name;
};

enum beacon_kind : int {
    beacon_none = 0,
    beacon_land = 1,
    beacon_water = 2,
    beacon_heliport = 3,
    beacon_military = 4,
    beacon_strobe = 5
};

struct nav_airport {
    int type = 1;  // 1 land, 16 water, 17 helipad
    std::string id, name;
    double ele = 0;      // feet
    bool tower = false;  // has a controller
    bool has_viewpoint = false;
    nav_place viewpoint;
    double viewpoint_height = 0;  // feet above the ground
    int beacon = beacon_none;
    nav_place beacon_at;
    std::vector<nav_runway> runways;  // the first is the airport's place
    std::vector<nav_ramp> ramps;
    std::vector<nav_windsock> windsocks;
    nav_frequency frequency[nav_service_DIM];
};

enum aid_type : int {
    aid_ndb = 2,
    aid_vor = 3,
    aid_ils = 4,
    aid_loc = 5,
    aid_glide = 6,
    aid_outer = 7,
    aid_middle = 8,
    aid_inner = 9,
    aid_dme = 12
};

struct nav_aid {
    int type = 0;  // aid_type
    nav_place at;
    double ele = 0;    // feet
    int frq = 0;       // 10 kHz; NDB kHz; markers 0
    double range = 0;  // nautical miles
    double psi = 0;    // course of a localizer, variation of a VOR (east positive), bias of a DME in
                       // nautical miles, of a glide slope 1000 x hundredths of a degree + course
    std::string id, name;
};

struct nav_fix {
    nav_place at;
    std::string name;  // five letters
};

struct nav_leg {
    nav_place at[2];
    std::string end[2];  // identifiers of the places
    int level = 1;       // 1 low, 2 high
    std::string name;
};

struct nav_world {
    nav_globe globe;
    std::vector<nav_airport> airports;
    std::vector<nav_aid> aids;
    std::vector<nav_fix> fixes;
    std::vector<nav_leg> legs;
};
