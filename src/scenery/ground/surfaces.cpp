// What lies over the terrain.
#include "scenery/ground/surfaces.h"

#include <math.h>

#include "core/math/num.h"
#include "core/records/records.h"
#include "core/records/ships.h"
#include "scenery/ground/runways.h"

namespace {
void set3(float (&to)[3], float x, float y, float z) {
    to[0] = x;
    to[1] = y;
    to[2] = z;
}

// -- what is smooth

// It stays as it came; what is no plane is no ground.
bool network_surface() {
    if (!net.getting_terrain) return false;
    float length_sqr = 0.0f, sum = 0.0f;
    for (const float v : env.terrain_nrm) length_sqr += v * v;
    for (const float v : env.terrain_ctr) sum += v;
    return isfinite(sum) && isfinite(length_sqr) && length_sqr > 0.0f;
}

void roof_surface(float x, float z) {
    set3(env.terrain_ctr, x, env.obj_y_top, z);
    set3(env.terrain_nrm, 0.0f, 1.0f, 0.0f);
}

// Of a point of the deck: the ship's own, and that of its turning about its place.
void set_deck_velocity(int s, float x, float z, float height, float speed) {
    const float sin_psi = sin_deg(env.boat_psi[s]), cos_psi = cos_deg(env.boat_psi[s]);
    const float roll = env.boat_vphi[s] * con.degtorad, pitch = env.boat_vthe[s] * con.degtorad;  // rad/s
    const float yaw = env.boat_vpsi[s] * con.degtorad;
    const float dx = x - env.boat_x[s], dz = z - env.boat_z[s];
    const float right = dx * cos_psi + dz * sin_psi, aft = dz * cos_psi - dx * sin_psi;
    const float to_right = height * roll, to_aft = height * pitch - speed;
    set3(env.terrain_vel, to_right * cos_psi - to_aft * sin_psi - yaw * dz, -roll * right - pitch * aft,
         to_right * sin_psi + to_aft * cos_psi + yaw * dx);
}

void deck_surface(float x, float z) {
    const int s = env.over_carr ? ship_carrier : ship_frigate;
    const float height = s == ship_carrier ? carr_height : frig_height;
    const float sin_the = sin_deg(env.boat_the[s]), cos_the = cos_deg(env.boat_the[s]);
    const float sin_phi = sin_deg(env.boat_phi[s]), cos_phi = cos_deg(env.boat_phi[s]);
    const float sin_psi = sin_deg(env.boat_psi[s]), cos_psi = cos_deg(env.boat_psi[s]);
    float(&n)[3] = env.terrain_nrm;
    set3(n, sin_phi * cos_psi - sin_the * sin_psi, cos_phi * cos_the, sin_the * cos_psi + sin_phi * sin_psi);
    set3(env.terrain_ctr, env.boat_x[s] + n[0] * height, env.boat_y[s] + n[1] * height,
         env.boat_z[s] + n[2] * height);
    set_deck_velocity(s, x, z, height, s == ship_carrier ? carr_v : frig_v);
}

// -- runways

bool is_over(const box_struct& box, float x, float z) {
    return x >= box.min_x && x <= box.max_x && z >= box.min_z && z <= box.max_z;
}

bool is_dry_below(const vec_rwy_geo_struct& strip, float x, float z) {
    return strip.surf_tex != surface_water && is_over(strip.box, x, z);
}

// The asker's last piece; a region that has gone may have left any number.
bool is_on_last_piece(float x, float z, int checker) {
    const size_t strip = static_cast<size_t>(ren.rwy_geo[checker]);
    const size_t piece = static_cast<size_t>(ren.rwy_pol[checker]);
    if (strip >= vec_rwy_geo.size() || !is_dry_below(vec_rwy_geo[strip], x, z)) return false;
    const std::vector<vec_rwy_pol_struct>& rows = vec_rwy_geo[strip].vec_rwy_pol;
    return piece + 1 < rows.size() && is_on_piece(rows[piece], rows[piece + 1], x, z);
}

bool find_piece(size_t strip, float x, float z, int checker) {
    if (!is_dry_below(vec_rwy_geo[strip], x, z)) return false;
    const std::vector<vec_rwy_pol_struct>& rows = vec_rwy_geo[strip].vec_rwy_pol;
    if (rows.empty() || !is_on_piece(rows.front(), rows.back(), x, z)) return false;
    for (size_t piece = 0; piece + 1 < rows.size(); ++piece) {
        if (!is_on_piece(rows[piece], rows[piece + 1], x, z)) continue;
        ren.rwy_geo[checker] = static_cast<int>(strip);
        ren.rwy_pol[checker] = static_cast<int>(piece);
        ren.apt_wrl[checker] = vec_rwy_geo[strip].apt_wrl;
        ren.rwy_wrl[checker] = vec_rwy_geo[strip].rwy_wrl;
        return true;
    }
    return false;
}

// On one of those of the nearest airport.
bool find_runway(float x, float z, int checker) {
    const airport_strips_struct* const strips = strips_of_airport(msc.loc_apt_wrl);
    if (!strips || !is_over(strips->box, x, z)) return false;
    for (size_t i = 0; i < strips->count; ++i)
        if (find_piece(strips->first + i, x, z, checker)) return true;
    return false;
}

// Every runway of Mars has one.
void catch_cable(const vec_rwy_geo_struct& strip) {
    constexpr int mars = 1;
    constexpr float most_aside = 90.0f, least_speed = 10.0f;  // degrees, m/s
    constexpr float trap_accel = 9.8f;                        // m/s2
    const flt_struct& f = flt[0];
    if (env.planet != mars || !stg.arrest_gear || !f.onground_any || stg.wired || strip.is_taxiway) return;
    if (!(fabsf(f.beta) < most_aside && f.V_msc > least_speed)) return;
    stg.wired = 1;
    stg.trap_accel = trap_accel;
}
}  // namespace

bool smooth_surface_at(float x, float z) {
    if (network_surface()) return true;
    if (env.over_obs_last)
        roof_surface(x, z);
    else if (env.over_carr || env.over_frig)
        deck_surface(x, z);
    else
        return false;
    return true;
}

bool runway_surface_at(float x, float z, int checker) {
    if (!is_on_last_piece(x, z, checker) && !find_runway(x, z, checker)) return false;
    const vec_rwy_geo_struct& strip = vec_rwy_geo[static_cast<size_t>(ren.rwy_geo[checker])];
    const vec_rwy_pol_struct& row = strip.vec_rwy_pol[static_cast<size_t>(ren.rwy_pol[checker])];
    set3(env.terrain_ctr, row.xyz[0][0], row.xyz[0][1], row.xyz[0][2]);
    set3(env.terrain_nrm, row.nrm[0], row.nrm[1], row.nrm[2]);
    env.over_rwy_this = 1;
    env.roughness = strip.roughness;
    env.surf_tex = strip.surf_tex;
    catch_cable(strip);
    return true;
}

// By the normal's x and z alone: neither mesh nor runway is ever steep enough for its y to matter.
float y_on_surface(float x, float z) {
    return env.terrain_ctr[1] - (x - env.terrain_ctr[0]) * env.terrain_nrm[0] -
           (z - env.terrain_ctr[2]) * env.terrain_nrm[2];
}

// -- bumps

namespace {
float rough_bumps(float x, float z) {
    return 0.025f * signsqr(sinf(0.2f * x)) + 0.025f * signsqr(cosf(0.2f * z)) + 0.01f * signsqr(sinf(x)) +
           0.01f * signsqr(cosf(z)) + 0.005f * signsqr(sinf(5.0f * x)) + 0.005f * signsqr(cosf(5.0f * z));
}

// Waves east and south, of k radians a metre.
float waves(float k, float x, float z) { return sinf(k * x) + cosf(k * z); }

float surface_bumps(float x, float z) {
    switch (env.surf_tex) {
        case surface_plain:
            return 0.025f * (waves(1.0f, x, z) + waves(4.0f, x, z));
        case surface_grass:
        case surface_pad_grass:
            return 0.01f * (waves(1.0f, x, z) + waves(4.0f, x, z));
        case surface_dirt:
        case surface_pad_dirt:
            return 0.02f * (waves(2.0f, x, z) + waves(4.0f, x, z));
        case surface_gravel:
            return 0.02f * waves(4.0f, x, z);
        case surface_lakebed:
            return 0.005f * waves(4.0f, x, z);
        default:
            return 0.0f;
    }
}
}  // namespace

float surface_detail(float x, float z) {
    const float rough = env.roughness > 0.0f ? env.roughness * rough_bumps(x, z) : 0.0f;
    return rough + surface_bumps(x, z);
}
