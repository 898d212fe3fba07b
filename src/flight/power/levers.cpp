// The levers of the engines.
#include "flight/power/levers.h"

#include "aircraft/design/exists.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/records.h"
#include "flight/power/engine_control.h"

void set_thro(int en, float val) {
    if (check_nan(val)) return;
    flt_engn_struct& e = flt[0].engn[en];
    e.thro_ref = fltlim(val, 0.0f, e.prop_mode == mode_reverse ? veh[0].throt_max_REV : veh[0].throt_max_FWD);
}

void set_prop(int en, float val) {
    if (check_nan(val)) return;
    flt[0].engn[en].prop_rsc = fltlim(val, veh[0].RSC_mingreen_PROP, veh[0].RSC_redline_PROP);
}

void set_mixt(int en, float val) {
    if (check_nan(val)) return;
    flt[0].engn[en].mixt = fltlim(val, 0.0f, 1.0f);
}

void set_ptch(int en, float val) {
    if (check_nan(val)) return;
    constexpr float governor_rate = 45.0f;  // deg/s
    const veh_engn_struct& kind = veh[0].engn[en];
    flt_engn_struct& e = flt[0].engn[en];
    float lo = kind.min_pitch, hi = kind.max_pitch;
    if (e.prop_mode == mode_feather) lo = hi = veh[0].feathered_pitch;
    if (e.prop_mode == mode_beta) lo = hi = 0.0f;
    if (e.prop_mode == mode_reverse) {
        lo = -90.0f;
        hi = kind.min_pitch;
    }
    const float wanted = fltlim(val, lo, hi);
    const bool governed = kind.prop_type == prop_constant || kind.prop_type == prop_tip_mach ||
                          kind.prop_type == prop_governed_rotor;
    const float step = governor_rate * mnw.prd_FM;
    e.pitch_deg_ref = governed ? fltlim(wanted, e.pitch_deg_ref - step, e.pitch_deg_ref + step) : wanted;
}

float set_thro_prop(float flt_dat, int en, int dragging) {
    const veh_struct& v = veh[0];
    flt_engn_struct& e = flt[0].engn[en];
    // stops of the handle: full power, idle, bottom of beta, full reverse
    constexpr float thro4 = 1.0f;
    float thro3 = v.beta_prop_EQ ? 0.3f : 0.25f, thro2 = 0.2f;
    constexpr float thro1 = 0.0f;
    if (!v.rev_thrust_EQ) thro3 = thro2 = 0.0f;

    if (dragging && !check_nan(flt_dat)) {
        if (flt_dat >= thro3) {
            e.prop_mode = mode_normal;
            e.thro_ref = interp(thro3, 0.0f, thro4, v.throt_max_FWD, flt_dat);
        } else if (flt_dat >= thro2) {
            e.prop_mode = mode_beta;
            e.thro_ref = 0.0f;
        } else if (v.rev_thrust_EQ) {
            e.prop_mode = mode_reverse;
            e.thro_ref = interp(thro2, 0.0f, thro1, v.throt_max_REV, flt_dat);
        }
    }
    if (e.prop_mode == mode_beta) return interp(0.0f, thro2, v.throt_max_REV, thro3, e.thro_ref);
    if (e.prop_mode == mode_reverse) return interp(0.0f, thro2, v.throt_max_REV, thro1, e.thro_ref);
    return interp(0.0f, thro3, v.throt_max_FWD, thro4, e.thro_ref);
}

int eng_has_fadec(int p, int e) {
    if (e < 0 || e >= engnDIM) {
        MACIBM_fatal("Out of range FADEC check!");
        return 0;
    }
    if (!has_this_engn(p, e, engn_any) || !(en_is_prop(p, e) || en_is_tip(p, e))) return 0;
    if (veh[p].has_FADEC_switch) return 1;
    if (veh[p].has_pre_rotate) return 0;
    return veh[p].collective_EQ;
}

int fadec_is_running(int p, int e) { return stg.fadec_on[e] && !part_failed(p, fail_fadec + e); }
