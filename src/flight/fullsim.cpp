// The two half steps of slot 0 and the state derived from each.
#include "flight/fullsim.h"

#include "aircraft/design/exists.h"
#include "core/math/axes.h"
#include "core/math/globe.h"
#include "core/program/alert.h"
#include "core/records/records.h"
#include "flight/half_step.h"
#include "flight/instruments.h"
#include "flight/systems.h"
#include "flight/weapons/weapons.h"
#include "scenery/ground/terrain_query.h"
#include "weather/wind.h"

float kias_with_mach(float mach) { return con.lcl_a * mach * con.msctokts * sqrtf(con.lcl_sig); }

// Air relative to slot p at its reference point, in its own axes. For slot 0 this is the wind's own
// answer, for the others the same wind at their place.
static void air_on_acf(int p, float* x, float* y, float* z) {
    if (p == 0) return wind.ret_wind_acf(0.0f, 0.0f, 0.0f, x, y, z);
    const flt_struct& f = flt[p];
    float wx, wy, wz;
    wind.ret_wind_wrl(static_cast<float>(f.dob_x), static_cast<float>(f.dob_y), static_cast<float>(f.dob_z),
                      &wx, &wy, &wz);
    wrl_to_veh(wx - f.vx, wy - f.vy, wz - f.vz, x, y, z, p);
}

void cache_air(int p) {
    flt_struct& f = flt[p];
    wrl_to_veh(f.vx, f.vy, f.vz, &f.vx_acf_axis, &f.vy_acf_axis, &f.vz_acf_axis, p);
    air_on_acf(p, &f.vx_air_on_acf, &f.vy_air_on_acf, &f.vz_air_on_acf);
    f.alpha = atan2_deg(f.vy_air_on_acf, f.vz_air_on_acf);
    f.beta = atan2_deg(f.vx_air_on_acf, fabsf(f.vz_air_on_acf));
    f.sin_alph = sin_deg(f.alpha);
    f.cos_alph = cos_deg(f.alpha);
    f.sin_beta = sin_deg(f.beta);
    f.cos_beta = cos_deg(f.beta);
    f.AV_msc = pythag(f.vx_air_on_acf, f.vy_air_on_acf, f.vz_air_on_acf);
}

void cache_speeds(int p) {
    flt_struct& f = flt[p];
    f.Qstatic = 0.5f * sqr(f.AV_msc) * con.lcl_r_met;
    f.Mach = f.AV_msc / con.lcl_a;
    f.AV_sig_kts = kias_with_mach(f.Mach);
}

// On the carrier the attitude is the carrier's.
static void carried_attitude() {
    if (stg.car_inprog) init_quaternion(flt[1].psi, flt[1].the, flt[1].phi, flt[0].q);
}

// A stability test kicks the attitude by one degree, once.
static void kick_attitude() {
    flt_struct& f = flt[0];
    if (msc.stab_ptch_test != 2 && msc.stab_hdng_test != 2) return;
    if (msc.stab_ptch_test == 2) {
        msc.stab_ptch_test = 1;
        f.the += 1.0f;
    }
    if (msc.stab_hdng_test == 2) {
        msc.stab_hdng_test = 1;
        f.psi -= 1.0f;
    }
    init_quaternion(f.psi, f.the, f.phi, f.q);
}

static void move_position() {
    flt_struct& f = flt[0];
    if (stg.car_inprog) {
        const float* on_carrier = veh[1].jett_xyz;
        const float* on_us = veh[0].jett_xyz;
        float dx, dy, dz;
        veh_to_wrl(on_carrier[0] - on_us[0], on_carrier[1] - on_us[1], on_carrier[2] - on_us[2], &dx, &dy,
                   &dz, 1);
        f.dob_x = flt[1].dob_x + dx;
        f.dob_y = flt[1].dob_y + dy;
        f.dob_z = flt[1].dob_z + dz;
    } else {
        const double dt = mnw.prd_FM;
        f.dob_x += f.vx * dt;
        f.dob_y += f.vy * dt;
        f.dob_z += f.vz * dt;
    }
    if (mnw.first_miss_cycle) {
        const double lowest = f.terrain_y_cg + veh[0].h_eqlbm;
        if (f.dob_y < lowest) f.dob_y = lowest;
    }
}

// Climb rate in the true local vertical: the frame's y leans away from it towards the region's edge.
static float true_climb() {
    const flt_struct& f = flt[0];
    double q[4], vx = f.vx, vy = f.vy, vz = f.vz;
    frame_shift_quat(ref_lat(), ref_lon(), f.dob_lat, f.dob_lon, q);
    shift_xyz_quat(q, &vx, &vy, &vz, 1);
    return static_cast<float>(vy);
}

static void derived_values(float vu) {
    flt_struct& f = flt[0];
    f.V_msc = pythag(f.vx, f.vy, f.vz);
    cache_speeds(0);
    f.Vh_fpm = con.msctofpm * vu;
    f.psi_mag_act = fltwrap(f.psi + env.mag_var, 0.0f, 360.0f);
    f.terrain_y_cg = return_terrain_y(static_cast<float>(f.dob_x), static_cast<float>(f.dob_z), 0);
    f.y_agl_mtr = static_cast<float>(f.dob_y) - veh[0].h_eqlbm - f.terrain_y_cg;
}

static void flight_path() {
    flt_struct& f = flt[0];
    f.v_path = atan_deg(f.vy / fltlim(pythag(f.vx, f.vz), 0.01f, 9.9e+09f));
    f.h_path = fltwrap(atan2_deg(f.vx, -f.vz), 0.0f, 360.0f);
}

static void one_half_step(int iter) {
    flt_struct& f = flt[0];
    set_vel_flight(iter);
    carried_attitude();
    update_quaternion(f.Prad * mnw.prd_FM, f.Qrad * mnw.prd_FM, f.Rrad * mnw.prd_FM, &f.psi, &f.the, &f.phi,
                      f.q);
    kick_attitude();
    move_position();
    derived_values(true_climb());
    instrument_step();
    flight_path();
    cache_attitude(0);
    cache_air(0);
    mnw.cyc_out = 0;  // the trace covers one half step
}

static void stall_warning_test() {
    flt_struct& f = flt[0];
    f.stall_warning = f.v_ind_kts > 0.25f * veh[0].Vs_kts && f.alpha > veh[0].stall_warn_aoa;
}

// Sink rates that are too much for the height, ft and ft/min, and the gear left up. As given: the lines, and
// the frame's vy for the sink rate.
static void ground_proximity_test() {
    if (!mnw.puff05 || !(veh[0].warn1_EQ || veh[0].warn2_EQ) || !stg.warn_bb) return;
    const flt_struct& f = flt[0];
    stg.BB_pullup = stg.BB_sinkrate = stg.BB_gear = 0;
    const float h = f.y_agl_mtr * con.mtrstoft;
    const float sink = f.vy * con.msctofpm;
    if (!(h < 2500.0f)) return;
    const float H = veh[0].warn2_EQ ? 1000.0f : 2500.0f;
    if (sink < extrap(0.0f, -1500.0f, H, -7000.0f, h))
        stg.BB_pullup = 1;
    else if (sink < extrap(0.0f, -1000.0f, H, -5000.0f, h))
        stg.BB_sinkrate = 1;
    else if (!f.gear_handle && h < 500.0f && sink < 0.0f && f.v_ind_kts < veh[0].Vfe_kts)
        stg.BB_gear = 1;
}

void update_with_fullsim2(int p) {
    if (p != 0) {
        MACIBM_fatal("I cannot do a update_with_fullsim2 with p!=0!");
        return;
    }
    // everything called inside the two steps sees the half step, what follows the whole
    const float whole_step = mnw.prd_FM;
    mnw.prd_FM = 0.5f * whole_step;
    for (int iter = 0; iter < 2; ++iter) one_half_step(iter);
    mnw.prd_FM = whole_step;

    mnw.dis_travelled += flt[0].V_msc * mnw.prd_FM;
    integ_weapons(p);
    stall_warning_test();
    system_tow_and_jett_lines();
    ground_proximity_test();
}
