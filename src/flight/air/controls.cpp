// Control surface effects.
#include "flight/air/controls.h"

#include "core/math/num.h"
#include "core/records/records.h"
#include "flight/force/trace.h"

namespace {
struct increments {
    float al = 0.0f, cl = 0.0f, cd = 0.0f, cm = 0.0f;
};

// How far seals and gaps let the control act, by the aircraft's smoothing class. As given, ratios.
float smoothness(int con_smooth) {
    switch (con_smooth) {
        case 0:
            return 0.7f;
        case 1:
            return 0.85f;
        case 3:
            return 1.5f;
        default:
            return 1.0f;
    }
}

// Degrees of alpha, coefficients. As given: the power of the chord ratio, nine tenths of the lift, drag with the
// square of the degrees, half the lift as moment.
increments hinged_surface(float def, float crat, float con_mult, float lift_slope, float al_D_al0) {
    increments inc;
    inc.al = -def * powf(crat, 0.9f) * con_mult;
    inc.cl = lift_slope * inc.al * al_D_al0 * 0.9f;
    inc.cd = 1.5e-05f * crat * def * def;
    inc.cm = -0.5f * inc.cl;
    return inc;
}

// As given: half the effect of a hinged surface on lift, but its whole moment. The drag is a flat plate's, 1.23.
increments spoiler(increments hinged, float def, float crat) {
    hinged.al *= 0.5f;
    hinged.cl *= 0.5f;
    hinged.cd = 1.23f * crat * sin_deg(fabsf(def));
    return hinged;
}

// A ratio to the full deflection; a full deflection without effect gives none.
float share(float now, float full) { return full == 0.0f ? 0.0f : now / full; }

// The lift increment is corrected so that the shift of alpha and the direct term together come to the
// designer's figure at full flap.
increments flap(int which, float def, float crat, float lift_slope, float al_D_al0) {
    const veh_struct& v = veh[0];
    const float full = which == 1 ? v.fla1_dn[v.flap_detents] : v.fla2_dn[v.flap_detents];
    const float design_cl = which == 1 ? v.fla1_cl : v.fla2_cl;
    const float design_cd = which == 1 ? v.fla1_cd : v.fla2_cd;
    const float design_cm = which == 1 ? v.fla1_cm : v.fla2_cm;
    increments inc;
    inc.al = signsqr(crat) * def;
    inc.cl = share(flap_cl_rat(def), flap_cl_rat(full)) * design_cl * al_D_al0 - inc.al * lift_slope;
    inc.cd = share(flap_cd_rat(def), flap_cd_rat(full)) * design_cd;
    inc.cm = share(flap_cm_rat(def), flap_cm_rat(full)) * design_cm * al_D_al0;
    return inc;
}

// What the wing is like where a flap has come off. As given; the drag is the section's thickness.
increments missing_flap(int en, int el, float crat) {
    increments inc;
    inc.cl = -0.2f * crat * flt[0].wing[en].alpha_el[el][0];
    inc.cd = veh[0].afl[en].t_rat[0];
    inc.cm = -inc.cl * (0.75f - 0.5f * crat);
    return inc;
}

bool flap_is_off(int en) {
    const int slot = veh[0].wing[en].is_left ? fail_L_flp_off : fail_R_flp_off;
    return flt[0].fail_stat[slot] == fail_active;
}
}  // namespace

// Shares of the effect at 90 degrees. As given: lift bends at 20 and 45 degrees, drag goes with the sine.
float flap_cl_rat(float def_deg) {
    if (def_deg < 20.0f) return extrap(0.0f, 0.0f, 20.0f, 0.7f, def_deg);
    if (def_deg < 45.0f) return interp(20.0f, 0.7f, 45.0f, 0.8f, def_deg);
    return interp(45.0f, 0.8f, 90.0f, 1.0f, def_deg);
}
float flap_cd_rat(float def_deg) { return sin_deg(fabsf(def_deg)); }
float flap_cm_rat(float def_deg) { return flap_cl_rat(def_deg); }

void set_con_eff(int en, int el, int con_type, float def, float* al_inc_tot, float* cl_inc_tot,
                 float* cd_inc_tot, float* cm_inc_tot, const char* str, int is_end) {
    if (def == 0.0f) return;
    const veh_wing_struct& w = veh[0].wing[en];
    const afl_struct& afl = veh[0].afl[en];
    const float crat = control_crat(0, en, static_cast<float>(el), con_type);
    const float con_mult = smoothness(veh[0].con_smooth);
    const float al_D_al0 = is_end ? sqr(w.al_D_al0) : w.al_D_al0;
    const float lift_slope =
        0.25f * (afl.clM[0][0] + afl.clM[0][1] + afl.clM[1][0] + afl.clM[1][1]) * al_D_al0;
    const bool on_fin = en == part_vstb_first || en == part_vstb_last;

    increments inc;
    if (con_type == con_yawb || (con_type == con_sbrk && on_fin)) {
        inc.cd = 2.46f * crat * sin_deg(fabsf(def));  // both halves open
    } else if (con_type == con_fla1 || con_type == con_fla2) {
        inc = flap_is_off(en) ? missing_flap(en, el, crat)
                              : flap(con_type == con_fla1 ? 1 : 2, def, crat, lift_slope, al_D_al0);
    } else {
        inc = hinged_surface(def, crat, con_mult, lift_slope, al_D_al0);
        if (con_type == con_spo1 || con_type == con_spo2 || con_type == con_sbrk)
            inc = spoiler(inc, def, crat);
    }
    *al_inc_tot += inc.al;
    *cl_inc_tot += inc.cl;
    *cd_inc_tot += inc.cd;
    *cm_inc_tot += inc.cm;
    if (mnw.cyc_out) [[unlikely]]
        trace_values(str, {{"deflection deg", def},
                           {"chord ratio", crat},
                           {"alpha", inc.al},
                           {"cl", inc.cl},
                           {"cd", inc.cd},
                           {"cm", inc.cm}});
}
