// How far one sees: density at the eye, visibility among the cloud layers, fog and clip distances.
#include "weather/sky/sky_air.h"

#include <math.h>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "weather/atmosphere.h"

layer_limits limits_of_layer(int layer) {
    constexpr float buffer = 182.88f;  // 600 ft
    const float top = atm.tops_h_MSL[layer], base = atm.base_h_MSL[layer];
    return {top + buffer, top, base, base - buffer};
}

void find_view_density() {
    const float rho = find_standard_rho(env.planet, ren.view_ele_msl);
    skyc.view_sig_earth_rat = fltlim(sqrtf(fltmax2(rho * inv_rho_sl, 0.0f)), 0.0f, 1.0f);
    skyc.view_sig_relat_rat = fltlim(sqrtf(fltmax2(rho / fltmax2(con.sl_r_met, 1e-6f), 0.0f)), 0.0f, 1.0f);
}

// -- visibility

namespace {
constexpr float vis_in_cloud = 100.0f;

// A visibility as it stands outside of an overcast layer, near and inside of it.
float vis_at_layer(float vis, const layer_limits& layer, float height) {
    if (height < layer.zerovis_bot)
        return interp(layer.fullvis_bot, vis, layer.zerovis_bot, vis_in_cloud, height);
    if (height <= layer.zerovis_top) return vis_in_cloud;
    return interp(layer.zerovis_top, vis_in_cloud, layer.fullvis_top, vis, height);
}
}  // namespace

void find_visibility() {
    const float height = ren.view_ele_msl;
    const layer_limits primary = limits_of_layer(atm.prim_layer);
    atm.vis_ground = atm.vis_rep * atm.vis_frmult;
    atm.vis_sky = interp(primary.fullvis_bot, atm.vis_rep, primary.fullvis_top,
                         max_vis_ter_mtrs[env.planet == 1], height) *
                  atm.vis_frmult;
    ren.stars_are_vis = 1;
    for (int i = 0; i < layerDIM; ++i) {
        if (atm.cld_type[i] != cld_overcast) continue;
        const layer_limits layer = limits_of_layer(i);
        atm.vis_ground = vis_at_layer(atm.vis_ground, layer, height);
        atm.vis_sky = vis_at_layer(atm.vis_sky, layer, height);
        if (height < layer.zerovis_top) ren.stars_are_vis = 0;
    }
}

// -- fog

float planet_from_height() {
    constexpr float tiles_of_earth = 15000.0f, whole_mars = 25000.0f;
    return env.planet == 1 && stg.draw_planet ? whole_mars : tiles_of_earth;
}

// Great circles: to the bounding meridians by the sine of the way across, to the parallels along the
// meridian.
float distance_to_rim() {
    double lat, lon, ele;
    xdob_latlonel_with_xyz(&lat, &lon, &ele, ren.view_xyz[0], ren.view_xyz[1], ren.view_xyz[2]);
    const int planet = env.planet == 1;
    const double north = env.lat_sou + lat_secs[planet] - lat, south = lat - env.lat_sou;
    const double west = dobwrap(lon - env.lon_wes, -180.0, 180.0), east = lon_secs[planet] - west;
    const auto across = [lat](double dlon) {
        return asin(sin(dlon * dob_degtorad) * cos(lat * dob_degtorad));
    };
    const double arc = fmin(fmin(across(west), across(east)), fmin(north, south) * dob_degtorad);
    return static_cast<float>(fmax(arc, 0.0) * con.planet_rad);
}

// Thin air lets one see far, up to the limb in space.
void find_fog() {
    constexpr float least = 100.0f;  // as inside of a cloud
    const double R = con.planet_rad;
    const double from_centre =
        sqrt(sqr(ren.view_xyz[0]) + sqr(ren.view_xyz[2]) + (ren.view_xyz[1] + R) * (ren.view_xyz[1] + R));
    const float dis_to_limb = static_cast<float>(sqrt(fmax(from_centre * from_centre - R * R, 0.0)));
    const float above_sphere = static_cast<float>(fmax(from_centre - R, 0.0));
    const float sig = skyc.view_sig_relat_rat, sig_to_ground = sqrtf(0.5f * sig + 0.5f);
    skyc.far_fog =
        interp(0.1f, atm.vis_ground / sig_to_ground, 0.0f, dis_to_limb, sig) * cosf(ren.off_lat_rat * 0.25f);
    skyc.far_land = fltmax2(atm.vis_ground, skyc.far_fog);
    if (ren.view_ele_msl < planet_from_height()) {  // else the land's edge would show
        const float rim = fltmax2(distance_to_rim(), least);
        skyc.far_fog = fltmin2(skyc.far_fog, rim);
        skyc.far_land = fltmin2(skyc.far_land, rim);
    }
    skyc.near_fog = interp(0.2f, 0.1f * skyc.far_fog, 0.0f, above_sphere, sig);
}

// -- clips

namespace {
float distance_to(int p) {
    const flt_struct& f = flt[p];
    return static_cast<float>(sqrt((f.dob_x - ren.view_xyz[0]) * (f.dob_x - ren.view_xyz[0]) +
                                   (f.dob_y - ren.view_xyz[1]) * (f.dob_y - ren.view_xyz[1]) +
                                   (f.dob_z - ren.view_xyz[2]) * (f.dob_z - ren.view_xyz[2])));
}
}  // namespace

void find_clips(const sky_surroundings& around) {
    constexpr float per_far = 0.0001f, least_per_far = 0.00001f, nearest = 1.0f, farthest_near = 1389.0f;
    constexpr float around_craft = 1.25f, around_weapon = 10.0f;
    skyc.far_dis = fltmax2(atm.vis_sky, skyc.far_fog);
    float near_dis = fltmin2(skyc.far_dis * per_far, 0.5f * ren.view_ele_agl);
    const int planes = TVPGetNumberPlanesToHandle(stg.num_acf, 0);
    for (int p = around.from_outside ? 0 : 1; p < planes; ++p)
        if (veh[p].name[0]) near_dis = fltmin2(near_dis, distance_to(p) - around_craft * veh[0].size_tot);
    if (around.weapon_distance >= 0.0f) near_dis = fltmin2(near_dis, around.weapon_distance - around_weapon);
    near_dis = fltmax2(fltmax2(near_dis, nearest), skyc.far_dis * least_per_far);
    skyc.near_dis = fltmin2(near_dis, farthest_near);
}
