// The weather of a frame.
#include "weather/weather_step.h"

#include <cmath>
#include <initializer_list>

#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/atm.h"
#include "core/records/con.h"
#include "core/records/env.h"
#include "core/records/flt.h"
#include "core/records/mnw.h"
#include "weather/atmosphere.h"
#include "weather/clouds.h"
#include "weather/real_weather.h"
#include "weather/wind.h"

// -- wind layers

// Towards p times a random share of reach, then limited.
static void assign_towards(float& value, float target, float newpart, float max) {
    value = fltlim(closer_assymp(value, target, newpart), 0.0f, max);
}

void assign_wind_tbl(float newpart) {
    const float p = powf(atm.wind_tbl, 1.5f);
    for (int c = 0; c < 3; ++c) {
        // As given: all layers turn about layer 0, and the direction is limited, not wrapped
        assign_towards(atm.set_wind_dir_mag[c], atm.set_wind_dir_mag[0] + p * flt_rand(-1.0f, 1.0f) * 90.0f,
                       newpart, 360.0f);
        assign_towards(atm.set_shear_dir[c], p * flt_rand(0.0f, 1.0f) * 150.0f, newpart, 180.0f);
        assign_towards(atm.set_wind_spd_kts[c], p * flt_rand(0.0f, 1.0f) * 90.0f, newpart, 200.0f);
        assign_towards(atm.set_shear_spd_kts[c], p * flt_rand(0.0f, 1.0f) * 30.0f, newpart, 50.0f);
        assign_towards(atm.set_turb_inc[c], p * flt_rand(0.0f, 1.0f) * 15.0f, newpart, 9.0f);
    }
}

// -- trend

static void limit_unit(float& value) { value = fltlim(value, 0.0f, 1.0f); }

// At the bad end worsening turns into a random walk. The tests are made one after the other, each on
// what the one before has left.
static float trend_delta() {
    float delta = atm.rate_change * mnw.prd_FM;
    const bool at_bad_end[] = {atm.rain_set > 0.8f, atm.tstm_set > 0.8f, atm.wind_tbl > 0.8f,
                               atm.burst_prob > 0.8f, atm.vis_rep < 3000.0f};
    for (const bool bad : at_bad_end)
        if (delta < 0.0f && bad) delta = flt_rand(-1.0f, 1.0f) * mnw.prd_FM;
    return delta;
}

// As given: shares a second of each setting.
static void weather_trend() {
    if (!(flt_abs(atm.rate_change) > 0.01f)) return;
    const float delta = trend_delta();
    atm.tops_h_MSL[0] *= 1.0f - delta * 0.001f;
    atm.base_h_MSL[0] *= 1.0f + delta * 0.001f;
    atm.vis_rep *= 1.0f + delta * 0.001f;
    atm.rain_set -= delta * 0.001f;
    for (float* setting : {&atm.tstm_set, &atm.wind_tbl, &atm.burst_prob}) {
        *setting -= delta * 0.0005f;
        limit_unit(*setting);
    }
    assign_wind_tbl(mnw.prd_FM);
}

// -- limits

static void limit_layers() {
    const float top = con.fttomtrs * 99999.0f;
    const auto hold = [](float& h, float min, float max) { h = fltlim(h, min, max); };
    hold(atm.base_h_MSL[0], 0.0f, top - 2743.2f);
    hold(atm.tops_h_MSL[0], atm.base_h_MSL[0] + ret_min_layer_thick_mtrs(0), top - 1828.8f);
    hold(atm.base_h_MSL[1], atm.tops_h_MSL[0] + 914.4f, top - 914.4f);
    hold(atm.tops_h_MSL[1], atm.base_h_MSL[1] + ret_min_layer_thick_mtrs(1), top);
    // only an overcast has free thickness
    for (int layer = 0; layer < 2; ++layer)
        if (atm.cld_type[layer] != cld_overcast)
            atm.tops_h_MSL[layer] = atm.base_h_MSL[layer] + ret_min_layer_thick_mtrs(layer);
}

static void limit_wind_layers() {
    for (int c = 0; c < 3; ++c) {
        atm.set_wind_dir_mag[c] = fltwrap(atm.set_wind_dir_mag[c], 0.0f, 360.0f);
        atm.set_shear_dir[c] = fltlim(atm.set_shear_dir[c], 0.0f, 180.0f);
        atm.set_wind_spd_kts[c] = fltlim(atm.set_wind_spd_kts[c], 0.0f, 200.0f);
        atm.set_shear_spd_kts[c] = fltlim(atm.set_shear_spd_kts[c], 0.0f, 50.0f);
        atm.set_turb_inc[c] = fltlim(atm.set_turb_inc[c], 0.0f, 9.0f);
    }
}

void limit_weather() {
    // packets and files may hold any type; from here on it counts as an index
    for (int& type : atm.cld_type) type = intlim(type, cld_none, cld_overcast);
    limit_layers();
    limit_cloud_typ_rat(0);
    atm.vis_rep = fltlim(atm.vis_rep, 100.0f, max_vis_ter_mtrs[env.planet == 1]);
    limit_unit(atm.tstm_set);
    atm.rain_set = fltlim(atm.rain_set, atm.tstm_set, 1.0f);  // rain is never less than thunderstorm
    limit_unit(atm.wind_tbl);
    limit_unit(atm.burst_prob);
    limit_wind_layers();
    atm.rate_change = fltlim(atm.rate_change, -1.0f, 1.0f);
}

// -- precipitation

// A tie goes to the upper layer.
static void find_main_layer() { atm.prim_layer = atm.cld_type[0] > atm.cld_type[1] ? 0 : 1; }

void ease_precipitation(float wxr_local, float wxr_above) {
    const int main = atm.prim_layer;
    const float T_cld_cel = find_temp_cel(0.5f * (atm.base_h_MSL[main] + atm.tops_h_MSL[main]));
    const float rai_acf = fltlim((wxr_above * sqrtf(atm.rain_set) - 0.25f) * 1.333333f, 0.0f, 1.0f);

    const auto ease = [](float& now, float target) { now = closer_assymp(now, target, mnw.prd_FM); };
    ease(atm.level_rat_acf, wxr_local);
    // rain turns to snow across -1 to +1 degrees at the aircraft, by last frame's temperature
    ease(atm.rain_rat_acf, interp(-1.0f, 0.0f, 1.0f, 1.0f, con.lcl_T_cel) * rai_acf);
    ease(atm.snow_rat_acf, interp(1.0f, 0.0f, -1.0f, 1.0f, con.lcl_T_cel) * rai_acf);
    // hail: the middle of the main layer is within 10 degrees of freezing
    ease(atm.hail_rat_acf, fltlim(1.0f - flt_abs(T_cld_cel) * 0.1f, 0.0f, 1.0f) * rai_acf);
}

static void precipitation() {
    const float x = static_cast<float>(flt[0].dob_x), ele = static_cast<float>(flt[0].dob_ele),
                z = static_cast<float>(flt[0].dob_z);
    const float wxr_local = clou.ret_wxr_local(x, ele, z);
    ease_precipitation(wxr_local, clou.ret_wxr_above(x, ele, z));
}

void weather_step() {
    real_weather_step();
    weather_trend();
    limit_weather();
    find_main_layer();
    precipitation();
    wind.per_cycle();
}

// -- local air and sea

// Perfect gas: p = rho R T, a = sqrt(1.4 R T), total temperature (1 + .2 M2) T. As given: R is 287 on both
// planets.
static void local_air() {
    const double radius = con.planet_rad + flt[0].dob_y;
    const float ele = static_cast<float>(flt[0].dob_ele);
    con.lcl_g = static_cast<float>(con.planet_mu / (radius * radius));
    con.lcl_T_cel = find_temp_cel(ele);
    con.lcl_r_met = find_standard_rho(env.planet, ele) * find_current_rho_rat();
    // Decided: air is held at 1 K; a day set far too cold would stand below absolute zero aloft, and the
    // speed of sound is the root of its temperature.
    const float T_kel = fltmax2(con.lcl_T_cel + 273.15f, 1.0f);
    con.lcl_P_pas = con.lcl_r_met * con.R * T_kel;
    con.lcl_sig = con.lcl_r_met * inv_rho_sl;
    con.lcl_a = sqrtf(con.R * T_kel * 1.4f);
    con.lcl_T_cel_total = (1.0f + 0.2f * sqr(flt[0].AV_msc / con.lcl_a)) * T_kel - 273.15f;
}

// Deep-water waves, 1.34 knots times the root of the length in feet.
static void sea() {
    atm.wave_length = atm.wave_height * atm.wave_length_to_height;
    atm.wave_speed = sqrtf(atm.wave_length * con.mtrstoft) * con.ktstomsc * 1.34f;
}

void local_air_step() {
    local_air();
    sea();
}

// -- random weather

// Strong weather means low cloud: full strength stands 50 ft above the ground, none at 30000 ft.
static float random_layer_height(float min, float max, float cloud_strength) {
    return interp(1.0f, flt[0].terrain_y_cg + 50.0f * con.fttomtrs, 0.0f, 30000.0f * con.fttomtrs,
                  flt_rand(min, max) * cloud_strength);
}

void randomise_weather() {
    const float wind_strength = sqr(flt_rand(0.0f, 1.0f));
    const float cloud_strength = flt_rand(0.01f, 1.0f);
    atm.rate_change = signsqr(flt_rand(-1.0f, 1.0f));
    atm.rain_set = flt_rand(0.5f, 1.5f) * cloud_strength;
    atm.tstm_set = flt_rand(0.5f, 1.5f) * cloud_strength;
    atm.burst_prob = flt_rand(0.5f, 1.5f) * wind_strength;
    atm.wind_tbl = flt_rand(0.5f, 1.5f) * wind_strength;
    assign_wind_tbl(1.0f);

    atm.base_h_MSL[0] = random_layer_height(0.5f, 0.75f, cloud_strength);
    atm.tops_h_MSL[0] = random_layer_height(0.75f, 1.0f, cloud_strength);
    atm.base_h_MSL[1] = random_layer_height(1.0f, 1.25f, cloud_strength);
    atm.tops_h_MSL[1] = random_layer_height(1.25f, 1.5f, cloud_strength);
    for (int& type : atm.cld_type)
        type = intcut(interp(1.0f, cld_overcast, 0.0f, cld_none, flt_rand(0.5f, 2.0f) * cloud_strength));
    atm.vis_rep =
        interp(1.0f, 100.0f, 0.0f, max_vis_ter_mtrs[env.planet == 1], flt_rand(0.5f, 1.0f) * cloud_strength);
    con.sl_T_cel = flt_rand(-10.0f, 30.0f);
    con.sl_P_pas = flt_rand(29.8f, 30.2f) * con.hg_topas;
    limit_cloud_typ_rat(1);
}

void new_weather_seed() { atm.weather_seed = static_cast<char>(int_rand(0, 127)); }

// -- border

struct border_struct {
    float* value;
    float preset;    // for what is not finite
    float min, max;  // of what the weather step itself does not limit
};

static void limit_border(const border_struct& b) {
    if (!std::isfinite(*b.value)) *b.value = b.preset;
    *b.value = fltlim(*b.value, b.min, b.max);
}

void limit_atm_border() {
    constexpr float any = 1e9f;  // limited by the weather step
    constexpr float alt_ft[3] = {5000.0f, 7500.0f, 25000.0f};
    constexpr float layer_ft[2] = {8500.0f, 12000.0f};
    for (int i = 0; i < 2; ++i) {
        limit_border({&atm.base_h_MSL[i], layer_ft[i] * con.fttomtrs, -any, any});
        limit_border({&atm.tops_h_MSL[i], layer_ft[i] * con.fttomtrs, -any, any});
        atm.cld_type[i] = intlim(atm.cld_type[i], cld_none, cld_overcast);
    }
    for (int c = 0; c < 3; ++c) {
        limit_border({&atm.set_wind_alt_mtrs[c], alt_ft[c] * con.fttomtrs, -1e5f, 1e6f});
        for (float* layer : {atm.set_wind_spd_kts, atm.set_wind_dir_mag, atm.set_shear_spd_kts,
                             atm.set_shear_dir, atm.set_turb_inc})
            limit_border({&layer[c], 0.0f, -any, any});
    }
    for (float* vis : {&atm.vis_rep, &atm.vis_ground, &atm.vis_sky})
        limit_border({vis, 10.0f * con.nmtomtrs, 0.0f, any});
    for (float* set : {&atm.rain_set, &atm.tstm_set, &atm.wind_tbl, &atm.burst_prob, &atm.level_rat_acf,
                       &atm.rain_rat_acf, &atm.hail_rat_acf, &atm.snow_rat_acf})
        limit_border({set, 0.0f, 0.0f, 1.0f});
    const border_struct others[] = {
        {&atm.vis_frmult, 1.0f, 0.1f, 1.0f},
        {&atm.rate_change, 0.0f, -1.0f, 1.0f},
        {&atm.dewp_sea_C, 0.0f, -250.0f, 250.0f},
        {&atm.wave_height, 4.0f * con.fttomtrs, 0.0f, 1000.0f},
        {&atm.wave_length, 0.0f, 0.0f, any},
        {&atm.wave_speed, 0.0f, 0.0f, any},
        {&atm.wave_length_to_height, 15.0f, 7.0f, 20.0f},
        {&atm.therm_prt, 0.0f, 0.0f, 0.5f},
        {&atm.therm_vvi_fpm, 500.0f, 0.0f, 1500.0f},
        {&atm.therm_alt_ft, 10000.0f, -1e6f, 1e6f},
        {&atm.rwx_check_minutes, 30.0f, 5.0f, 60.0f},
        {&atm.rwx_next_check_time, 0.0f, -any, any},
        {&atm.rwx_percent_downloaded, 0.0f, 0.0f, 100.0f},
        {&atm.rwx_max_vis_nm, 15.0f, 5.0f, 25.0f},
        // the widest that the screen offers
        {&con.sl_T_cel, env.planet == 1 ? -60.0f : 15.0f, -250.0f, 250.0f},
        {&con.sl_P_pas, env.planet == 1 ? 920.0f : 101325.0f, 0.0f, 850000.0f},
    };
    for (const border_struct& other : others) limit_border(other);
    atm.prim_layer = intlim(atm.prim_layer, 0, 1);
    atm.rway_fric_code = intlim(atm.rway_fric_code, 0, 2);
    atm.wave_dir = intwrap(atm.wave_dir, 0, 359);
    atm.weather_seed = static_cast<char>(atm.weather_seed & 127);
}

// -- weather screen

static void hold_slider_ranges() {
    const auto hold = [](float& value, float min, float max) { value = fltlim(value, min, max); };
    hold(atm.wave_length_to_height, 7.0f, 20.0f);
    hold(atm.therm_prt, 0.0f, 0.5f);
    hold(atm.therm_vvi_fpm, 0.0f, 1500.0f);
    hold(atm.rwx_check_minutes, 5.0f, 60.0f);
    hold(atm.rwx_max_vis_nm, 5.0f, 25.0f);
    // wind layers stand at least 1000 ft above the one below
    const float step = 1000.0f * con.fttomtrs;
    for (int c = 0; c < 3; ++c) {
        const float below = c == 0 ? 0.0f : atm.set_wind_alt_mtrs[c - 1];
        atm.set_wind_alt_mtrs[c] = fltmax2(atm.set_wind_alt_mtrs[c], below + step);
    }
}

// The runway gets wet as the rain is moved across 0.4 and 0.8, and dries on the way back. A code that
// the user has set stays until the next crossing.
static void wet_runway(float old_rain) {
    const float rain = atm.rain_set;
    int& code = atm.rway_fric_code;
    if (rain > old_rain) {
        if (rain >= 0.4f && old_rain <= 0.4f && code == 0) code = 1;
        if (rain >= 0.8f && old_rain <= 0.8f && code <= 1) code = 2;
    } else if (rain < old_rain) {
        if (rain <= 0.8f && old_rain >= 0.8f && code > 1) code = 1;
        if (rain <= 0.4f && old_rain >= 0.4f && code > 0) code = 0;
    }
}

static void report_switches(const weather_screen_struct& last) {
    if (atm.download_rwx && !last.old_download_rwx) {
        atm.use_rwx = 1;
        atm.rwx_next_check_time = 0.0f;
    }
    if (!atm.use_rwx && last.old_use_rwx) atm.download_rwx = 0;
}

void weather_screen_rules(weather_screen_struct& last) {
    hold_slider_ranges();
    wet_runway(last.old_rain);
    report_switches(last);
    if (env.planet == 1) {  // no clouds, no water, no reports
        atm.cld_type[0] = atm.cld_type[1] = cld_none;
        atm.rain_set = atm.tstm_set = 0.0f;
        atm.use_rwx = 0;
    }
    last = {atm.rain_set, atm.download_rwx, atm.use_rwx};
}
