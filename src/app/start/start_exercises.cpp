// Exercises.
#include "app/start/start_exercises.h"

#include <math.h>

#include <vector>

#include "app/start/start_places.h"
#include "app/start/start_texts.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/records.h"
#include "core/records/ships.h"
#include "scenery/ground/region_shift.h"
#include "scenery/ground/tile.h"
#include "scenery/nav/magnetic.h"
#include "scenery/nav/nav_tables.h"

// -- ships

namespace {
bool ship_is_here(int ship) {
    return !is_nowhere(env.boat_x[ship]) && ret_xz_inreg_tight(env.boat_x[ship], env.boat_z[ship]);
}

// What an approach leads to: the heading of its deck, degrees, and its height, m.
struct deck_struct {
    int ship;
    float psi, height;
};

// As given: the approaches to the platforms lead north, however they lie.
deck_struct deck_of(int code) {
    switch (code) {
        case start_frigate:
            return {ship_frigate, env.boat_psi[ship_frigate], frig_height};
        case start_platform_1:
            return {ship_platform_1, 0.0f, opla_height};
        case start_platform_2:
            return {ship_platform_2, 0.0f, orig_height};
        default:
            return {ship_carrier, env.boat_psi[ship_carrier] + carr_appang, carr_height};
    }
}

// From a point, so far away on this bearing, degrees, and above its elevation by this, m. By elevation: far
// from its origin the frame leans away from the horizontal.
void put_from(const float xyz[3], float bearing, float distance, float above) {
    put_at_elevation(xyz[0] + distance * sin_deg(bearing), elevation_of(xyz[0], xyz[1], xyz[2]) + above,
                     xyz[2] - distance * cos_deg(bearing));
}
}  // namespace

bool place_behind_ship(start_state& s) {
    constexpr float seconds = 90.0f, slope = 3.5f;  // degrees
    const deck_struct deck = deck_of(s.code);
    if (!ship_is_here(deck.ship)) {
        tell_refusal(s.code);
        return false;
    }
    explain_exercise(s.code);
    const float distance = seconds * veh[0].V_ref_ms;
    const float ship[3] = {env.boat_x[deck.ship], env.boat_y[deck.ship], env.boat_z[deck.ship]};
    put_from(ship, deck.psi + 180.0f, distance, deck.height + distance * sin_deg(slope));
    s.psi = fltwrap(deck.psi, 0.0f, 360.0f);
    s.V_msc = veh[0].V_ref_ms;
    return true;
}

namespace {
// The normal of a ship's deck, world axes.
void deck_normal(int ship, float nrm[3]) {
    const float sin_psi = sin_deg(env.boat_psi[ship]), cos_psi = cos_deg(env.boat_psi[ship]);
    const float sin_the = sin_deg(env.boat_the[ship]), cos_the = cos_deg(env.boat_the[ship]);
    const float sin_phi = sin_deg(env.boat_phi[ship]), cos_phi = cos_deg(env.boat_phi[ship]);
    nrm[0] = sin_phi * cos_psi - sin_the * sin_psi;
    nrm[1] = cos_phi * cos_the;
    nrm[2] = sin_the * cos_psi + sin_phi * sin_psi;
}
}  // namespace

bool place_on_catapult(start_state& s) {
    constexpr int ship = ship_carrier;
    if (!ship_is_here(ship)) {
        tell_refusal(s.code);
        return false;
    }
    explain_exercise(s.code);
    float nrm[3];
    deck_normal(ship, nrm);
    const float sin_psi = sin_deg(env.boat_psi[ship]), cos_psi = cos_deg(env.boat_psi[ship]);
    flt[0].dob_x = env.boat_x[ship] + nrm[0] * carr_height + carr_cat_x1 * cos_psi - carr_cat_z1 * sin_psi;
    flt[0].dob_y = env.boat_y[ship] + nrm[1] * carr_height;
    flt[0].dob_z = env.boat_z[ship] + nrm[2] * carr_height + carr_cat_x1 * sin_psi + carr_cat_z1 * cos_psi;
    s.psi = fltwrap(env.boat_psi[ship] + carr_catang, 0.0f, 360.0f);
    s.the = veh[0].the_eqlbm + env.boat_the[ship];
    s.V_msc = carr_v;
    env.over_carr = 1;
    stg.cat_waiting = 1;
    return true;
}

// -- another aircraft

namespace {
bool leader_is_there() {
    const flt_struct& f = flt[1];
    return veh[1].name[0] && isfinite(f.dob_x + f.dob_y + f.dob_z + f.psi + f.V_msc) &&
           !is_nowhere(f.dob_x) && !is_nowhere(f.dob_z);
}

// So much of the capacity, in equal parts, none more than its tank holds.
void leave_fuel(float share) {
    const veh_struct& v = veh[0];
    for (int tank = 0; tank < v.num_tanks; ++tank) {
        const float part = share * v.m_fuel_tot / static_cast<float>(v.num_tanks);
        flt[0].m_fuel[tank] = fltmin2(part, v.tank_rat[tank] * v.m_fuel_tot);
    }
}

void fill_tanks() {
    for (int tank = 0; tank < veh[0].num_tanks; ++tank)
        flt[0].m_fuel[tank] = veh[0].tank_rat[tank] * veh[0].m_fuel_tot;
}
}  // namespace

bool place_at_leader(start_state& s) {
    constexpr float behind_nm = 0.2f, aside = -10.0f;  // degrees
    constexpr float thirsty = 0.15f;
    const bool carried = s.code == start_carried;
    if (!leader_is_there()) {
        tell_refusal(s.code);
        return false;
    }
    const flt_struct& leader = flt[1];
    const float bearing = leader.psi + aside, distance = carried ? 0.0f : behind_nm * con.nmtomtrs;
    flt[0].dob_x = leader.dob_x - static_cast<double>(distance) * sin_deg(bearing);
    flt[0].dob_y = leader.dob_y;
    flt[0].dob_z = leader.dob_z + static_cast<double>(distance) * cos_deg(bearing);
    s.psi = fltwrap(leader.psi, 0.0f, 360.0f);
    s.the = carried ? 0.0f : leader.the;
    s.V_msc = leader.V_msc;
    if (carried) fill_tanks();
    if (intrange(s.code, start_refuel_af, start_refuel_navy)) leave_fuel(thirsty);
    return true;
}

// -- fire

namespace {
// One that burns, as long as there is one.
const float* fire_place() {
    for (int i = 0; i < fireDIM; ++i)
        if (scn.fire_on[i]) return scn.firexyz[i];
    return scn.firexyz[0];
}

void raise_wind() {
    constexpr float least = 15.0f, most = 20.0f;  // knots
    for (float& speed : atm.set_wind_spd_kts) speed = flt_rand(least, most);
}
}  // namespace

// Across the wind, past the fire on its lee side.
bool place_near_fire(start_state& s) {
    constexpr float seconds = 120.0f, slope = 10.0f, over_reference = 1.5f;
    constexpr float bearing = 120.0f, heading = 270.0f;  // from the wind, degrees
    constexpr float least_water = 0.01f;                 // kg
    if (!scn.fire_avail || !(con.sl_T_cel > 0.0f) || atm.rain_set != 0.0f) {
        tell_refusal(s.code);
        return false;
    }
    explain_exercise(s.code);
    if (flt[0].m_jettison < least_water) warn_of_no_water();
    const float variation = env.planet ? 0.0f : magnetic_variation(ref_lat(), ref_lon());
    const float wind_true = atm.set_wind_dir_mag[0] - variation;
    const float distance = seconds * veh[0].V_ref_ms;
    put_from(fire_place(), wind_true + bearing, distance, distance * sin_deg(slope));
    s.psi = fltwrap(wind_true + heading, 0.0f, 360.0f);
    s.V_msc = over_reference * veh[0].V_ref_ms;
    raise_wind();
    return true;
}

// -- the way back from space

namespace {
struct stage_struct {
    float distance_nm, speed_fps, height_ft, heading, vy_fps;
};
constexpr stage_struct stages[] = {
    {5340.0f, 25750.0f, 450000.0f, 52.0f, -561.7f},
    {591.0f, 14000.0f, 167270.0f, 86.0f, 0.0f},
    {40.0f, 2500.0f, 83000.0f, 89.0f, 0.0f},
    {8.0f, 600.0f, 18000.0f, 0.0f, 0.0f},  // on the runway's own heading
};

// Index of an airport with runways, or -1.
int airport_named(const char* id) {
    const auto at = apt_hash.find(apt_id_key(id));
    if (at == apt_hash.end() || at->second < 0 || static_cast<size_t>(at->second) >= vec_apt.size())
        return -1;
    return vec_apt[static_cast<size_t>(at->second)].rwy.empty() ? -1 : at->second;
}

void steer_gps_to(int apt) {
    constexpr int by_gps = 2;
    nav.gps_type = targ_apt;
    nav.gps_use_index = nav.gps_apt_index = apt;
    nav.HSIsel = by_gps;
}
}  // namespace

bool place_on_shuttle_return(start_state& s) {
    constexpr int runway = 6;  // as given: its place in the list
    constexpr float east = 90.0f;
    const int apt = airport_named("KEDW");
    if (apt < 0) {
        tell_refusal(s.code);
        return false;
    }
    const std::vector<vec_rwy_struct>& runways = vec_apt[static_cast<size_t>(apt)].rwy;
    const vec_rwy_struct& rwy =
        runways[static_cast<size_t>(intmin2(runway, static_cast<int>(runways.size()) - 1))];
    const bool last = s.code == start_shuttle_last;
    const stage_struct& stage = stages[s.code - start_shuttle_first];
    // where it comes from lies opposite to where it flies
    const float course = last ? rwy.psi_true : east;
    const float distance_nm = stage.distance_nm + (last ? 0.5f * rwy.len * con.mtrstonm : 0.0f);
    const double lat = rwy.lat - distance_nm * cos_deg(course) / 60.0f;
    const double lon =
        dobwrap(rwy.lon - distance_nm * sin_deg(course) / 60.0f / cos_deg(rwy.lat), -180.0, 180.0);
    const float height = stage.height_ft * con.fttomtrs;
    bring_region_to(lat, lon, height);
    xdob_xyz_with_latlonel(&flt[0].dob_x, &flt[0].dob_y, &flt[0].dob_z, lat, lon, height);
    s.psi = last ? runway_heading(rwy, false) : stage.heading;
    s.V_msc = stage.speed_fps * con.fttomtrs;
    s.vy = stage.vy_fps * con.fttomtrs;
    flt[0].m_fixed = 1000.0f;
    flt[0].m_jettison = 0.0f;
    steer_gps_to(apt);
    return true;
}
