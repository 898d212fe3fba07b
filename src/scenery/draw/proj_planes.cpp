// Planes of projected textures.
#include "scenery/draw/proj_planes.h"

#include <math.h>

#include "core/math/axes.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "draw/camera/matrix4.h"
#include "draw/camera/xcam.h"
#include "draw/images/tex_refs.h"
#include "scenery/ground/ground_phase.h"
#include "scenery/ground/terrain_query.h"
#include "weather/clouds.h"

namespace {
struct moving_struct {
    float wave_os_meter = 0.0f, snow_os_meter = 0.0f;
    int lon_os = 0, lat_os = 0;
};
moving_struct moving;

void set4(float (&plane)[4], double x, double y, double z, double w) {
    const double from[4] = {x, y, z, w};
    for (int i = 0; i < 4; ++i) plane[i] = static_cast<float>(from[i]);
}

// Whole repeats are dropped in double: the float keeps its digits however far the region has moved.
double phase_of(double repeats) { return fmod(repeats, 1.0); }

// Waves run on the ground, which keeps its place when the region shifts.
void water_planes(proj_planes_struct* out) {
    constexpr double from_waves = 120.0, scale = 0.005;  // degrees; repeats a metre
    const double a = (atm.wave_dir - from_waves) * (M_PI / 180.0), c = scale * cos(a), s = scale * sin(a);
    const ground_phase_struct& phase = ground_phase();
    const double run = moving.wave_os_meter * scale;
    set4(out->s, c, 0.0, s, phase_of(c * phase.x + s * phase.z) - run);
    set4(out->t, s, 0.0, -c, phase_of(s * phase.x - c * phase.z) + run);
}

// Squares that stay with the view in steps of themselves.
void taxi_grid_planes(proj_planes_struct* out) {
    constexpr double side = 25.0;  // m
    const auto from = [=](float view) { return round(view / side) * side; };
    set4(out->s, 1.0 / side, 0.0, 0.0, -from(ren.view_xyz[0]) / side);
    set4(out->t, 0.0, 0.0, 1.0 / side, -from(ren.view_xyz[2]) / side);
}

// -- landing light: an oval on the ground ahead

struct lamp_struct {
    double x, z, height;  // world, m; above the terrain
    float psi, the;       // of the beam's middle, degrees
};

lamp_struct find_lamp() {
    constexpr int checker = 27;
    const veh_struct& v = veh[0];
    const flt_struct& f = flt[0];
    float x, y, z;
    veh_to_wrl(v.lanliteC_xyz[0], v.lanliteC_xyz[1], v.lanliteC_xyz[2], &x, &y, &z, 0);
    lamp_struct lamp{f.dob_x + x, f.dob_z + z, 0.0, 0.0f, 0.0f};
    const float ground = return_terrain_y(static_cast<float>(lamp.x), static_cast<float>(lamp.z), checker);
    lamp.height = fmax(f.dob_y + y - ground, 0.1);  // an oval has a size
    const float lit_the = v.lan_lite_the_ref + v.lan_lite_the_off;
    const float lit_psi = v.lan_lite_psi_ref + v.lan_lite_psi_off;
    lamp.the = f.cos_phi * lit_the + f.the - f.sin_phi * lit_psi;
    lamp.psi = f.sin_phi * lit_the + f.cos_phi * lit_psi + f.psi;
    if (v.lan_lite_steers) lamp.psi += f.gear[v.gear_steer_EN].tire_steer * f.cos_phi;
    return lamp;
}

void landing_light_planes(proj_planes_struct* out) {
    const lamp_struct lamp = find_lamp();
    constexpr double deg = M_PI / 180.0;
    constexpr float flattest = -1.0f;  // a beam that rises meets no ground
    const float width = veh[0].lan_lite_width;
    const float low = fltlim(lamp.the - width, -89.0f, flattest), centre = fltlim(lamp.the, -89.0f, flattest);
    const double from_below = (centre + 90.0) * deg;
    const double slant = lamp.height / cos(from_below), low_way = tan((low + 90.0) * deg) * lamp.height;
    const double semi_width = fmax(tan(fltlim(width, 0.1f, 80.0f) * deg) * slant, 0.01);
    const double semi_length = semi_width / cos(from_below);
    const double ahead = low_way + 0.5 * semi_length;
    const double east = sin(lamp.psi * deg), south = -cos(lamp.psi * deg);  // along the beam
    const double x = lamp.x + ahead * east, z = lamp.z + ahead * south;
    const double across = 0.5 / semi_width * interp(0.0f, 0.35f, -90.0f, 1.0f, centre),
                 along = 0.5 / semi_length;
    set4(out->s, -south * across, 0.0, east * across, 0.5 - (-south * x + east * z) * across);
    set4(out->t, east * along, 0.0, south * along, 0.5 - (east * x + south * z) * along);
}

void cloud_shadow_planes(int ref, proj_planes_struct* out) {
    const double tiles = ref == tex_cloud_shadow_last ? 8.0 : 1.0;
    const double ds = tiles / (8.0 * clou.cld_buc_dx), dz = -tiles / (8.0 * clou.cld_buc_dz);
    const double height = atm.base_h_MSL[intlim(atm.prim_layer, 0, 1)];
    const double dx_by_dy = ren.shadow_dx_by_dy, dz_by_dy = ren.shadow_dz_by_dy;
    set4(out->s, ds, dx_by_dy * ds, 0.0, (dx_by_dy * height - clou.region_x1()) * ds);
    set4(out->t, 0.0, dz_by_dy * dz, dz, (dz_by_dy * height - clou.region_z1()) * dz);
}

// Along the wind and across it.
void snow_planes(proj_planes_struct* out) {
    constexpr double scale = 0.02;  // repeats a metre
    const double from = atm.set_wind_dir_mag[0] * (M_PI / 180.0), c = scale * cos(from),
                 s = scale * sin(from);
    set4(out->s, c, 0.0, s, 0.0);
    set4(out->t, -s, 0.0, c, -moving.snow_os_meter * scale);
}

// The picture's columns are heights. The terms in x, z and the constant take out, as given, what the curved
// ground falls off towards the region's rim.
void altitude_planes(proj_planes_struct* out) {
    const double per_ft = 0.0001, z_term = 8.75e-07 / con.fttomtrs, x_term = 1.75e-06 / con.fttomtrs;
    const double lat = (env.lat_sou + moving.lat_os + 0.5) * (M_PI / 180.0);
    const double w = cos(lat) * con.nmtomtrs * 60.0;
    const double x = moving.lon_os == 0 ? -x_term : moving.lon_os == 2 ? x_term : 0.0;
    const double z = moving.lat_os == 0 ? z_term : moving.lat_os == 1 ? -z_term : 0.0;
    const double constant = moving.lon_os == 0 ? 0.5 * x * w : moving.lon_os == 2 ? -0.5 * x * w : 0.0;
    set4(out->s, x, per_ft / con.fttomtrs, z, constant);
    set4(out->t, 0.0, 0.0, 0.0, 0.0);
}

// s by q is the depth in the window.
void screen_planes(proj_planes_struct* out) {
    constexpr double bias[16] = {0.5, 0, 0, 0, 0, 0.5, 0, 0, 0, 0, 0.5, 0, 0.5, 0.5, 0.5, 1.0};
    double m[16];
    multMatrices(m, xcam.Perspective(), xcam.ModelView());
    multMatrices(m, bias, m);
    set4(out->s, m[2], m[6], m[10], m[14]);
    set4(out->q, m[3], m[7], m[11], m[15]);
    out->has_t = false;
    out->has_q = true;
}

void ground_planes(const ogl_proj_struct* coords, proj_planes_struct* out) {
    const double per_x = 1.0 / coords->x_tex_size_m, per_y = 1.0 / coords->y_tex_size_m;
    const ground_phase_struct& phase = ground_phase();
    set4(out->s, per_x, 0.0, 0.0, phase_of(phase.x * per_x));
    set4(out->t, 0.0, 0.0, -per_y, phase_of(-phase.z * per_y));
}
}  // namespace

bool find_proj_planes(int pt, const ogl_proj_struct* coords, int ref, proj_planes_struct* out) {
    *out = {};
    out->has_t = true;
    switch (pt) {
        case proj_water:
            return water_planes(out), true;
        case proj_taxi_grid:
            return taxi_grid_planes(out), true;
        case proj_landing_light:
            return landing_light_planes(out), true;
        case proj_cloud_shadow:
            return cloud_shadow_planes(ref, out), true;
        case proj_snow:
            return snow_planes(out), true;
        case proj_altitude:
            return altitude_planes(out), true;
        case proj_screen:
            return screen_planes(out), true;
        case proj_ground:
            if (!coords || !(coords->x_tex_size_m > 0.0f) || !(coords->y_tex_size_m > 0.0f)) return false;
            return ground_planes(coords, out), true;
        default:
            return false;
    }
}

void set_proj_tile(int lon_os, int lat_os) {
    moving.lon_os = lon_os;
    moving.lat_os = lat_os;
}

void move_projections(float seconds) {
    constexpr float wave_limit = 200.0f, snow_limit = 10000.0f;  // m, whole repeats
    moving.wave_os_meter = fltwrap(moving.wave_os_meter + atm.wave_speed * seconds, -wave_limit, wave_limit);
    const float wind = atm.set_wind_spd_kts[0] * con.ktstomsc;
    moving.snow_os_meter = fltwrap(moving.snow_os_meter + wind * seconds, -snow_limit, snow_limit);
}

void reset_projections() { moving = {}; }
