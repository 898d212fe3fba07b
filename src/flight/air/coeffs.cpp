// Element coefficients. The order of the steps in Fco_subsonic is part of the model: induced drag sees
// the lift after compressibility and before the finite-wing scaling, drag rise sees the scaled lift.
#include "flight/air/coeffs.h"

#include <string.h>

#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/records.h"
#include "flight/force/trace.h"

float F_el_force(float modcl, float modcd, float modcm, float* lift, float* drag, float* momt, int en, int el,
                 int bld) {
    const veh_wing_struct& wing = veh[0].wing[en];
    const afl_struct& afl = veh[0].afl[en];
    const flt_wing_struct& flow = flt[0].wing[en];
    const float v_el = flow.v_el[el][bld];
    const float els = static_cast<float>(wing.els);

    const float mach_el = v_el / con.lcl_a;
    const float trat = extrap(0.0f, afl.t_rat[0], els, afl.t_rat[1], el + 0.5f);
    const float drag_div = extrap(0.0f, afl.mach_div[0], els, afl.mach_div[1], el + 0.5f);
    check_val(modcl);
    check_val(modcd);
    check_val(modcm);
    check_val(mach_el);
    check_val(trat);
    check_val(drag_div);

    float cl, cd, cm;
    if (mach_el < 1.0f)
        Fco_subsonic(trat, drag_div, mach_el, modcl, modcd, modcm, &cl, &cd, &cm, en, el, bld);
    else
        Fco_supersonic(trat, mach_el, modcl, modcd, modcm, &cl, &cd, &cm, en, el, bld);

    // lift tilted back by downwash becomes induced drag here
    const float sin_del_dir = sin_deg(flow.del_dir[el][bld]), cos_del_dir = cos_deg(flow.del_dir[el][bld]);
    const float new_cl = cd * sin_del_dir + cl * cos_del_dir;
    const float new_cd = cd * cos_del_dir - cl * sin_del_dir;
    const float svvrhoD2 = 0.5f * v_el * v_el * wing.el_s[el] * con.lcl_r_met;
    *lift = new_cl * svvrhoD2;
    *drag = new_cd * svvrhoD2;
    *momt = cm * svvrhoD2 * wing.mac[el];
    check_val(*lift);
    check_val(*drag);
    check_val(*momt);
    if (mnw.cyc_out) [[unlikely]] {
        trace_coeffs("turned to the free stream", new_cl, new_cd, cm);
        trace_values("element force", {{"lift N", *lift}, {"drag N", *drag}, {"moment N m", *momt}});
    }
    return cl;
}

namespace {
struct coeff_set {
    float cl, cd, cm;
};

coeff_set blend(float x1, const coeff_set& a, float x2, const coeff_set& b, float x) {
    return {extrap(x1, a.cl, x2, b.cl, x), extrap(x1, a.cd, x2, b.cd, x), extrap(x1, a.cm, x2, b.cm, x)};
}

coeff_set lookup(float alpha, int en, int RT, int Re, int el, int bld) {
    coeff_set c;
    subsonic_co_lookup(alpha, &c.cl, &c.cd, &c.cm, en, RT, Re, el, bld);
    return c;
}

// Section coefficients of the element: up to four tables, blended over Reynolds number and span. A
// table is looked up only where its file differs from the one it stands beside.
coeff_set section_coeffs(int en, int el, int bld) {
    const veh_wing_struct& wing = veh[0].wing[en];
    const afl_struct& afl = veh[0].afl[en];
    const flt_wing_struct& flow = flt[0].wing[en];
    const float alpha = flow.alpha_el[el][bld];

    const coeff_set root_lo = lookup(alpha, en, 0, 0, el, bld);
    const coeff_set tip_lo = strcmp(wing.Tafl0, wing.Rafl0) ? lookup(alpha, en, 1, 0, el, bld) : root_lo;
    const coeff_set root_hi = strcmp(wing.Rafl1, wing.Rafl0) ? lookup(alpha, en, 0, 1, el, bld) : root_lo;
    const coeff_set tip_hi = strcmp(wing.Tafl1, wing.Tafl0) ? lookup(alpha, en, 1, 1, el, bld) : tip_lo;

    const float Re_meg = con.lcl_r_met * flow.v_el[el][bld] * wing.mac[el] / con.planet_mu_air * 1e-6f;
    const float Re_useR = fltlim(Re_meg, afl.re_num[0][0], afl.re_num[0][1]);
    const float Re_useT = fltlim(Re_meg, afl.re_num[1][0], afl.re_num[1][1]);
    const coeff_set root = blend(afl.re_num[0][0], root_lo, afl.re_num[0][1], root_hi, Re_useR);
    const coeff_set tip = blend(afl.re_num[1][0], tip_lo, afl.re_num[1][1], tip_hi, Re_useT);
    return blend(0.0f, root, static_cast<float>(wing.els), tip, el + 0.5f);
}

// In a sideslip a wing flies more and more along its span, until its aspect ratio is the inverse. As given:
// by the cosine.
float sideslip_aspect_ratio(int en) {
    const veh_wing_struct& wing = veh[0].wing[en];
    if (en <= part_thru_last) return wing.AR;
    const float beta_eff = flt[0].beta * cos_deg(wing.dihednow);
    return interp(1.0f, wing.AR, 0.0f, 1.0f / wing.AR, fabsf(cos_deg(beta_eff)));
}
}  // namespace

// Sources: compressibility is Prandtl and Glauert's, held at Mach .85; induced drag cl2 / (pi e AR) of the
// lifting line. As given: an uneven span loses lift by its load factor and gains drag by it; drag rise 2.5 (M
// - Md)2 with Md less .2 cl; a delta wing's moment of a quarter of its lift; ice, ratio 0 to 1, costs a third
// of the lift and makes five times the drag.
void Fco_subsonic(float trat, float drag_div, float Mach, float modcl, float modcd, float modcm, float* cl,
                  float* cd, float* cm, int en, int el, int bld) {
    const veh_wing_struct& wing = veh[0].wing[en];
    const flt_wing_struct& flow = flt[0].wing[en];
    const bool tracing = mnw.cyc_out;

    Mach = fltlim(Mach, 0.0f, 0.85f);
    coeff_set c = section_coeffs(en, el, bld);
    check_val(c.cl);
    check_val(c.cd);
    check_val(c.cm);
    if (tracing) [[unlikely]] {
        trace_values("section", {{"Mach", Mach}, {"thickness", trat}});
        trace_coeffs("tables, blended over Reynolds number and span", c.cl, c.cd, c.cm);
    }
    c.cl += modcl;
    c.cd += modcd;
    c.cm += modcm;
    if (c.cd < 0.0f) MACIBM_fatal("neg cd in post con-def lookup!");
    if (tracing) [[unlikely]]
        trace_coeffs("with controls", c.cl, c.cd, c.cm);

    if (c.cl > 0.0f) c.cl *= flow.CL_grndeffect;
    if (tracing) [[unlikely]]
        trace_coeffs("with ground effect on lift", c.cl, c.cd, c.cm);

    const float machfac = 1.0f / sqrtf(1.0f - Mach * Mach);  // Prandtl-Glauert
    c.cl *= machfac;
    c.cm *= machfac;
    if (tracing) [[unlikely]]
        trace_coeffs("with compressibility", c.cl, c.cd, c.cm);

    const float ar_eff = sideslip_aspect_ratio(en);
    const float Q_factor = flow.Q_centroid_loc[bld];
    const float cdi = c.cl * c.cl / (fltlim(Q_factor, 0.5f, 2.0f) * con.pi * wing.e * ar_eff);
    c.cd += cdi * flow.CD_grndeffect;
    if (tracing) [[unlikely]]
        trace_coeffs("with induced drag", c.cl, c.cd, c.cm);

    c.cl *= wing.cl_D_cl0 * Q_factor;
    c.cm *= wing.cm_D_cm0 * Q_factor;
    if (tracing) [[unlikely]]
        trace_coeffs("scaled to the finite wing", c.cl, c.cd, c.cm);

    const float Md = drag_div - 0.2f * fabsf(c.cl);
    if (Mach > Md) c.cd += 2.5f * sqr(Mach - Md);
    if (tracing) [[unlikely]]
        trace_coeffs("with drag rise", c.cl, c.cd, c.cm);

    c.cm -= 0.25f * wing.delta_fac * c.cl;
    if (tracing) [[unlikely]]
        trace_coeffs("with delta-wing moment", c.cl, c.cd, c.cm);

    const float ice = en <= part_thru_last ? flt[0].prop_ice : flt[0].frame_ice;
    if (ice > 0.0f) {
        c.cl /= 1.0f + 0.5f * ice;
        c.cd *= 1.0f + 4.0f * ice;
    }
    if (tracing) [[unlikely]]
        trace_coeffs("with ice", c.cl, c.cd, c.cm);

    check_val(c.cl);
    check_val(c.cd);
    check_val(c.cm);
    if (c.cd < 0.0f) MACIBM_fatal("Neg cd at end of all calcs!");
    *cl = c.cl;
    *cd = c.cd;
    *cm = c.cm;
}

// The index of a table of three zones, fine between -20 and 20 degrees.
static float table_index(float alpha) {
    if (alpha < -20.0f) return interp(-180.0f, 0.0f, -20.0f, 160.0f, alpha);
    if (alpha < 20.0f) return interp(-20.0f, 160.0f, 20.0f, 560.0f, alpha);
    return interp(20.0f, 560.0f, 179.0f, 719.0f, alpha);
}

// As given: between 20 and 90 degrees the wing's alpha, stretched about zero lift, goes over to the
// section's.
void subsonic_co_lookup(float alpha, float* cl, float* cd, float* cm, int en, int RT, int Re, int el,
                        int bld) {
    if (!intrange(en, 0, wingDIM - 1)) return MACIBM_fatal("FOIL INDEX out of range!");
    if (!intrange(Re, 0, 1)) return MACIBM_fatal("RE INDEX out of range!");
    if (!intrange(RT, 0, 1)) return MACIBM_fatal("RT INDEX out of range!");
    if (!intrange(el, 0, elDIM - 1)) return MACIBM_fatal("ELEMENT INDEX out of range!");

    const veh_wing_struct& wing = veh[0].wing[en];
    const afl_struct& afl = veh[0].afl[en];
    flt_wing_struct& flow = flt[0].wing[en];
    const bool has_slat = wing.slat[el];

    // The table is a two-dimensional section: the curve is stretched about its zero-lift angle.
    const float slat_effect = has_slat ? extrap(0.0f, 1.0f, 1.0f, wing.slat_effect, flt[0].slat_rat) : 1.0f;
    const float al_zero_l = -afl.clB[RT][Re] / afl.clM[RT][Re];
    const float reduced_alpha =
        (alpha - al_zero_l) * wing.al_D_al0 * flow.Q_centroid_loc[bld] / slat_effect + al_zero_l;
    check_val(alpha);
    check_val(al_zero_l);
    check_val(slat_effect);
    check_val(reduced_alpha);
    alpha = interp(20.0f, reduced_alpha, 90.0f, alpha, fabsf(alpha));

    const float index = table_index(alpha);
    const int LO_index = static_cast<int>(index);
    const int HI_index = LO_index + 1;
    const float LO_ratio = HI_index - index;
    const float HI_ratio = 1.0f - LO_ratio;
    *cl = afl.cl[RT][Re][LO_index] * LO_ratio + afl.cl[RT][Re][HI_index] * HI_ratio;
    *cd = afl.cd[RT][Re][LO_index] * LO_ratio + afl.cd[RT][Re][HI_index] * HI_ratio;
    *cm = afl.cm[RT][Re][LO_index] * LO_ratio + afl.cm[RT][Re][HI_index] * HI_ratio;
    check_val(*cl);
    check_val(*cd);
    check_val(*cm);
    if (*cd < 0.0f) MACIBM_fatal("neg cd in post con-def lookup!");

    if (has_slat) *cl *= slat_effect;
    flow.stalled = wing.alpha_max * slat_effect < alpha;
}

// Ackeret's linear theory on a double wedge. As given: Mach is held from 1.1 to 3, each facet counts half the
// chord, the moment is that of a centre of pressure at half chord, and blades have no controls.
void Fco_supersonic(float trat, float Mach, float modcl, float modcd, float modcm, float* cl, float* cd,
                    float* cm, int en, int el, int bld) {
    constexpr float skin_friction = 0.0046f;
    Mach = fltlim(Mach, 1.1f, 3.0f);
    *cl = *cd = 0.0f;
    // the section stands as a double wedge of half angle ang: four facets
    const float ang = atan_deg(trat);
    const float alpha = flt[0].wing[en].alpha_el[el][bld];
    supersonic_flatplate(alpha - ang, cl, cd, Mach, 0.5f);
    supersonic_flatplate(alpha + ang, cl, cd, Mach, 0.5f);
    supersonic_flatplate(alpha + ang, cl, cd, Mach, 0.5f);
    supersonic_flatplate(alpha - ang, cl, cd, Mach, 0.5f);
    *cd += skin_friction;
    *cm = -0.24f * *cl;
    if (en > part_thru_last) {
        *cl += modcl;
        *cd += modcd;
        *cm += modcm;
    }
    check_val(*cl);
    check_val(*cd);
    check_val(*cm);
    if (mnw.cyc_out) [[unlikely]]
        trace_coeffs("supersonic double wedge with controls", *cl, *cd, *cm);
}

void supersonic_flatplate(float alpha, float* cl, float* cd, float Mach, float foilrat) {
    const float alpha_rad = alpha * con.degtorad;
    const float coeff_press = 2.0f * alpha_rad / sqrtf(Mach * Mach - 1.0f);
    *cl += cosf(alpha_rad) * coeff_press * foilrat;
    *cd += sinf(alpha_rad) * coeff_press * foilrat;
}
