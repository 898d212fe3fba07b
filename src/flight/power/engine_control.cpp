// What runs by itself: engine computers, governors, feathering and reverse, afterburners.
#include "flight/power/engine_control.h"

#include "aircraft/design/check.h"
#include "aircraft/design/exists.h"
#include "core/craft/engn_kinds.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "flight/power/levers.h"

namespace {
bool governed(int en) {
    const int t = veh[0].engn[en].prop_type;
    return t == prop_constant || t == prop_tip_mach || t == prop_governed_rotor;
}

// -- each engine
void leave_reverse_with_lever(int en) {
    flt_engn_struct& e = flt[0].engn[en];
    if (veh[0].engn[en].prop_type != prop_constant || e.prop_mode != mode_reverse) return;
    if (!(e.prop_rsc < 0.75f * veh[0].RSC_redline_PROP)) return;
    e.prop_mode = mode_normal;
    e.thro_ref = 0.0f;
}

// As given: from .99 of the throttle and 95 percent of N1.
bool burner_lights(int en) {
    const flt_engn_struct& e = flt[0].engn[en];
    const bool feeds_fan = flt[0].vect_rat > 0.01f && veh[0].lift_fan_rat > 0.01f;
    return en_is_jet(0, en) && veh[0].burner_inc > 1.0f && e.burning_fuel && e.thro_use > 0.99f &&
           e.N1 > 95.0f && e.prop_mode != mode_reverse && nav.mode_thro != otto_thro_speed && !feeds_fan;
}

void control_engine(int en) {
    flt_engn_struct& e = flt[0].engn[en];
    if (part_failed(0, fail_reverse + en)) e.prop_mode = mode_reverse;
    leave_reverse_with_lever(en);
    // the mixture lever is also the condition lever
    if (!veh[0].has_idlespeed && en_is_turbo(0, en)) stg.idle_speed[en] = e.mixt > 0.25f;
    e.burner_on = burner_lights(en);
}

// -- engine computers hold the rotor's speed and share the load; the gains, per rad/s and rad/s2, are as given
void run_computers() {
    float sum = 0.0f;
    int count = 0;
    const auto computed = [](int en) {
        return eng_has_fadec(0, en) && fadec_is_running(0, en) && flt[0].engn[en].burning_fuel;
    };
    for (int en = 0; en < veh[0].num_engines; ++en) {
        if (!computed(en)) continue;
        sum += flt[0].engn[en].thro_ref;
        ++count;
    }
    for (int en = 0; en < veh[0].num_engines && count > 0; ++en) {
        if (!computed(en)) continue;
        flt_engn_struct& e = flt[0].engn[en];
        const bool tip = en_is_tip(0, en);
        const float error =
            tip ? veh[0].RSC_redline_PROP - e.tacrad_PROP : veh[0].RSC_redline_ENGN - e.tacrad_ENGN;
        const float rate = tip ? e.omegadot_PROP : e.omegadot_ENGN;
        e.thro_ref =
            fltlim(e.thro_ref + (0.1f * error - 0.2f * rate) * mnw.prd_FM, 0.0f, veh[0].throt_max_FWD);
        e.thro_ref = closer_assymp(e.thro_ref, sum / count, mnw.prd_FM);
    }
}

// -- blade pitch
// Propeller speed for the design tip Mach of this power, the forward speed taken into account.
void schedule_tip_mach(int en) {
    const veh_struct& v = veh[0];
    flt_engn_struct& e = flt[0].engn[en];
    const float tip = interp(v.power_max, v.tip_mach_des_100, 0.5f * v.power_max, v.tip_mach_des_50, e.power);
    const float rotation = sqrtf(fltmax2(sqr(con.lcl_a * tip) - sqr(flt[0].AV_msc), 0.0f));
    const float wanted = fltlim(rotation / fltmax2(v.wing[en].semilen_SEG, divisor_min),
                                1.05f * v.RSC_mingreen_PROP, v.RSC_redline_PROP);
    e.prop_rsc = closer_assymp(e.prop_rsc, wanted, 0.1f * mnw.prd_FM);
}

bool wants_feather(int en) {
    const veh_struct& v = veh[0];
    const flt_engn_struct& e = flt[0].engn[en];
    const bool lever_low =
        fabsf(e.prop_rsc - v.RSC_mingreen_PROP) / fltmax2(v.RSC_maxgreen_PROP, divisor_min) < 0.025f;
    if (v.feather_with_prop_EQ && lever_low) return true;
    return en < v.num_engines && !e.burning_fuel && v.auto_feather_EQ && stg.feather_mode == 1 &&
           !part_failed(0, fail_feather) && mnw.totl_time > stg.start_time[en];
}

void set_prop_mode(int en) {
    flt_engn_struct& e = flt[0].engn[en];
    const float turning = 120.0f * con.rpmtorsc;
    if (wants_feather(en))
        e.prop_mode = mode_feather;
    else if (e.prop_mode == mode_feather && e.tacrad_PROP > turning)
        e.prop_mode = mode_normal;
    if (e.prop_mode == mode_beta && e.thro_ref > 0.0f) e.prop_mode = mode_normal;
}

float governor_target(int en) {
    const bool follows = stg.prop_sync_on && en > 0;
    const float target = follows ? flt[0].engn[0].tacrad_PROP : flt[0].engn[en].prop_rsc;
    return mnw.totl_time < flt[0].prop_ospeed_test_timeout ? 0.875f * target : target;
}

// Degrees of pitch. As given: a governor that leads by 1.5 or 2 s and turns 100 degrees a second for an error of
// redline, 30 at most.
void govern(int en, float mean_pitch) {
    const veh_struct& v = veh[0];
    flt_engn_struct& e = flt[0].engn[en];
    set_prop_mode(en);
    switch (e.prop_mode) {
        case mode_feather:
            set_ptch(en, v.feathered_pitch);
            break;
        case mode_beta:
            set_ptch(en, 0.0f);
            break;
        case mode_reverse:
            set_ptch(en, v.reversed_pitch * e.thro_ref / fltmax2(v.throt_max_REV, divisor_min));
            break;
        default: {
            const float lead = en_is_turbo(0, en) ? 2.0f : 1.5f;  // s
            const float error = e.tacrad_PROP + e.omegadot_PROP * lead - governor_target(en);
            const float rate =
                fltlim(100.0f * error / fltmax2(v.RSC_redline_PROP, divisor_min), -30.0f, 30.0f);
            set_ptch(en, e.pitch_deg_ref + rate * mnw.prd_FM);
        }
    }
    if (v.linked_prop_EQ) e.pitch_deg_ref = closer_assymp(e.pitch_deg_ref, mean_pitch, 0.1f * mnw.prd_FM);
}

void set_blade_pitch(int en, float mean_pitch) {
    const veh_struct& v = veh[0];
    flt_engn_struct& e = flt[0].engn[en];
    const int type = v.engn[en].prop_type;
    if (type == prop_tip_mach && e.prop_mode != mode_reverse) schedule_tip_mach(en);
    if (v.auto_rpm_with_tvec)
        e.prop_rsc = interp(0.0f, v.RSC_mingreen_PROP, 1.0f, v.RSC_redline_PROP, flt[0].vect_rat);
    if (type == prop_fixed) {
        e.prop_mode = mode_normal;
        set_ptch(en, 0.0f);
    } else if (type == prop_manual) {
        e.prop_mode = mode_normal;
        const veh_engn_struct& kind = v.engn[en];
        set_ptch(en,
                 extrap(v.RSC_redline_PROP, kind.min_pitch, v.RSC_mingreen_PROP, kind.max_pitch, e.prop_rsc));
    } else if (governed(en)) {
        govern(en, mean_pitch);
    }
}

void set_all_pitches() {
    float sum = 0.0f;
    int count = 0;
    for (int en = 0; en < veh[0].num_thrustpoints; ++en) {
        if (!has_this_thru(0, en, thru_disc)) continue;
        sum += flt[0].engn[en].pitch_deg_ref;
        ++count;
    }
    if (!count) return;
    for (int en = 0; en < veh[0].num_thrustpoints; ++en)
        if (has_this_thru(0, en, thru_disc)) set_blade_pitch(en, sum / count);
}
}  // namespace

void control_engines() {
    for (int en = 0; en < veh[0].num_engines; ++en) control_engine(en);
    run_computers();
    if (!net.getting_prop) set_all_pitches();
    if (part_failed(0, fail_throttle))
        for (flt_engn_struct& e : flt[0].engn) e.thro_ref = 0.0f;
}

void cold_engines() {
    const float ambient_fah = con.lcl_T_cel * 1.8f + 32.0f;
    for (int en = 0; en < engnDIM; ++en) {
        flt_engn_struct& e = flt[0].engn[en];
        for (float* at_rest : {&e.thro_ref, &e.thro_use, &e.mixt, &e.burning_rat, &e.N1, &e.N2, &e.TRQ_nm, &e.FF_kgs,
                               &e.power, &e.FUELP, &e.OILP, &e.omegadot_ENGN, &e.tacrad_ENGN, &e.omegadot_PROP,
                               &e.tacrad_PROP, &e.drag_TRQ, &e.thrust, &e.DVinc, &e.cyclic_elev_disc_tilt,
                               &e.cyclic_ailn_disc_tilt, &e.Q_rotor_rad, &e.R_rotor_rad})
            *at_rest = 0.0f;
        for (float& ring : e.RING_DVinc) ring = 0.0f;
        e.burning_fuel = e.ignition = stg.igniter[en] = 0;
        e.ITT = con.lcl_T_cel;
        e.EGT = e.CHT = e.OILT = ambient_fah;
        stg.start_time[en] = 0.0f;
    }
}
