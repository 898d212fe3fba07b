// The world's airports, navaids, fixes and airways, whole in memory.
// Role: filled by read_planet_nav, read by radios, maps, controllers, scenery and plugins. Positions are
// degrees, north and east positive; a runway's is its centre, an airport's that of its first runway.
#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <vector>

enum nav_type : int {
    nav_none = 0,
    nav_ndb = 2,
    nav_vor = 3,
    nav_ils = 4,
    nav_loc = 5,
    nav_gls = 6,
    nav_outer = 7,
    nav_middle = 8,
    nav_inner = 9,
    nav_dme = 12,
    // further kinds of target of the GPS
    targ_apt = 1,
    targ_fix = 11,
    targ_latlon = 13,
};
constexpr int marker_frq = 0;

struct vec_nav_struct {
    int type = 0;  // nav_type
    int frq = 0;   // 10 kHz; NDB kHz; markers marker_frq
    float lat = 0, lon = 0;
    float ele = 0;            // metres
    float sqr_range_deg = 0;  // square of the reach, degrees of latitude and longitude
    // degrees true: front course of a localizer; slaved variation of a VOR, east positive; bias of a DME in
    // nautical miles; of a glide slope 1000 x hundredths of a degree of slope + course
    float psi_true = 0;
    char nav_id[5] = "";
    char nav_name[40] = "";
    unsigned char in_reg = 0;  // in the present region (paging)
};

struct vec_fix_struct {
    float lat = 0, lon = 0;
    char fix_name[6] = "";
};

struct vec_awy_struct {
    float lat[2] = {}, lon[2] = {};
    std::string awy_name;
};

struct vec_rwy_struct {
    int i_code = 0;   // lights: six digits, three an end (glide aid, runway, approach), each 1 more
    int geo_ind = 0;  // its strip in the region (paging)
    float lat = 0, lon = 0;
    float roughness = 0;        // 0 to 1
    float psi_true = 0;         // of the first end, degrees
    float len = 0, width = 0;   // metres
    float disp = 0, blast = 0;  // feet of the first end before the point, of the second in 1/10,000 behind it
    char num_str[4] = "";       // "14L"; "xxx" is no runway, "H.." a helipad
    unsigned char surf_tex = 0;  // texture reference of the surface
    unsigned char shoulder = 0;  // 0 none, 1 asphalt, 2 concrete
    unsigned char markings = 0;  // 0 none to 3
    unsigned char dis_signs = 0;
};

struct vec_sta_struct {
    float lat = 0, lon = 0, psi = 0;
    std::string sta_name;
};

struct vec_soc_struct {
    unsigned char lit = 0;
    float lat = 0, lon = 0;
    float soc_xyz[3] = {};  // metres, world frame (paging)
};

enum apt_type : int { apt_land = 1, apt_sea = 16, apt_helipad = 17, apt_carrier = 20 };

struct vec_apt_struct {
    unsigned char in_reg = 0;
    unsigned char atc_twr = 0;  // has a tower
    unsigned char apt_type = 0;
    char apt_id[5] = "";
    std::string apt_name;
    float ele = 0;                                // metres
    float twr_lat = 0, twr_lon = 0, twr_hgt = 0;  // viewpoint; metres above the ground
    float bcn_lat = 0, bcn_lon = 0;
    int bcn_typ = 0;
    float bcn_xyz[3] = {};  // metres, world frame (paging)
    // frequencies, 10 kHz, 0 none
    std::uint16_t int_AWOS = 0, int_unicom = 0, int_clearance = 0, int_ground = 0, int_tower = 0;
    std::uint16_t int_approach = 0, int_departure = 0;
    std::string str_AWOS, str_unicom, str_clearance, str_ground, str_tower, str_approach, str_departure;
    std::vector<vec_rwy_struct> rwy;
    std::vector<vec_sta_struct> sta;
    std::vector<vec_soc_struct> soc;
};

extern std::vector<vec_nav_struct> vec_nav;
extern std::vector<vec_fix_struct> vec_fix;
extern std::vector<vec_awy_struct> vec_loa, vec_hia;  // low and high airways
extern std::vector<vec_apt_struct> vec_apt;

extern std::multimap<int, int> nav_hash;       // frequency to index, in table order
extern std::map<std::uint32_t, int> apt_hash;  // apt_id_key to index; the first of equals

// Empties all of them.
void forget_nav_tables();
std::uint32_t apt_id_key(const char* apt_id);  // its first four bytes as they stand in memory

// Surface codes of the airport file and texture references of the program; an unknown code is asphalt, an
// unknown reference 0.
int tex_with_code(int code);
int code_with_tex(int surf_tex);

// Indexes that the ships' own aids have in vec_nav on Earth: localizer, glide slope, DME.
constexpr int nav_carrier = 0, nav_frigate = 3;
