// Control mixing, mechanisms with a travel time, gear, doors, vectors, flaps, rotors.
// Deflections in degrees; trailing edge up is positive for ailerons, elevators and spoilers.
#include "aircraft/deflect.h"

#include "aircraft/design/location.h"
#include "aircraft/systems/electrics.h"
#include "core/math/axes.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/alert.h"
#include "core/program/logs.h"
#include "core/records/records.h"

static constexpr float time_min = 0.01f;    // s; floor of travel times
static constexpr float trim_min = 0.001f;   // floor of trim ranges
static constexpr float off_centre = 0.01f;  // m; nearer to the axis an engine has no side
static_assert(sizeof flt[0].wing / sizeof flt[0].wing[0] == wingDIM, "too many wings!");

// Moves towards a target by a step, no further than it.
static float towards(float now, float target, float step) {
    return now < target ? fltmin2(now + step, target) : fltmax2(now - step, target);
}

// A disc that a vector of 90 degrees hides must still swing back, so hiding does not count here.
static int is_thrust_point(int p, int en) {
    return en < veh[p].num_thrustpoints && !part_failed(p, fail_eng_sep + en);
}

// Mechanisms of the user's aircraft need its buses; the buses of the others are not modelled.
static int has_power(int p) { return p != 0 || esys_working(); }

// -- gear
static void move_gear(int p) {
    if (!veh[p].gear_retract) return;
    for (int g = 0; g < gearDIM; ++g) {
        if (!has_this_gear(p, g) || part_failed(p, fail_gear + g)) continue;
        veh_gear_struct& gear = veh[p].gear[g];
        // a new speed each second for each leg, so that legs never move as one
        const int seed = intmax2(intcut(g + mnw.totl_time), 0);
        const float step = mnw.prd_FM / fltmax2(gear.cyc_time, time_min) * flt_seedrand(0.5f, 1.5f, seed);
        gear.dep_rat = fltlim(gear.dep_rat + (flt[p].gear_handle ? step : -step), 0.0f, 1.0f);
    }
}

static void place_gear(int p) {
    for (int g = 0; g < gearDIM; ++g) {
        if (!has_this_gear(p, g)) continue;
        veh_gear_struct& gear = veh[p].gear[g];
        gear.latN = extrap(0.0f, gear.latR, 1.0f, gear.latE, gear.dep_rat);
        gear.lonN = extrap(0.0f, gear.lonR, 1.0f, gear.lonE, gear.dep_rat);
        gear.axiN = extrap(0.0f, gear.axiR, 1.0f, gear.axiE, gear.dep_rat);
        gear.x_nodef = ret_gear_x_nodef(p, g);
        gear.y_nodef = ret_gear_y_nodef(p, g);
        gear.z_nodef = ret_gear_z_nodef(p, g);
        const float dx = gear.x_nodef - gear.gear_x;
        const float dy = gear.y_nodef - gear.gear_y;
        const float dz = gear.z_nodef - gear.gear_z;
        flt[p].gear[g].gear_psi = atan2_deg(dx, -dz);
        flt[p].gear[g].gear_the = atan2_deg(dy, pythag(dx, -dz));
        flt[p].gear[g].gear_phi = 0.0f;
    }
}

static int nearest_gear(int p, const float* xyz) {
    int nearest = 0;
    float least = 9.9e9f;
    for (int g = 0; g < gearDIM; ++g) {
        if (!has_this_gear(p, g)) continue;
        const float distance = pythag(veh[p].gear[g].gear_x - xyz[0], veh[p].gear[g].gear_z - xyz[2]);
        if (distance < least) {
            least = distance;
            nearest = g;
        }
    }
    return nearest;
}

static void move_doors(int p) {
    for (veh_door_struct& door : veh[p].door) {
        if (door.type == door_none) continue;
        const float d = veh[p].gear[nearest_gear(p, door.xyz)].dep_rat;
        switch (door.type) {
            case door_early:
                door.ang_now = interp(0.0f, door.ret_ang, 0.2f, door.ext_ang, d);
                break;
            case door_with_gear:
                door.ang_now = interp(0.0f, door.ret_ang, 1.0f, door.ext_ang, d);
                break;
            case door_passage:
                door.ang_now = d < 0.5f ? interp(0.0f, door.ret_ang, 0.1f, door.ext_ang, d)
                                        : interp(1.0f, door.ret_ang, 0.9f, door.ext_ang, d);
                break;
        }
    }
}

static void move_speedbrakes(int p) {
    for (veh_door_struct& sbrk : veh[p].sbrk)
        if (sbrk.type != door_none)
            sbrk.ang_now = interp(0.0f, sbrk.ret_ang, 1.0f, sbrk.ext_ang, flt[p].sbrk_rat);
}

// -- thrust vectors and throttles
static float nacelle_vector(int p) {
    return interp(0.0f, veh[p].vect_min_nace, 1.0f, veh[p].vect_max_nace, flt[p].vect_rat);
}

// The hub swings with the nacelle round the pivot that the arms describe.
static void place_hub(int p, int en) {
    const veh_part_struct& part = veh[p].part[en];
    flt_engn_struct& engn = flt[p].engn[en];
    const float s = sin_deg(engn.vert_nace_vector), c = cos_deg(engn.vert_nace_vector);
    const float armY = veh[p].vectarmY, armZ = veh[p].vectarmZ;
    engn.XYZ[0] = part.part_x;
    engn.XYZ[1] = part.part_y - s * armZ + c * armY;
    engn.XYZ[2] = part.part_z + c * armZ + s * armY;
}

// Tilt that the controls give a disc, by where its hub is and how far it is vectored.
static void phase_controls(int p, int en, float& tilt, float& side_tilt) {
    const veh_struct& acf = veh[p];
    const flt_struct& now = flt[p];
    const flt_engn_struct& engn = now.engn[en];
    const float s = sin_deg(engn.vert_disc_vector), c = cos_deg(engn.vert_disc_vector);
    const float x = sign(engn.XYZ[0]), y = sign(engn.XYZ[1]), z = sign(engn.XYZ[2]);
    if (acf.phase_ptch_tvect_in_at_00) tilt -= z * acf.tvec_ptch * now.FC_ptch * c;
    if (acf.phase_roll_tvect_in_at_00) tilt -= x * acf.tvec_roll * now.FC_roll * c;
    if (acf.phase_hdng_tvect_in_at_00) side_tilt -= z * acf.tvec_hdng * now.FC_hdng * c;
    if (acf.phase_ptch_tvect_in_at_90) tilt += y * acf.tvec_ptch * now.FC_ptch * s;
    if (acf.phase_roll_tvect_in_at_90) side_tilt += y * acf.tvec_roll * now.FC_roll * s;
    if (acf.phase_hdng_tvect_in_at_90) tilt += x * acf.tvec_hdng * now.FC_hdng * s;
}

static void point_thrust(int p) {
    const float nacelle = nacelle_vector(p);
    const float disc = interp(0.0f, veh[p].vect_min_disc, 1.0f, veh[p].vect_max_disc, flt[p].vect_rat);
    for (int en = 0; en < engnDIM; ++en) {
        if (!is_thrust_point(p, en)) continue;
        const veh_engn_struct& engn = veh[p].engn[en];
        flt_engn_struct& now = flt[p].engn[en];
        const int vectors = veh[p].wing[en].inc_vect[0];
        now.vert_nace_vector = engn.vert_init + (vectors ? nacelle : 0.0f);
        now.vert_disc_vector = engn.vert_init + (vectors ? disc : 0.0f);
        place_hub(p, en);
        float tilt = 0.0f, side_tilt = 0.0f;
        if (engn.prop_type != prop_lift_fan) phase_controls(p, en, tilt, side_tilt);
        now.vert_disc_cyclic = now.vert_disc_vector + tilt + now.cyclic_elev_disc_tilt;
        now.side_disc_cyclic = engn.side_init + side_tilt + now.cyclic_ailn_disc_tilt;
    }
}

static void move_throttles(int p) {
    if (net.getting_thro) return;
    const veh_struct& acf = veh[p];
    const flt_struct& now = flt[p];
    for (int en = 0; en < acf.num_engines; ++en) {
        const veh_part_struct& part = acf.part[en];
        flt_engn_struct& engn = flt[p].engn[en];
        const float s = sin_deg(engn.vert_disc_vector), c = cos_deg(engn.vert_disc_vector);
        float mix = 0.0f;
        if (flt_abs(part.part_z) > off_centre)
            mix -= sign(part.part_z) * acf.diff_thro_ptch * now.FC_ptch * s;
        if (flt_abs(part.part_x) > off_centre) {
            mix -= sign(part.part_x) * acf.diff_thro_roll * now.FC_roll * s;
            mix -= sign(part.part_x) * acf.diff_thro_hdng * now.FC_hdng * c;
        }
        // spools up at its rate and falls at once
        const float throt_time = en_is_jet(p, en) ? acf.throt_time_jet : acf.throt_time_prop;
        engn.thro_use = fltmin2(fltlim(engn.thro_ref + mix, 0.0f, acf.throt_max_FWD),
                                engn.thro_use + mnw.prd_FM / fltmax2(throt_time, time_min));
    }
}

static void move_burners(int p) {
    constexpr float rate = 0.5f;  // full travels per second
    for (int en = 0; en < veh[p].num_engines; ++en) {
        flt_engn_struct& engn = flt[p].engn[en];
        engn.burner_rat = towards(engn.burner_rat, engn.burner_on ? 1.0f : 0.0f, mnw.prd_FM * rate);
    }
}

// -- surfaces: variable geometry and incidence
static void move_surface_geometry(int p) {
    const float swdi_rat = flt[p].swdi_rat;
    for (int en = part_wing_first; en < wingDIM; ++en) {
        if (!has_this_wing(p, en)) continue;
        veh_wing_struct& wing = veh[p].wing[en];
        wing.sweepnow = wing.sweep1;
        wing.dihednow = wing.dihed1;
        wing.incnow = 0.0f;
        if (wing.varsweep) wing.sweepnow += swdi_rat * fltwrap(wing.sweep2 - wing.sweep1, -180.0f, 180.0f);
        if (wing.vardihed) wing.dihednow += swdi_rat * fltwrap(wing.dihed2 - wing.dihed1, -180.0f, 180.0f);
        if (wing.varinc) wing.incnow = wing.inc2 * swdi_rat;
        if (en <= part_main_last) wing.dihednow -= wing.lat_sign * veh[p].wing_tilt_roll * flt[p].FC_roll;
        flt[p].wing[en].foil_swe_inc = wing.sweepnow - wing.sweep1;
        flt[p].wing[en].foil_dih_inc = wing.dihednow - wing.dihed1;
    }
}

// All-moving surface at this trim: one ahead of the reference point goes the other way.
static float trim_incidence(int p, int en) {
    const veh_struct& acf = veh[p];
    const veh_wing_struct& wing = acf.wing[en];
    const bool ahead = acf.part[en].part_z + (0.25f + 0.25f * wing.delta_fac) * wing.Croot < 0.0f;
    const float trim = flt[p].elev_trim;
    if (trim < 0.0f)
        return trim / fltmax2(acf.min_trim_elev, trim_min) * (ahead ? acf.hstb_trim_up : -acf.hstb_trim_dn);
    if (trim > 0.0f)
        return trim / fltmax2(acf.max_trim_elev, trim_min) * (ahead ? acf.hstb_trim_dn : -acf.hstb_trim_up);
    return 0.0f;
}

// Elements that a control turns as a whole, against its deflection.
struct linked_control {
    int (veh_wing_struct::*flags)[elDIM];
    float flt_wing_struct::*def;
    const char* name;
};
static constexpr linked_control linked_controls[] = {
    {&veh_wing_struct::inc_ail1, &flt_wing_struct::ail1_def, "aileron-1"},
    {&veh_wing_struct::inc_ail2, &flt_wing_struct::ail2_def, "aileron-2"},
    {&veh_wing_struct::inc_elev, &flt_wing_struct::elev_def, "elevator"},
    {&veh_wing_struct::inc_rud1, &flt_wing_struct::rud1_def, "rudder-1"},
    {&veh_wing_struct::inc_rud2, &flt_wing_struct::rud2_def, "rudder-2"},
};

static void add_incidence(int p, int en, int el, float amount, const char* cause) {
    flt[p].wing[en].elem_inc_inc[el] += amount;
    if (p == 0 && mnw.cyc_out)
        cyc << "surface " << en << " element " << el << " incidence: " << amount << " deg thanks to " << cause
            << ".\n";
}

static void turn_elements(int p) {
    const veh_struct& acf = veh[p];
    const float nacelle = nacelle_vector(p);
    const float speed_rat = fltlim(flt[p].v_ind_kts / fltmax2(acf.Vne_kts, 0.01f), 0.0f, 1.0f);
    for (int en = part_wing_first; en <= part_wing_last; ++en) {
        if (!has_this_wing(p, en)) continue;
        const veh_wing_struct& wing = acf.wing[en];
        flt_wing_struct& now = flt[p].wing[en];
        for (float& inc : now.elem_inc_inc) inc = 0.0f;
        flt[p].stab_def = trim_incidence(p, en);
        const bool is_hstb = en == part_hstb_left || en == part_hstb_right;
        for (int el = 0; el < wing.els; ++el) {
            if (acf.wing_tilt_ptch != 0.0f)
                add_incidence(p, en, el, acf.wing_tilt_ptch * flt[p].FC_ptch, "wing tilt");
            for (const linked_control& link : linked_controls)
                if ((wing.*link.flags)[el]) add_incidence(p, en, el, -(now.*link.def), link.name);
            if (wing.inc_vect[el]) add_incidence(p, en, el, nacelle, "thrust vector");
            if (wing.inc_trim[el]) add_incidence(p, en, el, flt[p].stab_def, "stabiliser trim");
            if (wing.varinc) add_incidence(p, en, el, wing.incnow, "variable incidence");
            if (is_hstb && acf.stab_delinc_to_Vne != 0.0f)
                add_incidence(p, en, el, acf.stab_delinc_to_Vne * speed_rat, "speed");
        }
    }
}

// -- mechanisms that need power
static void move_powered(int p) {
    if (!has_power(p)) return;
    constexpr float settled = 0.0001f;
    constexpr float swdi_rate = 0.1f;  // full travels per second
    const veh_struct& acf = veh[p];
    flt_struct& now = flt[p];
    const bool has_swdi = acf.varsweep_EQ || acf.vardihed_EQ || acf.varinc_EQ;
    if (has_swdi && flt_abs(now.swdi_rqst - now.swdi_rat) > settled)
        now.swdi_rat = towards(now.swdi_rat, now.swdi_rqst, mnw.prd_FM * swdi_rate);
    if (acf.vect_EQ && flt_abs(now.vect_rqst - now.vect_rat) > settled)
        now.vect_rat = towards(now.vect_rat, now.vect_rqst, mnw.prd_FM * acf.vect_rate);
    // the armed position asks for less than nothing and so holds the brake in
    now.sbrk_rat = fltlim(closer_assymp(now.sbrk_rat, now.sbrk_rqst, 3.0f * mnw.prd_FM), 0.0f, 1.0f);
    update_flap_slat_rqst_with_hand(p, 0);
}

static bool near_stall(int p) {
    for (int en = part_wing_first; en <= part_wing_last; ++en) {
        if (!has_this_wing(p, en) || !(flt_abs(veh[p].wing[en].dihednow) < 45.0f)) continue;
        if (flt[p].wing[en].alpha_el[0][0] > veh[p].wing[en].alpha_max - 5.0f) return true;
    }
    return false;
}

// Slats and flaps between the detents either side of the handle; the tables may run unevenly.
static void set_flaps_by_handle(int p) {
    const veh_struct& acf = veh[p];
    flt_struct& now = flt[p];
    const int last = acf.flap_detents;
    const float detent = now.handle_rat_act * last;
    const int det1 = intlim(intcut(detent), 0, last);
    const int det2 = intlim(det1 + 1, 0, last);
    const float rat2 = interp(det1, 0.0f, det2, 1.0f, detent);
    const float rat1 = 1.0f - rat2;
    const auto ratio = [&](const float* dn) {
        return (dn[det1] * rat1 + dn[det2] * rat2) / fltmax2(dn[last], 0.01f);
    };
    if (!part_failed(p, fail_slat)) now.slat_rat = ratio(acf.slat_dn);
    now.fla1_rat = ratio(acf.fla1_dn);
    now.fla2_rat = ratio(acf.fla2_dn);
}

void update_flap_slat_rqst_with_hand(int p, int dir) {
    const veh_struct& acf = veh[p];
    flt_struct& now = flt[p];
    if (acf.flap_detents >= flapDIM) {
        MACIBM_fatal("too many flap defs!");
        return;
    }
    if (acf.flap_detents <= 0) {  // no flap travel
        now.handle_rat_req = now.handle_rat_act = now.slat_rat = now.fla1_rat = now.fla2_rat = 0.0f;
    } else {
        const int detent = intlim(intround(acf.flap_detents * now.handle_rat_req) + dir, 0, acf.flap_detents);
        now.handle_rat_req = fltlim(static_cast<float>(detent) / acf.flap_detents, 0.0f, 1.0f);
        if (dir == 0)
            now.handle_rat_act = towards(now.handle_rat_act, now.handle_rat_req,
                                         mnw.prd_FM / fltmax2(acf.flap_deftime, time_min));
        set_flaps_by_handle(p);
    }
    if (acf.slat_EQ && !part_failed(p, fail_slat) && acf.slat_with_stall_EQ &&
        now.v_ind_kts > 0.25f * acf.Vs_kts && near_stall(p))
        now.slat_rat = 1.0f;
    check_val(now.slat_rat);
    check_val(now.fla1_rat);
    check_val(now.fla2_rat);
}

// -- deflections. to_side is the roll command towards the surface's own side: above 0 it goes up.
struct aileron_struct {
    float up, dn, pitch, flaps, vmax;
};
static float aileron_def(const flt_struct& now, const aileron_struct& ail, float to_side) {
    if (now.v_ind_kts > ail.vmax) return 0.0f;  // locked
    const float low = -fltmax2(ail.dn, ail.flaps) - flt_abs(ail.pitch);
    const float high = fltmax2(ail.up, ail.flaps) + flt_abs(ail.pitch);
    const float roll = to_side * (to_side > 0.0f ? ail.up : ail.dn);
    return fltlim(roll + now.FC_ptch * ail.pitch - now.handle_rat_act * ail.flaps, low, high);
}

// Flat until the stick passes the engagement point, full at full stick.
static float spoiler_def(const flt_struct& now, float up, float roll_to_eng, float vmax, float to_side) {
    if (now.v_ind_kts > vmax || roll_to_eng >= 1.0f) return 0.0f;
    return fltmax2((to_side - roll_to_eng) / (1.0f - roll_to_eng) * up, 0.0f);
}

static float flap_def(const float* dn, int last, float rat, float mix) {
    const float def = extrap(0.0f, dn[0], 1.0f, dn[last], rat) + mix;
    return fltlim(def, fltmin2(dn[0], dn[last]), fltmax2(dn[0], dn[last]));
}

static void deflect_roll_surfaces(int p, int en) {
    const veh_struct& acf = veh[p];
    const flt_struct& now = flt[p];
    flt_wing_struct& wing = flt[p].wing[en];
    const bool left = acf.wing[en].lat_sign < 0.0f;
    const float to_side = left ? -now.FC_roll : now.FC_roll;
    wing.ail1_def =
        aileron_def(now, {acf.ail1_up, acf.ail1_dn, acf.ail1_pitch, acf.ail1_flaps, acf.ail1_vmax}, to_side);
    wing.ail2_def =
        aileron_def(now, {acf.ail2_up, acf.ail2_dn, acf.ail2_pitch, acf.ail2_flaps, acf.ail2_vmax}, to_side);
    wing.spo1_def = spoiler_def(now, acf.spo1_up, acf.roll_to_eng_spo1, acf.spo1_vmax, to_side);
    wing.spo2_def = spoiler_def(now, acf.spo2_up, acf.roll_to_eng_spo2, acf.spo2_vmax, to_side);
    wing.yawb_def = fltmax2((left ? -now.FC_hdng : now.FC_hdng) * acf.yawb_ud, 0.0f);
}

static void deflect_tail_surfaces(int p, int en) {
    const veh_struct& acf = veh[p];
    const veh_wing_struct& wing = acf.wing[en];
    const flt_struct& now = flt[p];
    const float by_roll = now.FC_roll * acf.stab_roll * wing.lat_sign;
    const float by_hdng = now.FC_hdng * acf.stab_hdng * wing.lat_sign;
    const float by_ptch = now.FC_ptch * (now.FC_ptch > 0.0f ? acf.elev_up : acf.elev_dn);
    // ahead of the centre of gravity pitch and yaw work the other way
    const float turn = wing.rev_con ? -1.0f : 1.0f;
    // a V-tail's surface deflects by the sense of its dihedral
    const float rudder = -now.FC_hdng * sign(wing.dihednow) * wing.lat_sign * turn;
    flt[p].wing[en].elev_def = by_roll + turn * by_ptch - by_hdng;
    flt[p].wing[en].rud1_def = rudder * acf.rud1_lr;
    flt[p].wing[en].rud2_def = rudder * acf.rud2_lr;
}

static void deflect_flaps(int p, int en) {
    const veh_struct& acf = veh[p];
    const float lat_sign = acf.wing[en].lat_sign;
    flt_wing_struct& now = flt[p].wing[en];
    if (part_failed(p, lat_sign < 0.0f ? fail_L_flp : fail_R_flp)) {
        now.fla1_def = now.fla2_def = 0.0f;
        return;
    }
    const int last = intlim(acf.flap_detents, 0, flapDIM - 1);
    const float mix = -acf.flap_roll * flt[p].FC_roll * lat_sign -
                      acf.flap_ptch * flt[p].FC_ptch * sign(acf.part[en].part_z);
    now.fla1_def = flap_def(acf.fla1_dn, last, flt[p].fla1_rat, mix);
    now.fla2_def = flap_def(acf.fla2_dn, last, flt[p].fla2_rat, mix);
}

static void deflect_surfaces(int p) {
    if (net.getting_indcons) return;
    for (int en = part_wing_first; en <= part_wing_last; ++en) {
        if (!has_this_wing(p, en)) continue;
        deflect_roll_surfaces(p, en);
        deflect_tail_surfaces(p, en);
        deflect_flaps(p, en);
    }
}

// -- rotors
// How far the collective is up, by the last rotor that has one.
static float collective_ratio(int p) {
    float ratio = 0.0f;
    for (int en = 0; en < engnDIM; ++en) {
        const veh_engn_struct& engn = veh[p].engn[en];
        if (is_thrust_point(p, en) && engn.prop_type == prop_collective)
            ratio = interp(engn.min_pitch, 0.0f, engn.max_pitch, 1.0f, flt[p].engn[en].pitch_deg_ref);
    }
    return ratio;
}

static void pitch_rotors(int p) {
    const veh_struct& acf = veh[p];
    const flt_struct& now = flt[p];
    const float collective = collective_ratio(p);
    for (int en = 0; en < engnDIM; ++en) {
        if (!is_thrust_point(p, en)) continue;
        const veh_engn_struct& engn = acf.engn[en];
        flt_engn_struct& disc = flt[p].engn[en];
        if (engn.prop_type == prop_tail_rotor) {  // the pedals run the pitch
            disc.pitch_deg_ref = interp(-1.0f, engn.max_pitch, 1.0f, engn.min_pitch, now.FC_hdng) +
                                 acf.tail_with_coll * collective;
            disc.pitch_deg_use = disc.pitch_deg_ref;
            continue;
        }
        const float s = sin_deg(disc.vert_disc_vector), c = cos_deg(disc.vert_disc_vector);
        const float x = sign(acf.part[en].part_x), z = sign(acf.part[en].part_z);
        disc.pitch_deg_use = disc.pitch_deg_ref - x * acf.diff_coll_with_roll * now.FC_roll * s -
                             x * acf.diff_coll_with_hdng * now.FC_hdng * c -
                             z * acf.diff_coll_with_ptch * now.FC_ptch * s;
    }
}

static void store_sines(int p) {
    flt_struct& now = flt[p];
    cache_attitude(p);
    for (int en = part_wing_first; en < wingDIM; ++en) {
        if (!has_this_wing(p, en)) continue;
        const veh_wing_struct& wing = veh[p].wing[en];
        now.wing[en].sin_act_dihed = sin_deg(wing.dihednow);
        now.wing[en].cos_act_dihed = cos_deg(wing.dihednow);
        now.wing[en].sin_act_sweep = sin_deg(wing.sweepnow);
        now.wing[en].cos_act_sweep = cos_deg(wing.sweepnow);
    }
}

void update_def_angles(int p) {
    if (p < 0 || p >= vehDIM) {
        MACIBM_fatal("too many planes!");
        return;
    }
    move_gear(p);
    place_gear(p);
    move_doors(p);
    move_speedbrakes(p);
    point_thrust(p);
    move_throttles(p);
    move_burners(p);
    move_surface_geometry(p);
    turn_elements(p);
    move_powered(p);
    deflect_surfaces(p);
    pitch_rotors(p);
    store_sines(p);
}
