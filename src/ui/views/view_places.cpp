// Places of outside views.
#include "ui/views/view_places.h"

#include "core/math/axes.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/records/env.h"
#include "core/records/msc.h"
#include "core/records/ships.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/region/region_lists.h"

namespace {
constexpr float when_none = 30.0f;  // m above where there is nothing to stand on

float distance(const place_struct& a, const place_struct& b) {
    return pythag(a.x - b.x, a.y - b.y, a.z - b.z);
}

bool is_given(float lat, float lon) {
    constexpr float near_zero = 0.001f;
    return flt_abs(lat) > near_zero || flt_abs(lon) > near_zero;
}

// On the ground of the region, and so much above it.
place_struct above_ground(float lat, float lon, float height) {
    place_struct at;
    xyz_with_latlonel(&at.x, &at.y, &at.z, lat, lon, 0.0);
    at.y = ground_of_view(at.x, at.z) + height;
    return at;
}

// The tower, else what else stands over the field.
place_struct airport_place(const vec_apt_struct& apt, const place_struct& target) {
    constexpr float of_beacon = 17.5f, of_ramp = 1.8f;
    if (is_given(apt.twr_lat, apt.twr_lon)) return above_ground(apt.twr_lat, apt.twr_lon, apt.twr_hgt);
    if (is_given(apt.bcn_lat, apt.bcn_lon)) return above_ground(apt.bcn_lat, apt.bcn_lon, of_beacon);
    if (!apt.sta.empty() && is_given(apt.sta[0].lat, apt.sta[0].lon))
        return above_ground(apt.sta[0].lat, apt.sta[0].lon, of_ramp);
    return {target.x, target.y + when_none, target.z};
}

bool has_carrier() {
    return env.boat_x[ship_carrier] != 0.0f || env.boat_y[ship_carrier] != 0.0f ||
           env.boat_z[ship_carrier] != 0.0f;
}

// On the island beside the deck, which sways with the ship.
place_struct island_place() {
    constexpr float aside = 28.0f, above = 35.0f, aft = 11.0f;
    constexpr int s = ship_carrier;
    const float sin_phi = sin_deg(env.boat_phi[s]), cos_phi = cos_deg(env.boat_phi[s]);
    place_struct at;
    any_to_wrl(aside * cos_phi + above * sin_phi, above * cos_phi - aside * sin_phi, aft, &at.x, &at.y, &at.z,
               sin_deg(env.boat_psi[s]), cos_deg(env.boat_psi[s]), sin_deg(env.boat_the[s]),
               cos_deg(env.boat_the[s]), 0.0f, 1.0f);
    return {at.x + env.boat_x[s], at.y + env.boat_y[s], at.z + env.boat_z[s]};
}
}  // namespace

float ground_of_view(float x, float z) { return return_terrain_y(x, z, checker_view); }

tower_struct tower_place(const place_struct& target) {
    const bool has_airport = intrange(msc.loc_apt_wrl, 0, static_cast<int>(vec_apt.size()) - 1);
    const place_struct tower = has_airport
                                   ? airport_place(vec_apt[static_cast<size_t>(msc.loc_apt_wrl)], target)
                                   : place_struct{target.x, target.y + when_none, target.z};
    if (has_carrier()) {
        const place_struct ship = {env.boat_x[ship_carrier], env.boat_y[ship_carrier],
                                   env.boat_z[ship_carrier]};
        if (distance(ship, target) < distance(tower, target)) return {island_place(), true};
    }
    return {tower, false};
}

place_struct nearest_runway_end(const place_struct& from) {
    constexpr float inset = 10.0f;  // of both ends together, m
    place_struct nearest = {from.x, from.y + when_none, from.z};
    float least = 9.9e9f;
    for (int apt_lcl = 0; apt_lcl <= apt_lcl_max; ++apt_lcl)
        for (const vec_rwy_struct& rwy : vec_apt[static_cast<size_t>(apt_lcl_to_wrl[apt_lcl])].rwy) {
            if (rwy.num_str[0] == 'x') continue;
            place_struct centre;
            xyz_with_latlonel(&centre.x, &centre.y, &centre.z, rwy.lat, rwy.lon, 0.0);
            const float psi = rwy.psi_true + z_north_os(rwy.lat, rwy.lon);
            for (const float end : {-0.5f, 0.5f}) {
                const float way = end * (rwy.len - inset);
                const place_struct at = {centre.x + way * sin_deg(psi), from.y,
                                         centre.z - way * cos_deg(psi)};
                if (distance(at, from) >= least) continue;
                least = distance(at, from);
                nearest = at;
            }
        }
    if (least < 9.9e9f) nearest.y = ground_of_view(nearest.x, nearest.z);
    return nearest;
}
