// Derived fields of the aircraft record: existence of parts, mirrored and copied surfaces, flags and
// element geometry. The steps run in a fixed order; later ones read what earlier ones set.
#include "aircraft/design/autoset.h"

#include <cstring>

#include "aircraft/design/exists.h"
#include "aircraft/design/location.h"
#include "core/craft/engn_kinds.h"
#include "core/craft/instruments.h"
#include "core/craft/veh.h"
#include "core/math/num.h"
#include "core/records/nav.h"

namespace {
constexpr float least_span = 0.05f;                               // ft; a shorter surface does not exist
constexpr int first_pylons[] = {part_pylo_first, part_pylo_low};  // upper and lower, of thrust point 0

// Elements that can be looped over, whatever the record holds.
int used_els(const veh_wing_struct& wing) { return intlim(wing.els, 0, elDIM); }

void set_existence(veh_struct& v) {
    for (int en = part_thru_first; en <= part_thru_last; ++en) v.part[en].part_eq = 0;
    for (int en = part_wing_first; en <= part_wing_last; ++en)
        v.part[en].part_eq = v.wing[en].semilen_SEG > least_span;
    for (int en = part_pylo_first; en <= part_pylo_last; ++en) {
        const int thrust_point = (en - part_pylo_first) % engnDIM;
        v.part[en].part_eq =
            v.part[en].part_eq && v.num_thrustpoints > thrust_point && v.wing[en].semilen_SEG > least_span;
    }
    for (int en = part_nace_first; en <= part_nace_last; ++en)
        v.part[en].part_eq = v.part[en].part_eq && v.num_thrustpoints > en - part_nace_first;
}

bool other_side(const veh_struct& v, int k) { return sign(v.part[0].part_x) != sign(v.part[k].part_x); }

void copy_surfaces(int p) {
    for (int right = part_wing_first + 1; right <= part_hstb_right; right += 2)
        copy_foil(p, right, right - 1, 1);
    for (const int first : first_pylons)
        for (int k = 1; k < engnDIM; ++k) copy_foil(p, first, first + k, other_side(veh[p], k));
}

void place(veh_part_struct& part, float x, float y, float z) {
    part.part_x = x;
    part.part_y = y;
    part.part_z = z;
}

// Every engine carries its pylons where the first one does.
void place_pylons(int p) {
    veh_struct& v = veh[p];
    const veh_part_struct& hub = v.part[0];
    for (const int first : first_pylons) {
        const float dx = v.part[first].part_x - hub.part_x;
        const float dy = v.part[first].part_y - hub.part_y;
        const float dz = v.part[first].part_z - hub.part_z;
        for (int k = 1; k < engnDIM; ++k) {
            if (!has_this_wing(p, first + k)) continue;
            const veh_part_struct& point = v.part[k];
            place(v.part[first + k], point.part_x + (other_side(v, k) ? -dx : dx), point.part_y + dy,
                  point.part_z + dz);
        }
    }
}

void place_nacelles(veh_struct& v) {
    for (int k = 0; k < engnDIM; ++k)
        place(v.part[part_nace_first + k], v.part[k].part_x, v.part[k].part_y, v.part[k].part_z);
}

void extend_gear(int p) {
    veh_struct& v = veh[p];
    for (int g = 0; g < gearDIM; ++g) {
        veh_gear_struct& gear = v.gear[g];
        gear.latN = gear.latE;
        gear.lonN = gear.lonE;
        gear.dep_rat = 1.0f;
        place(v.part[part_fair_first + g], ret_gear_x_nodef(p, g), ret_gear_y_nodef(p, g) + gear.stat_def,
              ret_gear_z_nodef(p, g));
    }
}

void terminate_texts(veh_struct& v) {
    v.tailnum[6] = 0;
    v.author[112] = 0;
    v.descrip[112] = 0;
    v.ICAO[39] = 0;
}

// The drawing stations of a wing-like part: two to an element, fourteen points round the profile.
void set_wing_dims(veh_struct& v) {
    for (int en = 0; en < wingDIM; ++en) {
        v.part[en].s_dim = 2 * used_els(v.wing[en]);
        v.part[en].r_dim = 14;
    }
}

void set_gear_flags(int p) {
    veh_struct& v = veh[p];
    v.gear_EQ = 0;
    v.gear_steer_EN = 0;
    float farthest = 0.0f;
    for (int g = 0; g < gearDIM; ++g) {
        if (!has_this_gear(p, g)) continue;
        v.gear_EQ = 1;
        if (v.gear[g].steers && flt_abs(v.gear[g].gear_z) > farthest) {
            farthest = flt_abs(v.gear[g].gear_z);
            v.gear_steer_EN = g;
        }
    }
}

void add_airframe_flags(veh_struct& v, const veh_wing_struct& wing) {
    for (int el = 0; el < used_els(wing); ++el) {
        const bool drooping_ailerons =
            (wing.ail1[el] && v.ail1_flaps > 0.01f) || (wing.ail2[el] && v.ail2_flaps > 0.01f);
        if (wing.fla1[el] || wing.fla2[el] || drooping_ailerons) v.flap_EQ = 1;
        if (wing.slat[el]) v.slat_EQ = 1;
        if (wing.sbrk[el]) v.sbrk_EQ = 1;
        if (wing.vardihed) v.vardihed_EQ = 1;
        if (wing.varsweep) v.varsweep_EQ = 1;
        if (wing.varinc) v.varinc_EQ = 1;
    }
}

void set_airframe_flags(int p) {
    veh_struct& v = veh[p];
    v.flap_EQ = v.slat_EQ = v.vardihed_EQ = v.varsweep_EQ = v.varinc_EQ = v.sbrk_EQ = 0;
    for (const veh_door_struct& brake : v.sbrk)
        if (brake.type) v.sbrk_EQ = 1;
    for (int en = part_wing_first; en <= part_wing_last; ++en)
        if (has_this_wing(p, en)) add_airframe_flags(v, v.wing[en]);
}

void set_rotor_flags(int p) {
    veh_struct& v = veh[p];
    v.tailrotor_EQ = v.collective_EQ = v.collective_en = 0;
    for (int en = part_thru_first; en <= part_thru_last; ++en) {
        if (!has_this_thru(p, en, thru_disc)) continue;
        if (v.engn[en].prop_type == prop_tail_rotor) v.tailrotor_EQ = 1;
        if (v.engn[en].prop_type == prop_collective) {
            v.collective_EQ = 1;
            v.collective_en = en;
        }
    }
}

void set_flying_stab(veh_struct& v) {
    const veh_wing_struct& stab = v.wing[part_hstb_left];
    v.flying_stab_EQ = 0;
    for (int el = 0; el < used_els(stab); ++el)
        if (stab.inc_trim[el]) v.flying_stab_EQ = 1;
}

// Jets: the drag of the first seven nacelles is part of the engine's thrust.
void clear_jet_nacelle_drag(int p) {
    for (int en = part_nace_first; en < part_nace_last; ++en)
        if (en_is_jet(p, en - part_nace_first)) veh[p].part[en].cd = 0.0f;
}

// -- element geometry
struct control_row {
    int (veh_wing_struct::*carries)[elDIM];
    float veh_wing_struct::*elR;  // first element
    float veh_wing_struct::*elT;  // behind the last
};
#define CONTROL(name) \
    { &veh_wing_struct::name, &veh_wing_struct::name##_elR, &veh_wing_struct::name##_elT }
const control_row controls[] = {CONTROL(ail1), CONTROL(ail2), CONTROL(elev), CONTROL(rud1),
                                CONTROL(rud2), CONTROL(spo1), CONTROL(spo2), CONTROL(yawb),
                                CONTROL(sbrk), CONTROL(fla1), CONTROL(fla2)};
#undef CONTROL

void set_control_ranges(veh_wing_struct& wing) {
    for (const control_row& control : controls) {
        float& from = wing.*control.elR;
        float& to = wing.*control.elT;
        from = elDIM;
        to = 0.0f;
        for (int el = 0; el < used_els(wing); ++el) {
            if (!(wing.*control.carries)[el]) continue;
            from = fltmin2(from, static_cast<float>(el));
            to = fltmax2(to, static_cast<float>(el + 1));
        }
    }
}

void set_side(veh_struct& v, int en) {
    veh_wing_struct& wing = v.wing[en];
    if (en < part_vstb_first)
        wing.is_left = en % 2 == 0;
    else if (en <= part_vstb_last)
        wing.is_left = 0;
    else if (en >= part_pylo_first)
        wing.is_left = v.part[en].part_x < -0.01f;
    wing.lat_sign = wing.is_left ? -1.0f : 1.0f;
}

// Area and mean aerodynamic chord of each element, a trapezoid whose span runs across the swept wing.
void set_elements(veh_wing_struct& wing) {
    const int els = used_els(wing);
    if (els == 0) return;
    const float count = static_cast<float>(els);
    wing.element_len = wing.semilen_SEG / count;
    for (int el = 0; el < els; ++el) {
        const float inn = extrap(0.0f, wing.Croot, count, wing.Ctip, static_cast<float>(el));
        const float out = extrap(0.0f, wing.Croot, count, wing.Ctip, static_cast<float>(el + 1));
        const float sum = inn + out;
        wing.el_s[el] = sum * wing.semilen_SEG * cos_deg(wing.sweep1) * 0.5f / count;
        wing.mac[el] = sum == 0.0f ? 0.0f : 2.0f / 3.0f * (sum - inn * out / sum);
    }
}

void set_surfaces(int p) {
    for (int en = 0; en < wingDIM; ++en) {
        if (!has_this_wing(p, en)) continue;
        set_side(veh[p], en);
        set_control_ranges(veh[p].wing[en]);
        set_elements(veh[p].wing[en]);
    }
}

// -- panel
struct panel_flag_row {
    instrument_type first, last;
    int veh_struct::*flag;
};
const panel_flag_row panel_flags[] = {
    {ins_HSI_1_GA, ins_HSI_glass_Sandel, &veh_struct::has_hsi},
    {ins_el_hsi_tape, ins_el_hsi_full_circle, &veh_struct::has_hsi},
    {ins_HUD_hsi_round, ins_HUD_hsi_tape, &veh_struct::has_hsi},
    {ins_HSI_1_GA, ins_HSI_glass_HM, &veh_struct::has_hdg_set},
    {ins_ott_sel_HDG, ins_ott_sel_HDG, &veh_struct::has_hdg_set},
    {ins_ott_seldisp_HDG, ins_ott_seldisp_HDG, &veh_struct::has_hdg_set},
    {ins_ott_sel_HDG_HM, ins_ott_sel_HDG_HM, &veh_struct::has_hdg_set},
    {ins_radioalt_round, ins_radioalt_dig, &veh_struct::has_radalt},
    {ins_map_s_GA, ins_map_t_HM, &veh_struct::has_radar},
    {ins_radar, ins_HITS, &veh_struct::has_radar},
    {ins_but_flitedir_modeSC, ins_but_flitedir_modeSC, &veh_struct::has_SC_fd},
    {ins_but_flitedir_modeDC, ins_but_flitedir_modeDC, &veh_struct::has_DC_fd},
    {ins_stall_GA, ins_stall_GA, &veh_struct::has_stallwarn},
    {ins_bleed_air, ins_cabin_vvi, &veh_struct::has_press_controls},
    {ins_but_igniter, ins_but_igniter, &veh_struct::has_igniter},
    {ins_but_idle, ins_but_idle, &veh_struct::has_idlespeed},
    {ins_but_FADEC, ins_but_FADEC, &veh_struct::has_FADEC_switch},
    {ins_but_clutch, ins_but_clutch, &veh_struct::has_clutch_switch},
    {ins_but_prerotate, ins_but_prerotate, &veh_struct::has_pre_rotate},
    {ins_han_mixture_vernier, ins_han_mixture_linear, &veh_struct::has_mixture},
    {ins_but_knots_mach, ins_but_knots_mach, &veh_struct::has_kts_mac},
    {ins_ott_sel_SPD, ins_ott_sel_SPD, &veh_struct::has_asi_set},
    {ins_ott_seldisp_SPD, ins_ott_seldisp_SPD, &veh_struct::has_asi_set},
    {ins_ott_sel_SPD_HM, ins_ott_sel_SPD_HM, &veh_struct::has_asi_set},
    {ins_ott_seldisp_VVI, ins_ott_seldisp_VVI, &veh_struct::has_vvi_set},
    {ins_ott_sel_ALT, ins_ott_sel_ALT, &veh_struct::has_alt_set},
    {ins_ott_seldisp_ALT, ins_ott_seldisp_ALT, &veh_struct::has_alt_set},
    {ins_ott_sel_ALT_HM, ins_ott_sel_ALT_HM, &veh_struct::has_alt_set},
    {ins_FMS, ins_FMS_small, &veh_struct::has_fms},
    {ins_but_autofeather, ins_but_autofeather, &veh_struct::auto_fea_EQ},
    {ins_but_battery, ins_but_battery, &veh_struct::battery_EQ},
    {ins_but_avionics, ins_but_avionics, &veh_struct::avionics_EQ},
    {ins_but_generator, ins_but_generator, &veh_struct::generator_EQ},
    {ins_but_inverter, ins_but_inverter, &veh_struct::inverter_EQ},
    {ins_but_fuelpump, ins_but_fuelpump, &veh_struct::fuelpump_EQ},
};

// The re-entry display brings three instruments with it, in the last slots.
void add_reentry_instruments(veh_struct& v) {
    struct companion {
        int slot, type;
        float dx, dy;  // pixels from the display
    };
    const companion companions[] = {{299, ins_el_horizon, 0.0f, 70.0f},
                                    {298, ins_el_hsi_full_circle, 0.0f, -70.0f},
                                    {297, ins_el_machnumber, -60.0f, -10.0f}};
    for (int i = 0; i < insDIM; ++i) {
        if (v.ins_type[i] != ins_ORBITER_prim) continue;
        const float x = v.ins_x[i], y = v.ins_y[i];
        for (const companion& c : companions) {
            v.ins_type[c.slot] = c.type;
            v.ins_x[c.slot] = x + c.dx;
            v.ins_y[c.slot] = y + c.dy;
            v.ins_size[c.slot] = 1.0f;
        }
        return;
    }
}

// What the user's aircraft has is what stands on its panel.
void set_panel_flags(veh_struct& v) {
    for (const panel_flag_row& row : panel_flags) v.*row.flag = 0;
    nav.otto_ah_vac_ele = nav.otto_dg_vac_ele = 1;
    for (const int type : v.ins_type) {
        for (const panel_flag_row& row : panel_flags)
            if (intrange(type, row.first, row.last)) v.*row.flag = 1;
        if (intrange(type, ins_markers_GA, ins_markers_BC)) v.beacon_EQ = 1;  // once set it stays
        // As given: this one of the vacuum horizons stands for an electric one
        if (type == ins_horizon_GA_vac_adj) nav.otto_ah_vac_ele = 0;
        if (intrange(type, ins_DG, ins_DG_HDG_SYN)) nav.otto_dg_vac_ele = 0;
    }
    v.xflt_overflow[0] = static_cast<float>(v.has_fms);  // where older readers of the record look
}

float mean_ins_x(const veh_struct& v, int first_type, int last_type) {
    float sum = 0.0f;
    int count = 0;
    for (int i = 0; i < insDIM; ++i) {
        if (!intrange(v.ins_type[i], first_type, last_type)) continue;
        sum += v.ins_x[i];
        ++count;
    }
    return count == 0 ? 0.0f : sum / static_cast<float>(count);
}

// Middle of each group of levers, by which the whole group is grabbed.
void set_lever_centres(veh_struct& v) {
    v.thro_x_ctr = mean_ins_x(v, ins_han_thro_vernier, ins_han_thro_linear);
    v.prop_x_ctr = mean_ins_x(v, ins_han_prop_vernier, ins_han_prop_linear);
    v.mixt_x_ctr = mean_ins_x(v, ins_han_mixture_vernier, ins_han_mixture_linear);
    v.heat_x_ctr = mean_ins_x(v, ins_han_cheat_vernier, ins_han_cheat_linear);
    v.cowl_x_ctr = mean_ins_x(v, ins_han_cowlflaps, ins_han_cowlflaps);
}

void set_autopilot_defaults(veh_struct& v) {
    if (v.custom_autopilot) return;
    v.ott_asi_ratio = 0.04f;
    v.ott_asi_sec_into_future = 20.0f;
    v.ott_asi_kts_off_for_full_def = 10.0f;
    v.ott_phi_ratio = 1.0f;
    v.ott_phi_sec_into_future = 1.0f;
    v.ott_phi_deg_off_for_full_def = 60.0f;
    v.ott_phi_sec_to_tune = 20.0f;
    v.ott_def_sec_into_future = 60.0f;
    v.ott_def_dot_off_for_full_def = 4.0f;
    v.ott_def_sec_to_tune = 20.0f;
    v.ott_the_ratio = 1.0f;
    v.ott_the_sec_into_future = 3.0f;
    v.ott_the_deg_off_for_full_def = 30.0f;
    v.ott_the_sec_to_tune = 10.0f;
    v.ott_the_deg_per_kt = 0.5f;
}

using element_ints = int (veh_wing_struct::*)[elDIM];
const element_ints copied_element_ints[] = {
    &veh_wing_struct::ail1,     &veh_wing_struct::ail2,     &veh_wing_struct::spo1,
    &veh_wing_struct::spo2,     &veh_wing_struct::yawb,     &veh_wing_struct::elev,
    &veh_wing_struct::rud1,     &veh_wing_struct::rud2,     &veh_wing_struct::fla1,
    &veh_wing_struct::fla2,     &veh_wing_struct::slat,     &veh_wing_struct::sbrk,
    &veh_wing_struct::inc_ail1, &veh_wing_struct::inc_ail2, &veh_wing_struct::inc_elev,
    &veh_wing_struct::inc_rud1, &veh_wing_struct::inc_rud2, &veh_wing_struct::inc_vect,
    &veh_wing_struct::inc_trim,
};

void copy_wing(const veh_wing_struct& from, veh_wing_struct& to) {
    memcpy(to.Rafl0, from.Rafl0, sizeof to.Rafl0);
    memcpy(to.Rafl1, from.Rafl1, sizeof to.Rafl1);
    memcpy(to.Tafl0, from.Tafl0, sizeof to.Tafl0);
    memcpy(to.Tafl1, from.Tafl1, sizeof to.Tafl1);
    to.els = from.els;
    to.Croot = from.Croot;
    to.Ctip = from.Ctip;
    to.vardihed = from.vardihed;
    to.dihed1 = from.dihed1;
    to.dihed2 = from.dihed2;
    to.varsweep = from.varsweep;
    to.sweep1 = from.sweep1;
    to.sweep2 = from.sweep2;
    to.semilen_SEG = from.semilen_SEG;
    to.varinc = from.varinc;
    to.inc2 = from.inc2;
    for (int el = 0; el < used_els(from); ++el) {
        to.incidence[el] = from.incidence[el];
        for (const element_ints field : copied_element_ints) (to.*field)[el] = (from.*field)[el];
    }
}

void copy_part(const veh_part_struct& from, veh_part_struct& to, int opp_side) {
    // the sign bit itself: a part on the centre line gets a negative zero
    place(to, opp_side ? -from.part_x : from.part_x, from.part_y, from.part_z);
    to.part_tex = from.part_tex;
    to.top_s1 = from.top_s1;
    to.bot_s1 = from.bot_s1;
    to.top_t1 = from.top_t1;
    to.bot_t1 = from.bot_t1;
    to.top_s2 = from.top_s2;
    to.bot_s2 = from.bot_s2;
    to.top_t2 = from.top_t2;
    to.bot_t2 = from.bot_t2;
}
}  // namespace

void copy_foil(int p, int e1, int e2, int opp_side) {
    veh_struct& v = veh[p];
    copy_wing(v.wing[e1], v.wing[e2]);
    copy_part(v.part[e1], v.part[e2], opp_side);
    v.afl[e2].t_rat[0] = v.afl[e1].t_rat[0];
    v.afl[e2].t_rat[1] = v.afl[e1].t_rat[1];
}

void set_rev_con(int p) {
    veh_struct& v = veh[p];
    for (int en = part_wing_first; en <= part_wing_last; ++en) {
        if (!has_this_wing(p, en)) continue;
        veh_wing_struct& wing = v.wing[en];
        wing.rev_con = v.cgZ > v.part[en].part_z + (0.25f + 0.25f * wing.delta_fac) * wing.Croot;
    }
}

void ACF_autoset(int p) {
    veh_struct& v = veh[p];
    set_existence(v);
    copy_surfaces(p);
    place_pylons(p);
    place_nacelles(v);
    extend_gear(p);
    terminate_texts(v);
    set_wing_dims(v);
    set_gear_flags(p);
    set_airframe_flags(p);
    set_rev_con(p);
    set_rotor_flags(p);
    set_flying_stab(v);
    clear_jet_nacelle_drag(p);
    set_surfaces(p);
    if (p == 0) {
        add_reentry_instruments(v);
        set_panel_flags(v);
    }
    set_lever_centres(v);
    set_autopilot_defaults(v);
}
