// Places on the map.
#include "app/start/start_places.h"

#include <math.h>

#include <vector>

#include "app/start/start_texts.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/records.h"
#include "scenery/ground/region.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/region/region_tiles.h"

// -- for all

void bring_region_to(double lat, double lon, float agl) {
    constexpr float space_ft = 100000.0f;  // from there on nobody sees what lies on the ground
    flt[0].y_agl_mtr = agl;
    // over its corner in two steps
    check_for_shift(lat, lon);
    check_for_shift(lat, lon);
    // the last flight may have left it without its land
    if (region_left_out_files() && agl * con.mtrstoft < space_ft) load_region(shift_full_reload);
}

void put_at_elevation(float x, float ele, float z) {
    flt[0].dob_x = x;
    flt[0].dob_y = y_with_xhz(x, ele, z);
    flt[0].dob_z = z;
}

float elevation_of(float x, float y, float z) {
    double lat, lon, ele;
    xdob_latlonel_with_xyz(&lat, &lon, &ele, x, y, z);
    return static_cast<float>(ele);
}

float runway_heading(const vec_rwy_struct& rwy, bool backwards) {
    const float psi = rwy.psi_true + (backwards ? 180.0f : 0.0f) + z_north_os(rwy.lat, rwy.lon);
    return fltwrap(psi, 0.0f, 360.0f);
}

// -- airports

namespace {
constexpr float short_of_end = 10.0f;  // m from the end of a runway to where a flight begins

int last_index(size_t size) { return intmax2(static_cast<int>(size) - 1, 0); }

// The lowest of all heights: where the ground is found it lifts the aircraft.
constexpr double on_the_ground = -9.9e+09;

// What stands for an airport where there is none.
vec_apt_struct airport_of_region() {
    vec_apt_struct apt;
    apt.apt_type = apt_land;
    vec_rwy_struct& rwy = apt.rwy.emplace_back();
    rwy.lat = static_cast<float>(ref_lat());
    rwy.lon = static_cast<float>(ref_lon());
    rwy.len = 2.0f * short_of_end;
    return apt;
}

const vec_apt_struct* selected_airport() {
    if (msc.loc_apt_wrl < 0 || static_cast<size_t>(msc.loc_apt_wrl) >= vec_apt.size()) return nullptr;
    return &vec_apt[static_cast<size_t>(msc.loc_apt_wrl)];
}

void stand_still(start_state& s) {
    flt[0].dob_y = on_the_ground;
    s.the = veh[0].the_eqlbm;
    s.V_msc = 0.0f;
}

bool place_at_ramp(start_state& s, const vec_apt_struct& apt) {
    if (apt.sta.empty()) return false;
    const vec_sta_struct& ramp =
        apt.sta[static_cast<size_t>(intlim(msc.lcl_rwy_ram, 0, last_index(apt.sta.size())))];
    bring_region_to(ramp.lat, ramp.lon, 0.0f);
    flt_struct& f = flt[0];
    xdob_xyz_with_latlonel(&f.dob_x, &f.dob_y, &f.dob_z, ramp.lat, ramp.lon, apt.ele + veh[0].h_eqlbm);
    s.psi = fltwrap(ramp.psi + z_north_os(ramp.lat, ramp.lon), 0.0f, 360.0f);
    stand_still(s);
    return true;
}

// Backwards along the heading, in the world's plane.
void move_back(float psi, float distance) {
    flt[0].dob_x -= static_cast<double>(distance) * sin_deg(psi);
    flt[0].dob_z += static_cast<double>(distance) * cos_deg(psi);
}

// From the threshold, where the aircraft is, out and up.
void place_on_final(start_state& s, float miles) {
    flt_struct& f = flt[0];
    const float slope = veh[0].num_engines > 0 ? 3.0f : 6.0f;
    const float x = static_cast<float>(f.dob_x), z = static_cast<float>(f.dob_z);
    const float threshold = elevation_of(x, return_terrain_y(x, z, checker_user), z);
    const float distance = miles * con.nmtomtrs;
    move_back(s.psi, distance);
    put_at_elevation(static_cast<float>(f.dob_x), threshold + tan_deg(slope) * distance,
                     static_cast<float>(f.dob_z));
    s.V_msc =
        veh[0].V_ref_ms * sqrtf(1.225f / con.sl_r_met) * sqrtf(con.planet_mu / (sqr(con.planet_rad) * con.g));
}

void place_at_runway(start_state& s, const vec_apt_struct& apt) {
    const size_t number = static_cast<size_t>(intlim(msc.lcl_rwy_ram, 0, last_index(apt.rwy.size())));
    const vec_rwy_struct& rwy = apt.rwy[number];
    bring_region_to(rwy.lat, rwy.lon, 0.0f);
    flt_struct& f = flt[0];
    xdob_xyz_with_latlonel(&f.dob_x, &f.dob_y, &f.dob_z, rwy.lat, rwy.lon, apt.ele);
    s.psi = runway_heading(rwy, msc.backwards != 0);
    if (apt.apt_type != apt_helipad && apt.apt_type != apt_carrier)
        move_back(s.psi, fltmax2(0.5f * rwy.len - short_of_end, 0.0f));
    constexpr float short_final = 3.0f, long_final = 10.0f;  // nautical miles
    if (is_final(s))
        place_on_final(s, s.place == place_final_3 ? short_final : long_final);
    else
        stand_still(s);
}
}  // namespace

void hold_selection(const start_state& s) {
    msc.loc_apt_wrl = intlim(msc.loc_apt_wrl, 0, last_index(vec_apt.size()));
    if (vec_apt.empty()) return;
    const vec_apt_struct& apt = vec_apt[static_cast<size_t>(msc.loc_apt_wrl)];
    const bool ramp = s.code == start_airport && s.place == place_ramp;
    msc.lcl_rwy_ram = intlim(msc.lcl_rwy_ram, 0, last_index(ramp ? apt.sta.size() : apt.rwy.size()));
}

bool place_at_airport(start_state& s) {
    const vec_apt_struct* const apt = selected_airport();
    if (s.place == place_ramp && apt) return place_at_ramp(s, *apt);
    place_at_runway(s, apt && !apt->rwy.empty() ? *apt : airport_of_region());
    return true;
}

// -- a place of the user's choice

bool place_at_custom(start_state& s) {
    constexpr float max_lat = 89.9f, min_alt = -10000.0f, max_alt = 1e6f, max_v = 1e4f;  // degrees, m, m/s
    for (const float v : {stg.cus_lat, stg.cus_lon, stg.cus_alt, stg.cus_psi, stg.cus_v})
        if (!isfinite(v)) {
            tell_refusal(start_custom);
            return false;
        }
    const float lat = fltlim(stg.cus_lat, -max_lat, max_lat), lon = fltwrap(stg.cus_lon, -180.0f, 180.0f);
    const float alt = fltlim(stg.cus_alt, min_alt, max_alt);
    bring_region_to(lat, lon, alt);
    xdob_xyz_with_latlonel(&flt[0].dob_x, &flt[0].dob_y, &flt[0].dob_z, lat, lon, alt);
    s.psi = fltwrap(stg.cus_psi, 0.0f, 360.0f);
    s.V_msc = fltlim(stg.cus_v, 0.0f, max_v);
    return true;
}

// -- strips

namespace {
bool has_surface(const vec_rwy_struct& rwy, int code) {
    constexpr int grass = 115, dirt = 116, gravel = 117, first_helipad = 119, last_helipad = 122;
    switch (code) {
        case start_grass:
            return rwy.surf_tex == grass;
        case start_dirt:
            return rwy.surf_tex == dirt;
        case start_gravel:
            return rwy.surf_tex == gravel;
        default:
            return intrange(rwy.surf_tex, first_helipad, last_helipad);
    }
}

bool is_runway(const vec_rwy_struct& rwy) { return rwy.num_str[0] != 'x'; }
}  // namespace

// As given: the distance is counted in degrees of latitude and longitude.
bool select_nearest_strip(int code) {
    float nearest = INFINITY;
    const float lat = static_cast<float>(flt[0].dob_lat), lon = static_cast<float>(flt[0].dob_lon);
    for (size_t a = 0; a < vec_apt.size(); ++a)
        for (size_t r = 0; r < vec_apt[a].rwy.size(); ++r) {
            const vec_rwy_struct& rwy = vec_apt[a].rwy[r];
            if (!is_runway(rwy) || !has_surface(rwy, code)) continue;
            const float distance = sqr(rwy.lat - lat) + sqr(fltwrap(rwy.lon - lon, -180.0f, 180.0f));
            if (!(distance < nearest)) continue;
            nearest = distance;
            msc.loc_apt_wrl = static_cast<int>(a);
            msc.lcl_rwy_ram = static_cast<int>(r);
        }
    if (nearest == INFINITY) tell_refusal(code);
    return nearest != INFINITY;
}

// -- water

bool place_on_water(start_state& s) {
    constexpr int trials = 100;
    constexpr float share = 0.75f;  // of the region's extents
    constexpr float drift = 0.1f;   // m/s
    float nearest = INFINITY;
    for (int i = 0; i < trials; ++i) {
        const float x = flt_rand(share * env.reg_x1_mtr, share * env.reg_x2_mtr);
        const float z = flt_rand(share * env.reg_z1_mtr, share * env.reg_z2_mtr);
        if (!(pythag(x, z) < nearest) || !terrain_is_wet(x, z, checker_scenery)) continue;
        nearest = pythag(x, z);
        flt[0].dob_x = x;
        flt[0].dob_y = on_the_ground;
        flt[0].dob_z = z;
    }
    if (nearest == INFINITY) {
        tell_refusal(start_water);
        return false;
    }
    explain_exercise(start_water);
    s.V_msc = drift;
    return true;
}
