// From joystick axes, or the AI that flies the user's aircraft, to yoke, levers and handles of slot 0.
#include "flight/pilots/pilot_input.h"

#include "aircraft/systems/electrics.h"
#include "core/craft/engn_kinds.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/alert.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "flight/autopilot/autopilot.h"
#include "flight/power/levers.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/nav/nav_lookup.h"

namespace {
struct pilot_state {
    float time_hdg_change = 0.0f, time_alt_change = 0.0f;  // when the AI changes them next, totl_time
};
pilot_state state;
}  // namespace

void reset_pilot_input() { state = {}; }

void auto_set_thro_prop(float in_rat, float* thro_rat, float* prop_rat) {
    const veh_struct& v = veh[0];
    const float handle_for_max_thro =
        (v.auto_omega_open - v.auto_omega_idle) / fltmax2(v.auto_omega_fire - v.auto_omega_idle, 1.0f);
    *thro_rat = interp(0.0f, 0.0f, handle_for_max_thro, 1.0f, in_rat);
    const float omega = in_rat < handle_for_max_thro
                            ? interp(0.0f, v.auto_omega_idle, handle_for_max_thro, v.auto_omega_open, in_rat)
                            : interp(handle_for_max_thro, v.auto_omega_open, 1.0f, v.auto_omega_fire, in_rat);
    *prop_rat = interp(v.RSC_mingreen_ENGN, 0.0f, v.RSC_redline_PROP, 1.0f, omega);
}

namespace {
// -- the AI at the user's controls

constexpr float ai_takeoff_height = 10.0f;  // m above ground

void ai_take_off() {
    flt_struct& f = flt[0];
    nav.mode_thro = otto_thro_speed;
    nav.asi_hold_kts_mac = veh[0].Vne_kts;
    nav.mode_alt_ = otto_alt_pitch;
    nav.syn_hold_deg = 10.0f;
    nav.mode_hdng = otto_hdng_hold;
    nav.hdg_hold_mag =
        fltwrap(runway_heading_true() + (msc.backwards ? 180.0f : 0.0f) + env.mag_var, 0.0f, 360.0f);
    nav.vvi_hold_fpm = f.Vh_fpm;
    nav.alt_hold_ft_use = (f.terrain_y_cg * con.mtrstoft) + 1000.0f;
    state.time_hdg_change = state.time_alt_change = mnw.totl_time + 15.0f;
    const float heading_error = fltwrap(nav.hdg_hold_mag - f.psi_mag_act, -180.0f, 180.0f);
    mnw.YK_hdng = (heading_error - 0.1f * f.R) * 0.5f;
    stg.parkbrake = 0.0f;
    f.elev_trim = 0.0f;
    f.handle_rat_req = 0.33f;
    f.gear_handle = 1;
}

// The higher of the terrain below and that 5 km ahead, world y.
float ai_terrain_ahead() {
    constexpr float look_ahead = 5000.0f;
    constexpr int checker_ai = 25;
    const flt_struct& f = flt[0];
    const float ahead = return_terrain_y(static_cast<float>(f.dob_x) + look_ahead * f.sin_psi,
                                         static_cast<float>(f.dob_z) - look_ahead * f.cos_psi, checker_ai);
    return fltmax2(ahead, f.terrain_y_cg);
}

// 1 at 1.5 times the reference speed, nothing at the reference speed: do not climb into a stall.
float ai_climb_margin() {
    const flt_struct& f = flt[0];
    const float v_ref_kts = veh[0].V_ref_ms * con.msctokts;
    const bool climbing = f.Vh_fpm > 0.0f && f.y_agl_mtr > 50.0f;
    const bool full_throttle = f.engn[0].thro_use >= 0.99f * veh[0].throt_max_FWD;
    if (!climbing || !full_throttle || f.AV_sig_kts >= 1.5f * v_ref_kts) return 1.0f;
    return interp(1.5f * v_ref_kts, 1.0f, v_ref_kts, 0.0f, f.AV_sig_kts);
}

void ai_cruise() {
    flt_struct& f = flt[0];
    constexpr float floor_ft = 3000.0f, ceiling_ft = 6000.0f;  // above the higher terrain
    nav.mode_thro = otto_thro_speed;
    nav.asi_hold_kts_mac = veh[0].Vno_kts;
    nav.mode_alt_ = otto_alt_hold;
    nav.mode_hdng = otto_hdng_hold;
    const float terrain_ft = ai_terrain_ahead() * con.mtrstoft;
    if (mnw.totl_time > state.time_hdg_change) {
        state.time_hdg_change = mnw.totl_time + flt_rand(30.0f, 120.0f);
        nav.hdg_hold_mag = flt_rand(0.0f, 360.0f);
    }
    if (mnw.totl_time > state.time_alt_change) {
        state.time_alt_change = mnw.totl_time + flt_rand(30.0f, 120.0f);
        nav.alt_hold_ft_use = terrain_ft + flt_rand(floor_ft, ceiling_ft);
    }
    nav.alt_hold_ft_use = fltmax2(nav.alt_hold_ft_use, terrain_ft + floor_ft);

    const float above_ft = static_cast<float>(f.dob_y) * con.mtrstoft - terrain_ft;
    nav.vvi_hold_fpm = 0.25f * f.V_msc * con.ktstomsc * con.msctofpm *
                       interp(3000.0f, 1.0f, 1000.0f, 10.0f, above_ft) * ai_climb_margin();
    mnw.YK_hdng = -0.05f * f.beta - 0.05f * f.R;
    f.handle_rat_req = 0.0f;
    f.gear_handle = 0;
}

bool any_failure() {
    for (const char state : flt[0].fail_stat)
        if (state == fail_active) return true;
    return false;
}

// On its back at rest, broken or out of fuel the flight starts anew.
void ai_restart_if_stranded() {
    flt_struct& f = flt[0];
    if ((f.V_msc < 1.0f && fabsf(f.phi) > 135.0f) || any_failure())
        return init_flt_0(start_airport, place_runway);
    float fuel = 0.0f;
    for (const float m : f.m_fuel) fuel += m;
    if (veh[0].num_tanks > 0 && veh[0].m_fuel_tot > 0.0f && !(fuel > 0.0f)) {
        for (int tank = 0; tank < veh[0].num_tanks; ++tank)
            f.m_fuel[tank] = 0.5f * veh[0].m_fuel_tot * veh[0].tank_rat[tank];
        init_flt_0(start_airport, place_runway);
    }
}

void ai_flies_us() {
    flt_struct& f = flt[0];
    if (f.y_agl_mtr < ai_takeoff_height)
        ai_take_off();
    else
        ai_cruise();
    nav.alt_hold_ft_dial = nav.alt_hold_ft_use;
    f.disp_rat = 0.75f;
    for (int en = 0; en < veh[0].num_engines; ++en)
        if (veh[0].engn[en].prop_type == prop_collective)
            set_ptch(en, 0.5f * (veh[0].engn[en].min_pitch + veh[0].engn[en].max_pitch));
    ai_restart_if_stranded();
}

// -- the pilot's axes

// An axis as use n gives it, and whether it has moved this frame; some are redirected below.
struct lever {
    int assigned;
    float axis;
};
lever lever_of(int use) { return {mnw.assigned[use], mnw.axis[use]}; }

void take(int use, float& to) {
    if (mnw.assigned[use]) to = mnw.axis[use];
}
void take_both_signs(int use, float& to) {
    if (mnw.assigned[use]) to = 2.0f * mnw.axis[use] - 1.0f;
}

// The autothrottle holds the throttle while it works.
bool autothrottle_on() {
    return nav.mode_thro == otto_thro_speed && nav.mode_fdir > 0 && ac_working() &&
           flt[0].fail_stat[fail_otto] != fail_active;
}

void read_stick() {
    if (mnw.assigned[axis_ptch] && !net.getting_ptch && !net.getting_rawjoy)
        mnw.YK_ptch = mnw.axis[axis_ptch];
    if (mnw.assigned[axis_roll] && !net.getting_roll && !net.getting_rawjoy)
        mnw.YK_roll = mnw.axis[axis_roll];
    if (mnw.assigned[axis_hdng] && !net.getting_hdng && !net.getting_rawjoy)
        mnw.YK_hdng = mnw.axis[axis_hdng];
}

void read_handles() {
    flt_struct& f = flt[0];
    take(axis_l_brake, stg.l_brake_add);
    take(axis_r_brake, stg.r_brake_add);
    for (flt_engn_struct& e : f.engn) {
        take(axis_mixt, e.mixt);
        take(axis_heat, e.heat);
    }
    take(axis_vect, f.vect_rqst);
    take(axis_swdi, f.swdi_rqst);
    take(axis_disp, f.disp_rat);
    take_both_signs(axis_elev_trim, f.elev_trim);
    take_both_signs(axis_ailn_trim, f.ailn_trim);
    take_both_signs(axis_rudd_trim, f.rudd_trim);
}

float throt_max(int en) {
    constexpr int prop_mode_reverse = 3;
    return flt[0].engn[en].prop_mode == prop_mode_reverse ? veh[0].throt_max_REV : veh[0].throt_max_FWD;
}

float prop_speed(float ratio) {
    return interp(0.0f, veh[0].RSC_mingreen_PROP, 1.0f, veh[0].RSC_redline_PROP, ratio);
}

void read_levers_per_engine() {
    constexpr int engines_with_axes = 4;
    for (int en = 0; en < engines_with_axes; ++en) {
        if (mnw.assigned[axis_thro_1 + en]) set_thro(en, mnw.axis[axis_thro_1 + en] * throt_max(en));
        if (mnw.assigned[axis_prop_1 + en]) flt[0].engn[en].prop_rsc = prop_speed(mnw.axis[axis_prop_1 + en]);
        take(axis_mixt_1 + en, flt[0].engn[en].mixt);
    }
}

bool stick_has_use(int use) {
    for (const int u : mnw.joy_AXIS_use)
        if (u == use) return true;
    return false;
}

bool has_collective_range() {
    for (int en = 0; en < veh[0].num_thrustpoints; ++en) {
        const veh_engn_struct& e = veh[0].engn[en];
        if (e.prop_type == prop_collective && e.max_pitch > e.min_pitch) return true;
    }
    return false;
}

// No engines, or a rocket aircraft without fuel capacity: the throttle would do nothing.
bool flies_unpowered() {
    const veh_struct& v = veh[0];
    const bool dead_rocket = v.num_engines > 0 && en_is_roc(0, 0) && v.m_fuel_tot < 0.01f && v.sbrk_EQ;
    return v.num_engines == 0 || dead_rocket;
}

// Throttle, collective, propeller and speed brake: the levers that stand in for each other.
void read_power_levers() {
    lever thro = lever_of(axis_thro), coll = lever_of(axis_coll), prop = lever_of(axis_prop);
    lever sbrk = lever_of(axis_sbrk);
    if (autothrottle_on()) thro.assigned = 0;
    if (veh[0].auto_rpm_EQ && thro.assigned) {
        const float handle = thro.axis;
        prop.assigned = 1;
        auto_set_thro_prop(handle, &thro.axis, &prop.axis);
    }
    // Decided: where no axis is the collective, the throttle axis is, for every aircraft with a rotor that
    // has one (collective_EQ); its throttles then stay with keys and panel.
    if (!stick_has_use(axis_coll) && veh[0].collective_EQ && has_collective_range()) {
        coll = thro;
        thro.assigned = 0;
    }
    if (!stick_has_use(axis_sbrk) && flies_unpowered()) {
        sbrk = thro;
        thro.assigned = 0;
    }

    if (thro.assigned)
        for (int en = 0; en < veh[0].num_engines; ++en)
            if (!fadec_is_running(0, en)) set_thro(en, thro.axis * throt_max(en));
    for (int en = 0; en < veh[0].num_thrustpoints; ++en) {
        const veh_engn_struct& e = veh[0].engn[en];
        if (coll.assigned && e.prop_type == prop_collective)
            set_ptch(en, extrap(0.0f, e.max_pitch, 1.0f, e.min_pitch, coll.axis));
        if (prop.assigned && e.prop_type == prop_constant) flt[0].engn[en].prop_rsc = prop_speed(prop.axis);
    }
    if (sbrk.assigned) flt[0].sbrk_rqst = 1.0f - sbrk.axis;
}

void pilot_flies() {
    read_stick();
    read_handles();
    read_power_levers();
    read_levers_per_engine();
}
}  // namespace

void update_with_fullsim1(int p) {
    if (p != 0) {
        MACIBM_fatal("I cannot do an update_with_fullsim1 with p!=0!");
        return;
    }
    if (msc.ai_flys)
        ai_flies_us();
    else
        pilot_flies();
    mnw.YK_ptch = fltlim(mnw.YK_ptch, -1.0f, 1.0f);
    mnw.YK_roll = fltlim(mnw.YK_roll, -1.0f, 1.0f);
    mnw.YK_hdng = fltlim(mnw.YK_hdng, -1.0f, 1.0f);
    update_autopilot(p);
}
