// The order of one half step. Reading it top to bottom is the flight model.
#include "flight/half_step.h"

#include "flight/air/display_coeffs.h"
#include "flight/mass_motion.h"

#include "aircraft/design/exists.h"
#include "core/craft/engn_kinds.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "flight/air/bodies.h"
#include "flight/air/elements.h"
#include "flight/force/forces.h"
#include "flight/force/trace.h"
#include "flight/ground/contact.h"
#include "flight/power/engines.h"
#include "flight/power/shafts.h"
#include "flight/power/thrust.h"
#include "flight/systems.h"
#include "flight/weapons/weapons.h"

static void trace_header() {
    const flt_struct& f = flt[0];
    trace_banner("FLIGHT MODEL TRACE OF ONE HALF STEP");
    trace_values("time s", {{"total", mnw.totl_time}, {"step", mnw.prd_FM}});
    trace_values("air",
                 {{"density kg/m3", con.lcl_r_met}, {"sound m/s", con.lcl_a}, {"gravity m/s2", con.lcl_g}});
    trace_values(
        "speed m/s",
        {{"true", f.AV_msc}, {"x", f.vx_air_on_acf}, {"y", f.vy_air_on_acf}, {"z", f.vz_air_on_acf}});
    trace_values("attitude deg",
                 {{"psi", f.psi}, {"the", f.the}, {"phi", f.phi}, {"alpha", f.alpha}, {"beta", f.beta}});
    trace_values("rates deg/s", {{"P", f.P}, {"Q", f.Q}, {"R", f.R}});
}

static void clear_sums() {
    flt_struct& f = flt[0];
    for (flt_wing_struct& w : f.wing) w.nrml_force_path = w.axil_force_path = 0.0f;
    for (flt_gear_struct& g : f.gear) g.tire_TRQ = 0.0f;
}

static void clear_forces() {
    flt_struct& f = flt[0];
    f.faxil_prop_acf = f.faxil_aero_acf = f.faxil_gear_acf = 0.0f;
    f.fnrml_prop_acf = f.fnrml_aero_acf = f.fnrml_gear_acf = 0.0f;
    f.fside_prop_acf = f.fside_aero_acf = f.fside_gear_acf = 0.0f;
    f.L = f.M = f.N = 0.0f;
    f.lift_fan_total_power = f.pre_rot_total_power = 0.0f;
    f.blown_flap_engage_rat = interp(veh[0].blown_flap_min_engag, 0.0f, 1.0f, 1.0f, f.handle_rat_act);
}

static void run_engines(int iter) {
    for (int en = 0; en < veh[0].num_engines; ++en) {
        init_engine_specs(en, iter == 0);
        if (has_this_engn(0, en, engn_jet)) do_a_jet(en);
        if (has_this_engn(0, en, engn_roc) && !en_is_tip(0, en)) do_a_rocket(en);
    }
}

// One axis each by rocket_mode.
static void manoeuvring_rockets() {
    if (!(mnw.totl_time < flt[0].rocket_timeout)) return;
    const float* thrust = veh[0].puff_xyz;
    switch (flt[0].rocket_mode) {
        case rocket_aft:
            return addFaprop(0, thrust[2], 0.0f, 0.0f);
        case rocket_forward:
            return addFaprop(0, -thrust[2], 0.0f, 0.0f);
        case rocket_right:
            return addFsprop(0, thrust[0], 0.0f, 0.0f);
        case rocket_left:
            return addFsprop(0, -thrust[0], 0.0f, 0.0f);
        case rocket_up:
            return addFnprop(0, thrust[1], 0.0f, 0.0f);
        case rocket_down:
            return addFnprop(0, -thrust[1], 0.0f, 0.0f);
        default:
            return;
    }
}

static void jato() {
    if (!stg.jato_on) return;
    const float thrust = veh[0].jato_thrust, theta = veh[0].jato_theta;
    addFaprop(0, -thrust * cos_deg(theta), 0.0f, veh[0].jato_Y);
    addFnprop(0, thrust * sin_deg(theta), 0.0f, veh[0].jato_Z);
    flt[0].jato_left -= mnw.prd_FM;
    if (flt[0].jato_left < 0.0f) {
        flt[0].jato_left = 0.0f;
        stg.jato_on = 0;
    }
}

static void attitude_puffers() {
    const float* moment = veh[0].puff_LMN;
    if (!stg.puffers_on || !(moment[0] > 0.0f || moment[1] > 0.0f || moment[2] > 0.0f)) return;
    flt[0].L += moment[0] * flt[0].FC_roll;
    flt[0].M += moment[1] * flt[0].FC_ptch;
    flt[0].N += moment[2] * flt[0].FC_hdng;
}

static void trace_totals() {
    const flt_struct& f = flt[0];
    trace_banner("TOTALS");
    trace_values("loads g", {{"normal", f.g_nrml}, {"axial", f.g_axil}, {"side", f.g_side}});
    trace_values("mass",
                 {{"kg", f.m_total}, {"Jxx", f.Jxx_total}, {"Jyy", f.Jyy_total}, {"Jzz", f.Jzz_total}});
    trace_values("angular deg/s2", {{"Pdot", f.Pdot}, {"Qdot", f.Qdot}, {"Rdot", f.Rdot}});
    trace_values(
        "coefficients",
        {{"cl", f.cl_overall}, {"cd", f.cd_overall}, {"Cm", f.C_m}, {"Cn", f.C_n}, {"l/d", f.l_o_d}});
}

static void air_forces() {
    aero_elements();
    aero_downwash();
    aero_spanwise_load();
    aero_bodies();
    aero_gear_drag();
    aero_speedbrake_doors();
    aero_chute();
}

void tunnel_step() {
    clear_sums();
    aero_ground_effect();
    clear_forces();
    air_forces();
    display_coefficients();
}

void set_vel_flight(int iter) {
    if (mnw.cyc_out) trace_header();
    clear_sums();
    aero_ground_effect();
    clear_forces();

    run_engines(iter);
    do_all_props();
    manoeuvring_rockets();
    jato();
    attitude_puffers();
    prop_forcerep("engines, discs and rockets");

    system_electrical_load();
    system_tow_or_winch_line();
    system_slung_load();

    air_forces();

    steer_nosewheel();
    touch_surfaces();
    gear_forcerep("surface contact");

    system_water_bomber();
    system_arresting_wire();
    system_catapult();
    force_weapons();

    build_masses();
    load_factors();
    add_gravity_and_buoyancy();
    add_weight_shift();

    angular_acceleration();
    carried_flight_motion();
    tow_turbulence();
    arrest_yaw_at_rest();
    integrate_rates();
    damp_crash_and_chute();

    display_coefficients();
    if (mnw.cyc_out) trace_totals();
}
