// The frame step of the wind: layers, gust, microburst, thermals, ridge lift, turbulence strength.
#include "weather/wind.h"

#include "core/craft/veh.h"
#include "core/math/geo3.h"
#include "core/math/random.h"
#include "core/program/alert.h"
#include "core/program/clocks.h"
#include "core/records/atm.h"
#include "core/records/env.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "core/records/stg.h"
#include "sound/sound.h"
#include "weather/clouds.h"

wind_class wind;

// What the frames hand on to each other.
struct wind_state_struct {
    // gust: targets are redrawn once a second
    float shr_term_spd_msc, shr_term_dir_true;
    float shr_crnt_spd_msc, shr_crnt_dir_true;
    // microburst
    int burst_type;    // 0 none; the world direction of the push: 1 +z, 2 -z, 3 +x, 4 -x
    int burst_on_top;  // 1: the aircraft is under the core and is pressed down too
    float burst_strt_time, burst_stop_time;  // totl_time, s
    float burst_speed, burst_vertv;          // m/s
    d3_struct base_msc;                      // smoothed wind without thermals, m/s
    // offsets of the turbulence field, m
    d3_struct wind_os;           // integrated wind
    d3_struct term_os, crnt_os;  // wander: target and present
    double_float phase;          // in double: a float phase would stand still after some hours
    float slope_vy;              // smoothed ridge lift, m/s
};
static wind_state_struct state;

void wind_reset() {
    state = {};
    wind = {};
}

// -- noise

float interp_noise(float x, float y, int seed) {
    if (seed < 0) {
        MACIBM_alert(mnw.top_win, "Cannot pass in negative float rand seed to interp_noise!", "", "", "",
                     alert_fatal);
        return 0.0f;
    }
    x = flt_abs(x);
    y = flt_abs(y);
    const float fractional_X = x - truncf(x), fractional_Y = y - truncf(y);
    // in 64 bits: the index of a far cell passes 32
    const long long integer_X = intcut(x), integer_Y = intcut(y);
    const auto entry = [&](int right, int up) {
        return randrat[((integer_Y + up) * 8932 + integer_X + seed + right) % randratDIM];
    };
    const float v1 = entry(0, 0), v2 = entry(1, 0), v3 = entry(0, 1), v4 = entry(1, 1);
    const float low = v1 * (1.0f - fractional_X) + v2 * fractional_X;
    const float high = v3 * (1.0f - fractional_X) + v4 * fractional_X;
    return 2.0f * (low * (1.0f - fractional_Y) + high * fractional_Y) - 1.0f;
}

// -- layers

void wind_class::ret_wind_stats(float h, float* wndspd_kts, float* wnddir_mag, float* shrspd_kts,
                                float* shrdir_deg, float* trblnc_lev) const {
    const float* alt = atm.set_wind_alt_mtrs;
    int a = 2, b = 2;  // h lies between layers a and b
    if (h < alt[0])
        a = b = 0;
    else if (h < alt[1])
        a = 0, b = 1;
    else if (h < alt[2])
        a = 1, b = 2;
    const auto at = [&](const float* v) { return interp(alt[a], v[a], alt[b], v[b], h); };
    *wndspd_kts = at(atm.set_wind_spd_kts);
    *wnddir_mag = at(atm.set_wind_dir_mag);
    *shrspd_kts = at(atm.set_shear_spd_kts);
    *shrdir_deg = at(atm.set_shear_dir);
    *trblnc_lev = at(atm.set_turb_inc);
}

// The clouds go with the wind at the middle of the main layer, without its gusts.
static void drift_clouds() {
    const int layer = intlim(atm.prim_layer, 0, 1);
    const float middle = 0.5f * (atm.base_h_MSL[layer] + atm.tops_h_MSL[layer]);
    float spd_kts, dir_mag, shrspd_kts, shrdir_deg, trblnc_lev;
    wind.ret_wind_stats(middle, &spd_kts, &dir_mag, &shrspd_kts, &shrdir_deg, &trblnc_lev);
    const float way = spd_kts * con.ktstomsc * mnw.prd_FM;
    clou.blow_region_x(-way * sin_deg(dir_mag - env.mag_var));
    clou.blow_region_z(way * cos_deg(dir_mag - env.mag_var));
}

// As given: drawn anew each second, followed in half a second.
static void gust() {
    if (mnw.puff1) {
        state.shr_term_spd_msc = flt_rand(-1.0f, 1.0f) * wind.base_shrspd_kts * con.ktstomsc;
        state.shr_term_dir_true = wind.base_shrdir_deg * flt_rand(-1.0f, 1.0f);
    }
    const float rat = 2.0f * mnw.prd_FM;
    state.shr_crnt_spd_msc = closer_assymp(state.shr_crnt_spd_msc, state.shr_term_spd_msc, rat);
    state.shr_crnt_dir_true = closer_assymp(state.shr_crnt_dir_true, state.shr_term_dir_true, rat);
}

// Layer wind and gust. A direction names where the wind comes from: 270 moves the air to +x, 0 to +z.
static d3_struct layer_wind() {
    const float spd_msc = wind.base_wndspd_kts * con.ktstomsc + state.shr_crnt_spd_msc;
    const int dir_true =
        intwrap(intcut(wind.base_wnddir_mag - env.mag_var + state.shr_crnt_dir_true), 0, 359);
    return {-spd_msc * lookup_sin[dir_true], 0.0f, spd_msc * lookup_cos[dir_true]};
}

// -- microburst

// As given: 10 to 20 s, 30 to 90 knots, 2,000 to 8,000 ft/min.
static void start_burst() {
    state.burst_type = int_rand(1, 4);
    state.burst_on_top = int_rand(0, 1);
    state.burst_strt_time = mnw.totl_time;
    state.burst_stop_time = mnw.totl_time + flt_rand(10.0f, 20.0f);
    state.burst_speed = flt_rand(30.0f, 90.0f) * con.ktstomsc;
    state.burst_vertv = flt_rand(-2000.0f, -8000.0f) * con.fpmtomsc;
    if ((veh[0].warn1_EQ || veh[0].warn2_EQ) && stg.warn_bb) soun.SOUND_set(sound_wind_shear, 1.0f, 1.0f);
}

static bool burst_begins() {
    constexpr float agl_limit = 300.0f;                                       // m
    const float spacing = extrap(0.0f, 600.0f, 1.0f, 60.0f, atm.burst_prob);  // mean, s
    if (!(atm.burst_prob > 0.01f && flt[0].y_agl_mtr < agl_limit)) return false;
    return mnw.prd_FM > flt_rand(0.0f, spacing);
}

// A push from one of the four world directions that rises and dies as a half sine.
static d3_struct burst_wind() {
    if (state.burst_type == 0) {
        if (burst_begins()) start_burst();
        return {};  // the first frame of a burst adds nothing yet
    }
    // Decided: a burst also ends before its start, since a replay moves the time backward too and the half
    // sine of the push would go on with the other sign.
    if (!fltrange(mnw.totl_time, state.burst_strt_time, state.burst_stop_time)) {
        state.burst_type = 0;
        return {};
    }
    const float t = extrap(state.burst_strt_time, 0.0f, state.burst_stop_time, 1.0f, mnw.totl_time);
    const float s = sinf(con.pi * t);
    float fac_x = 0.0f, fac_z = 0.0f;
    switch (state.burst_type) {
        case 1:
            fac_z = s;
            break;
        case 2:
            fac_z = -s;
            break;
        case 3:
            fac_x = -s;
            break;
        default:
            fac_x = s;
            break;
    }
    const float fac_y = state.burst_on_top ? s : 0.0f;
    return {-state.burst_speed * fac_x, state.burst_vertv * fac_y, state.burst_speed * fac_z};
}

// -- turbulence field

static float wander(float& term, float& crnt) {
    constexpr float reach = 25.0f;  // m
    if (mnw.puff1) term = flt_rand(-reach, reach);
    return crnt = closer_assymp(crnt, term, mnw.prd_FM);
}

// The pattern is carried along by the wind and wanders about.
static void move_field() {
    constexpr float wrap = 1000.0f;  // m
    const auto carried = [](float& os, float v) { return os = fltwrap(os + mnw.prd_FM * v, -wrap, wrap); };
    wind.totl_os_x = wander(state.term_os.x, state.crnt_os.x) + carried(state.wind_os.x, state.base_msc.x);
    wind.totl_os_y = wander(state.term_os.y, state.crnt_os.y) + carried(state.wind_os.y, state.base_msc.y);
    wind.totl_os_z = wander(state.term_os.z, state.crnt_os.z) + carried(state.wind_os.z, state.base_msc.z);
    state.phase.step(wind.totl_os_t, mnw.prd_FM, 0.0);
}

// The dense inside of an overcast is smooth; only its densest part stays rough.
static float cloud_turbulence() {
    float level_rat_acf = atm.level_rat_acf;
    for (int layer = 0; layer < 2; ++layer)
        if (atm.cld_type[layer] == cld_overcast &&
            fltrange(ren.view_ele_msl, atm.base_h_MSL[layer], atm.tops_h_MSL[layer]))
            level_rat_acf = fltlim(2.0f * (level_rat_acf - 0.5f), 0.0f, 1.0f);
    return level_rat_acf;
}

// 0 to 1. As given.
static float turbulence_strength() {
    const float top = fltmax2(atm.set_wind_alt_mtrs[2], 6000.0f) + 2000.0f;  // of the weather, m
    // halved at the ground, full from 20 m; fades below the top to a tenth
    const float facXZ = fltlim(flt[0].y_agl_mtr * 0.05f, 0.5f, 1.0f);
    const float facAL = fltlim((top - static_cast<float>(flt[0].dob_ele)) * 0.001f, 0.1f, 1.0f);
    return (cloud_turbulence() * 0.5f + wind.base_trblnc_lev * 0.05f) * facXZ * facAL;
}

// -- rising air

// m/s. As given: cells of 200 m, fixed to the ground; on and off at once at a cell's edge.
static float thermal() {
    const float therm_prt_rand =
        interp_noise(static_cast<float>(flt[0].dob_x * 0.005), static_cast<float>(flt[0].dob_z * 0.005), 0) *
            0.5f +
        0.5f;
    if (!(atm.therm_prt > therm_prt_rand)) return 0.0f;
    const float top = atm.therm_alt_ft * con.fttomtrs;
    const float therm_vy = atm.therm_vvi_fpm * con.fpmtomsc *
                           interp(top - 100.0f, 1.0f, top + 100.0f, 0.0f, flt[0].y_agl_mtr) *
                           interp(0.0f, 0.0f, 100.0f, 1.0f, flt[0].y_agl_mtr);
    check_val(therm_vy);
    return therm_vy;
}

// m/s: the wind's component into the slope below; as given gone at 1000 m above ground.
static float ridge_lift() {
    const float new_slope_vy =
        (-state.base_msc.x * env.terrain_nrm[0] - env.terrain_nrm[2] * state.base_msc.z) *
        interp(0.0f, 1.0f, 1000.0f, 0.0f, flt[0].y_agl_mtr);
    state.slope_vy = closer_assymp(state.slope_vy, new_slope_vy, mnw.prd_FM);
    check_val(state.slope_vy);
    return state.slope_vy;
}

void wind_class::per_cycle() {
    drift_clouds();
    ret_wind_stats(static_cast<float>(flt[0].dob_ele), &base_wndspd_kts, &base_wnddir_mag, &base_shrspd_kts,
                   &base_shrdir_deg, &base_trblnc_lev);
    gust();
    const d3_struct target = layer_wind();
    const d3_struct burst = burst_wind();

    const float rat = 2.0f * mnw.prd_FM;
    state.base_msc.x = closer_assymp(state.base_msc.x, target.x + burst.x, rat);
    state.base_msc.y = closer_assymp(state.base_msc.y, burst.y, rat);
    state.base_msc.z = closer_assymp(state.base_msc.z, target.z + burst.z, rat);
    move_field();

    const float therm_vy = thermal();
    final_X_msc = state.base_msc.x;
    final_Y_msc = state.base_msc.y + therm_vy + ridge_lift();
    final_Z_msc = state.base_msc.z;
    final_dir_true = fltwrap(atan2_deg(-final_X_msc, final_Z_msc), 0.0f, 360.0f);
    final_spd_msc = fltlim(pythag(final_X_msc, final_Z_msc), 0.0f, 999.0f);
    final_trb_rat = turbulence_strength();
}
