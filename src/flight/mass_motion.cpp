// Masses, loads and moments, and the integration of rates and velocity. Slot 0.
#include "flight/mass_motion.h"

#include "aircraft/design/exists.h"
#include "core/math/axes.h"
#include "core/math/random.h"
#include "core/records/double_float.h"
#include "core/records/records.h"
#include "flight/force/trace.h"
#include "flight/weapons/weapons.h"

namespace {
struct motion_state {
    double_float vx, vy, vz;                      // velocity, m/s; the record publishes it
    float running_Rdot = 0.0f;                    // smoothed yaw acceleration at rest, deg/s2
    float btime1 = 0.0f, btime2 = 0.0f, btime3 = 0.0f;  // phases of the tow's turbulence, rad
};
motion_state state;
}  // namespace

void reset_motion() { state = {}; }

void inc_mass_mi(float x, float y, float z, float m, const char* comment) {
    flt_struct& f = flt[0];
    f.m_total += m;
    f.Jxx_total += (y * y + z * z) * m;
    f.Jyy_total += (x * x + z * z) * m;
    f.Jzz_total += (x * x + y * y) * m;
    f.M -= f.g_axil * con.g * y * m;
    f.N -= f.g_axil * con.g * x * m;
    f.L -= f.g_side * con.g * y * m;
    f.N += f.g_side * con.g * z * m;
    f.L += f.g_nrml * con.g * x * m;
    f.M += f.g_nrml * con.g * z * m;
    if (mnw.cyc_out) [[unlikely]]
        trace_values(comment, {{"kg", m}, {"x", x}, {"y", y}, {"z", z}});
}

void build_masses() {
    flt_struct& f = flt[0];
    const veh_struct& v = veh[0];
    constexpr float seconds_per_hour = 3600.0f;
    f.m_total = v.m_empty * (1.0f + f.frame_ice) + f.m_fixed;
    if (!v.jett_is_slung) f.m_total += f.m_jettison;
    f.m_total += f.jato_left * v.jato_thrust * v.jato_sfc / seconds_per_hour / con.g;
    // squared radii of gyration times the present mass
    f.Jxx_total = v.Jxx_unitmass * f.m_total;
    f.Jyy_total = v.Jyy_unitmass * f.m_total;
    f.Jzz_total = v.Jzz_unitmass * f.m_total;

    for (int en = 0; en < wattDIM; ++en) {
        const veh_watt_struct& station = v.watt[en];
        if (!station.watt_name[0]) continue;
        const wpn_struct& w = v.wpn[en];
        const float mass = w.added_mass + (wpn_is_on_board(0, en) ? w.total_weapon_mass_now : 0.0f);
        inc_mass_mi(station.watt_x, station.watt_y - w.cgY, station.watt_z - w.cgZ, mass, "weapon station");
    }
    for (int en = 0; en < fuelDIM; ++en)
        inc_mass_mi(v.tank_xyz[en][0], v.tank_xyz[en][1], v.tank_xyz[en][2], f.m_fuel[en], "fuel tank");
    for (int en = 0; en < engnDIM; ++en)
        if (f.fail_stat[fail_eng_sep + en] == fail_active)
            inc_mass_mi(v.part[en].part_x, v.part[en].part_y, v.part[en].part_z, -v.engn[en].engn_mass,
                        "separated engine");
}

void load_factors() {
    flt_struct& f = flt[0];
    constexpr float max_load = 1000.0f;
    const float weight = f.m_total * con.g;  // As given: standard gravity, not the local one
    f.g_nrml = fltlim((f.fnrml_prop_acf + f.fnrml_aero_acf + f.fnrml_gear_acf) / weight, -max_load, max_load);
    f.g_axil = fltlim((f.faxil_prop_acf + f.faxil_aero_acf + f.faxil_gear_acf) / weight, -max_load, max_load);
    f.g_side = fltlim((f.fside_prop_acf + f.fside_aero_acf + f.fside_gear_acf) / weight, -max_load, max_load);
    veh_to_wrl(f.g_side * con.g, f.g_nrml * con.g, f.g_axil * con.g, &f.ax, &f.ay, &f.az, 0);
    check_val(f.m_total);
    for (const float sum : {f.faxil_prop_acf, f.faxil_aero_acf, f.faxil_gear_acf, f.fnrml_prop_acf,
                            f.fnrml_aero_acf, f.fnrml_gear_acf, f.fside_prop_acf, f.fside_aero_acf,
                            f.fside_gear_acf, f.g_nrml, f.g_axil, f.g_side, f.ax, f.ay, f.az})
        check_val(sum);
}

// The world frame is flat, but gravity points to the planet's centre below its origin.
static void add_gravity() {
    flt_struct& f = flt[0];
    const double x = f.dob_x, y = con.planet_rad + f.dob_y, z = f.dob_z;
    const double length = sqrt(x * x + y * y + z * z);
    f.ax -= con.lcl_g * static_cast<float>(x / length);
    f.ay -= con.lcl_g * static_cast<float>(y / length);
    f.az -= con.lcl_g * static_cast<float>(z / length);
}

// Lighter-than-air craft: the envelope's displaced air.
static void add_buoyancy() {
    flt_struct& f = flt[0];
    const float displace_lift_N = veh[0].m_displaced * con.g * f.disp_rat * con.lcl_sig;
    f.ay += displace_lift_N / f.m_total;
    f.M -= f.sin_the * displace_lift_N * veh[0].m_displaced_Y;
    f.L -= f.sin_phi * displace_lift_N * veh[0].m_displaced_Y;
}

void add_gravity_and_buoyancy() {
    add_gravity();
    add_buoyancy();
}

void add_weight_shift() {
    flt_struct& f = flt[0];
    const float mass = veh[0].mass_shift;
    const float x = veh[0].mass_shift_dx * f.FC_roll, z = veh[0].mass_shift_dz * f.FC_ptch;
    f.N -= f.g_axil * con.g * x * mass;
    f.N += f.g_side * con.g * z * mass;
    f.L += f.g_nrml * con.g * x * mass;
    f.M += f.g_nrml * con.g * z * mass;
    // the elements stay where they are; the user's shift goes in as a moment
    f.N += f.g_side * con.g * f.cgz_ref_to_default * f.m_total;
    f.M += f.g_nrml * con.g * f.cgz_ref_to_default * f.m_total;
    f.g_total = pythag(f.ax, f.ay + con.lcl_g, f.az) / con.g;
}

// Degrees per second squared. As given: Euler's cross terms of the inertias are left out; the user's stability aid.
void angular_acceleration() {
    flt_struct& f = flt[0];
    constexpr float max_accel = 10000.0f;
    f.Pdot = f.L / f.Jzz_total * con.radtodeg;
    f.Qdot = f.M / f.Jxx_total * con.radtodeg;
    f.Rdot = f.N / f.Jyy_total * con.radtodeg;
    f.Pdot -= (4.0f * fltlim(f.phi, -10.0f, 10.0f) + f.P) * mnw.damp_rat[1];
    f.Qdot -= (6.0f * fltlim(f.the, -10.0f, 10.0f) + f.Q) * mnw.damp_rat[0];
    f.Rdot -= f.R * mnw.damp_rat[2];
    f.Pdot = fltlim(f.Pdot, -max_accel, max_accel);
    f.Qdot = fltlim(f.Qdot, -max_accel, max_accel);
    f.Rdot = fltlim(f.Rdot, -max_accel, max_accel);
}

void carried_flight_motion() {
    if (!stg.car_inprog) return;
    flt_struct& f = flt[0];
    f.P = f.Q = f.R = 0.0f;
    f.Pdot = f.Qdot = f.Rdot = 0.0f;
    f.ax = f.ay = f.az = 0.0f;
    f.vx = flt[1].vx;
    f.vy = flt[1].vy;
    f.vz = flt[1].vz;
}

// Shakes one axis, deg/s2, at 10 to 40 rad/s; the draws are taken one by one, in a fixed order. As given.
static float buffet(float* phase) {
    *phase += flt_rand(1.0f, 4.0f) * mnw.prd_FM;
    *phase = fltwrap(*phase, 0.0f, con.pim2);
    return flt_rand(50.0f, 100.0f) * sinf(10.0f * *phase);
}

// The wake of a towing aircraft, met near the line behind it.
void tow_turbulence() {
    flt_struct& f = flt[0];
    constexpr float in_wake_deg = 4.0f;
    if (!stg.tow_inprog || f.onground_any) return;
    const float off_the = env.tow_line_alph - f.the + flt[1].the;
    const float off_psi = env.tow_line_beta - f.psi + flt[1].psi;
    if (fabsf(off_the) > in_wake_deg || fabsf(off_psi) > in_wake_deg) return;
    f.Pdot += buffet(&state.btime1);
    f.Qdot += buffet(&state.btime2);
    f.Rdot += buffet(&state.btime3);
}

// Standing still on its gear the aircraft's yaw would jitter between the tyres' side forces. As given.
void arrest_yaw_at_rest() {
    flt_struct& f = flt[0];
    if (!(f.V_msc < 5.0f && f.fnrml_gear_acf > 0.5f * f.m_total * con.g)) return;
    state.running_Rdot = closer_assymp(state.running_Rdot, f.Rdot, mnw.prd_FM);
    const float lock =
        interp(4.0f, 0.0f, 2.0f, 1.0f, fabsf(f.R)) * interp(2.0f, 0.0f, 1.0f, 1.0f, fabsf(state.running_Rdot));
    f.Rrad *= 1.0f - lock;
    f.R *= 1.0f - lock;
    f.Rdot *= 1.0f - lock;
}

void integrate_rates() {
    flt_struct& f = flt[0];
    const float dt = mnw.prd_FM;
    f.P += f.Pdot * dt;
    f.Q += f.Qdot * dt;
    f.R += f.Rdot * dt;
    const double step = dt;
    state.vx.step(f.vx, f.ax * step);
    state.vy.step(f.vy, f.ay * step);
    state.vz.step(f.vz, f.az * step);
}

// As given: a crash takes 5 parts a second of all motion, a chute a tenth of the rates.
void damp_crash_and_chute() {
    flt_struct& f = flt[0];
    if (mnw.totl_time < msc.crash_damp_timeout) {
        const float keep = 1.0f - 5.0f * mnw.prd_FM;
        for (float* v : {&f.P, &f.Q, &f.R, &f.vx, &f.vy, &f.vz}) *v *= keep;
    }
    if (stg.chute_on) {
        const float keep = 1.0f - 0.1f * stg.chute_deploy_rat * mnw.prd_FM;
        for (float* v : {&f.P, &f.Q, &f.R}) *v *= keep;
    }
    f.Prad = f.P * con.degtorad;
    f.Qrad = f.Q * con.degtorad;
    f.Rrad = f.R * con.degtorad;
}
