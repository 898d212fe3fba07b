// From engine torque to disc speeds: clutches, linked shafts, fans, pre-rotation, and the reaction on the
// airframe.
#include "flight/power/shafts.h"

#include "aircraft/design/check.h"
#include "aircraft/design/exists.h"
#include "core/craft/engn_kinds.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "flight/force/trace.h"
#include "flight/power/disc.h"

namespace {
constexpr float least_engine_inertia = 1e-6f;  // kg m2

float gear_of(int en) { return prop_gear_of(veh[0].engn[en]); }
// Decided: a disc that the file left without mass has a floor of inertia, what the shaft's steps need to stay
// stable: of the order of the engine's torque over the disc's speed.
float inertia_of(int en) {
    const float mi = veh[0].engn[en].mi_prop_rpm;
    if (mi >= disc_divisor_min) return mi;
    constexpr float steady_step = 0.1f;  // s, some steps of the longest frame
    const float full_speed = fltmax2(veh[0].RSC_redline_ENGN, 1.0f) / gear_of(en);
    return fltmax2(disc_divisor_min, steady_step * veh[0].trq_max_eng * gear_of(en) / full_speed);
}
bool has_disc(int en) { return has_this_thru(0, en, thru_disc); }
bool on_jet_power(int en) { return is_lift_fan(0, en) || is_gyr_rotor(0, en); }

// Fans and pre-rotated rotors run on the power that jets give off, shared evenly within each kind.
void drive_by_jets() {
    const veh_struct& v = veh[0];
    int fans = 0, rotors = 0;
    for (int en = 0; en < v.num_thrustpoints; ++en) {
        if (!has_disc(en)) continue;
        if (is_lift_fan(0, en))
            ++fans;
        else if (is_gyr_rotor(0, en))
            ++rotors;
    }
    constexpr float jet_speed = 340.0f;  // m/s
    const float redline = fltmax2(v.RSC_redline_ENGN, 1.0f);
    const float max_TRQ = v.thrust_max * v.lift_fan_rat * jet_speed / redline * 1.5f;
    for (int en = 0; en < v.num_thrustpoints; ++en) {
        if (!has_disc(en) || !on_jet_power(en)) continue;
        flt_engn_struct& e = flt[0].engn[en];
        e.power =
            is_lift_fan(0, en) ? flt[0].lift_fan_total_power / fans : flt[0].pre_rot_total_power / rotors;
        e.tacrad_ENGN = e.tacrad_PROP;
        e.TRQ_nm = fltlim(e.power / fltmax2(e.tacrad_ENGN, 1.0f), -max_TRQ, max_TRQ);
        e.N1 = 100.0f * e.tacrad_ENGN / redline;
    }
}

// One shaft system, measured at engine speed.
void drive_linked(float* POINT_driv_TRQ) {
    const veh_struct& v = veh[0];
    float system_omega = flt[0].engn[0].tacrad_PROP * gear_of(0);
    float system_mi = 0.01f, system_driv_TRQ = 0.0f, system_drag_TRQ = 0.0f;
    for (int en = 0; en < v.num_engines; ++en)
        if (has_this_engn(0, en, engn_prop)) system_driv_TRQ += get_clutch_TRQ(en, system_omega);
    for (int en = 0; en < v.num_thrustpoints; ++en) {
        if (!has_disc(en) || is_lift_fan(0, en)) continue;
        if (is_gyr_rotor(0, en)) {
            const float rotor_TRQ = get_TRQ_to_gyr_rotor(en, system_omega);
            system_driv_TRQ -= rotor_TRQ;
            POINT_driv_TRQ[en] = gear_of(en) * rotor_TRQ;
        } else {
            system_drag_TRQ += flt[0].engn[en].drag_TRQ / gear_of(en);
            system_mi += inertia_of(en) / sqr(gear_of(en));
        }
    }
    system_omega += mnw.prd_FM * (system_driv_TRQ - system_drag_TRQ) / system_mi;
    for (int en = 0; en < v.num_thrustpoints; ++en) {
        if (!has_disc(en) || on_jet_power(en)) continue;
        flt_engn_struct& e = flt[0].engn[en];
        if (v.engn[en].prop_type == prop_tail_rotor && part_failed(0, fail_tail_drive)) {
            e.tacrad_PROP = POINT_driv_TRQ[en] = 0.0f;
            continue;
        }
        // lands exactly on the shaft's speed in this step
        POINT_driv_TRQ[en] =
            e.drag_TRQ + inertia_of(en) * (system_omega / gear_of(en) - e.tacrad_PROP) / mnw.prd_FM;
    }
}

// Every engine its own disc. Decided: a pre-rotated rotor without an engine is driven by its own torque, the
// one that drive_by_jets makes of the power that is given off for it; no other drives it.
void drive_each(float* POINT_driv_TRQ) {
    for (int en = 0; en < veh[0].num_thrustpoints; ++en) {
        if (!has_disc(en) || is_lift_fan(0, en)) continue;
        if (has_this_engn(0, en, engn_prop))
            POINT_driv_TRQ[en] = get_clutch_TRQ(en, flt[0].engn[en].tacrad_PROP * gear_of(en)) * gear_of(en);
        else if (is_gyr_rotor(0, en) && en >= veh[0].num_engines)
            POINT_driv_TRQ[en] = flt[0].engn[en].TRQ_nm;
    }
}

void turn_disc(int en, float driv_TRQ) {
    flt_engn_struct& e = flt[0].engn[en];
    check_val(driv_TRQ);
    check_val(e.drag_TRQ);
    e.omegadot_PROP = (driv_TRQ - e.drag_TRQ) / inertia_of(en);
    e.tacrad_PROP += e.omegadot_PROP * mnw.prd_FM;
    const float reaction = driv_TRQ * veh[0].engn[en].prop_dir;
    const float vert = e.vert_disc_cyclic, side = e.side_disc_cyclic;
    flt[0].L -= reaction * cos_deg(vert) * cos_deg(side);
    flt[0].N += reaction * sin_deg(vert) * cos_deg(side);
    flt[0].M += reaction * sin_deg(side);
    if (mnw.cyc_out) [[unlikely]]
        trace_values("SHAFT", {{"disc", static_cast<float>(en)},
                               {"torque N m", driv_TRQ},
                               {"drag N m", e.drag_TRQ},
                               {"rad/s", e.tacrad_PROP}});
}

struct torque_limits {
    float lo, hi;
};

// Without a switch a clutch closes by itself once the engine runs. An electric motor pulls from rest and
// needs none.
bool clutch_engaged(int en) {
    const flt_engn_struct& e = flt[0].engn[en];
    const bool automatic = veh[0].engn[en].prop_clutch_EQ && !veh[0].has_clutch_switch;
    if (automatic && en_is_recip(0, en)) return e.tacrad_ENGN > 2.0f * veh[0].RSC_idlespeed_ENGN;
    if (automatic && en_is_turbo(0, en)) return e.N1 > 1.0f;
    return stg.clutch_trq_engag;
}

// What the clutch can pass, N m; as given one and a half times full torque. Linked shafts overrun their
// engines; a piston engine's friction clutch slips in. Decided: the friction clutch sets its limits first and a
// failed clutch passes nothing whatever they are, so that its lever keeps moving while the failure lasts.
torque_limits clutch_limits(int en) {
    const veh_struct& v = veh[0];
    const float most = 1.5f * v.trq_max_eng;
    torque_limits lim{-most, most};
    if (!clutch_engaged(en) && !v.has_pre_rotate) lim = {0.0f, 0.0f};
    if (v.linked_prop_EQ && !v.has_pre_rotate) lim.lo = 0.0f;
    if (v.engn[en].prop_clutch_EQ && v.has_clutch_switch && en_is_recip(0, en)) {
        constexpr float rate = 0.02f;  // per second
        float& rat = stg.clutch_rat[en];
        rat = fltlim(rat + (stg.clutch_trq_engag ? rate : -rate) * mnw.prd_FM, 0.0f, 1.0f);
        lim.hi = rat * most;
        if (!v.linked_prop_EQ) lim.lo = -lim.hi;
    }
    if (part_failed(0, fail_clutch + en)) lim = {0.0f, 0.0f};
    return lim;
}
}  // namespace

float get_clutch_TRQ(int en, float rsc_prop_side) {
    const veh_struct& v = veh[0];
    flt_engn_struct& e = flt[0].engn[en];
    const torque_limits lim = clutch_limits(en);
    // As given: a stiff spring between engine and shaft, ten times full torque at a slip of redline
    const float slip = (e.tacrad_ENGN - rsc_prop_side) / fltmax2(v.RSC_redline_ENGN, 1.0f);
    const float trq_clutch = fltlim(e.TRQ_nm + slip * 10.0f * v.trq_max_eng, lim.lo, lim.hi);
    const float inertia = v.engn[en].mi_engn_rpm * inertia_rat_of(v);
    e.omegadot_ENGN = (e.TRQ_nm - trq_clutch) / fltmax2(inertia, least_engine_inertia);

    const float before = e.tacrad_ENGN;
    e.tacrad_ENGN += e.omegadot_ENGN * mnw.prd_FM;
    if (stg.clutch_rat[en] > 0.99f) {
        const bool passes_up = before <= rsc_prop_side && e.tacrad_ENGN > rsc_prop_side && lim.hi > 0.0f;
        const bool passes_down = before >= rsc_prop_side && e.tacrad_ENGN < rsc_prop_side && lim.lo < 0.0f;
        if (passes_up || passes_down) e.tacrad_ENGN = rsc_prop_side;
    }
    check_val(trq_clutch);
    check_val(e.tacrad_ENGN);
    return trq_clutch - v.trans_loss * v.trq_max_eng * sign(e.tacrad_PROP);
}

// As given: the engine's speed, .85 rad/s and the rotor's are summed to a ratio, held to .5 or 1.5 of full
// torque.
float get_TRQ_to_gyr_rotor(int en, float system_omega) {
    if (!stg.pre_rotating) return 0.0f;
    const float act = flt[0].engn[en].tacrad_PROP;
    const float des = system_omega / gear_of(en);
    const float most = stg.pre_rotate_level ? 1.5f : 0.5f;
    const float ratio = fltlim(des + 0.85f - act, -most, most);
    return ratio * veh[0].trq_max_eng;
}

void do_all_props() {
    float POINT_driv_TRQ[engnDIM] = {};
    drive_by_jets();
    for (int en = 0; en < veh[0].num_engines; ++en)
        if (has_this_engn(0, en, engn_prop))
            flt[0].engn[en].power = flt[0].engn[en].TRQ_nm * flt[0].engn[en].tacrad_ENGN;
    if (veh[0].linked_prop_EQ)
        drive_linked(POINT_driv_TRQ);
    else
        drive_each(POINT_driv_TRQ);
    for (int en = 0; en < veh[0].num_thrustpoints; ++en) {
        if (!has_disc(en)) continue;
        if (is_lift_fan(0, en)) POINT_driv_TRQ[en] = flt[0].engn[en].TRQ_nm;
        turn_disc(en, POINT_driv_TRQ[en]);
    }
    for (int en = 0; en < veh[0].num_thrustpoints; ++en)
        if (has_disc(en)) do_a_prop(en);
}
