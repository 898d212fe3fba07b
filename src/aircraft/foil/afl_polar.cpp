// Polars of a section: a linear lift range with a power curve to the stall, a drag curve with an
// optional low-drag bucket, straight moment lines; beyond 20 degrees a flat plate.
#include "aircraft/foil/afl_polar.h"

#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/mnw.h"

const char* const afl_bad_parameter_text = "You have entered some parameter that has caused a div by zero!";

static constexpr float al_curve = 20.0f;  // reach of the parameter curves either side of zero
static constexpr float cl_plate = 1.17f;  // greatest lift and drag of a flat plate
static constexpr float cd_plate = 1.28f;
static constexpr float cl_rat = 0.5f;  // how much worse a foil works backwards
static constexpr float cd_rat = 4.0f;

float ret_cl(float al, const afl_struct* afl, int RT, int Re) {
    const float clM = afl->clM[RT][Re], clB = afl->clB[RT][Re];
    const float almin = afl->almin[RT][Re], almax = afl->almax[RT][Re];
    const float lin = afl->Llinrange;
    const float linlolift = clB - clM * lin;
    const float linhilift = clB + clM * lin;
    const float Llintostall = afl->Lstall - linhilift;

    if (fltrange(al, -al_curve, almin))
        return (-afl->Lstall + 2.0f * clB + afl->Ldrop1) +
               afl->Ldrop2 * powf((almin - al) / (al_curve + almin), afl->Lpowstl);
    if (fltrange(al, almin, -lin))
        return linlolift + Llintostall * (powf((almin - al) / (almin + lin), afl->Lpow) - 1.0f);
    if (fltrange(al, lin, almax))
        return linhilift - Llintostall * (powf((almax - al) / (almax - lin), afl->Lpow) - 1.0f);
    if (fltrange(al, almax, al_curve))
        return (afl->Lstall - afl->Ldrop1) -
               afl->Ldrop2 * powf((almax - al) / (almax - al_curve), afl->Lpowstl);
    if (fltrange(al, -lin, lin)) return clM * al + clB;
    return 0.0f;
}

// Drag that the low-drag bucket takes away: full depth in its middle, nothing one width away.
static float bucket_drag(float al, const afl_struct* afl, float clM, float clB) {
    if (!(afl->Bwidth > 0.0f && afl->Bdepth > 0.0f && afl->Bpower > 0.0f)) return 0.0f;
    const float half = afl->Bdepth * 0.5f;
    const float Bwidth1 = afl->Bwidth * 0.5f / clM;
    const float Bwidth2 = afl->Bwidth / clM;
    const float Blocalpha = (afl->Bloc - clB) / clM;
    const float dist = flt_abs(al - Blocalpha);
    if (fltrange(dist, Bwidth1, Bwidth2)) return half * powf((Bwidth2 - dist) / Bwidth1, afl->Bpower);
    if (dist < Bwidth1) return half + half * powf((Bwidth1 - dist) / Bwidth1, 1.0f / afl->Bpower);
    return 0.0f;
}

float ret_cd(float al, const afl_struct* afl, int RT, int Re) {
    const float clM = afl->clM[RT][Re], clB = afl->clB[RT][Re];
    const float alDmin = (afl->DminCL - clB) / clM;
    const float rise = powf(flt_abs((al - alDmin) / (10.0f - alDmin)), afl->Dpow);
    return afl->Dmin + (afl->Dal10 - afl->Dmin) * rise - bucket_drag(al, afl, clM, clB);
}

float ret_cm(float al, const afl_struct* afl) {
    if (fltrange(al, -al_curve, afl->cmal2)) return extrap(-al_curve, afl->cm1, afl->cmal2, afl->cm2, al);
    if (fltrange(al, afl->cmal2, afl->cmal3)) return extrap(afl->cmal2, afl->cm2, afl->cmal3, afl->cm3, al);
    if (fltrange(al, afl->cmal3, al_curve)) return extrap(afl->cmal3, afl->cm3, al_curve, afl->cm4, al);
    return 0.0f;
}

// Lift over the full circle. Where two ranges touch, the one further down stands.
static float table_cl(float al, const afl_struct* afl, int RT, int Re, float cl_m20, float cl_p20) {
    float cl = 0.0f;
    if (fltrange(al, -20, 20)) cl = ret_cl(al, afl, RT, Re);
    if (fltrange(al, -180, -160)) cl = ret_cl(180.0f + al, afl, RT, Re) * cl_rat;
    if (fltrange(al, -160, -135)) {
        const float c = cl_rat * cl_p20;
        cl = c + (cl_plate - c) * sin_deg((al + 160.0f) * 3.6f);
    }
    if (fltrange(al, -135, -45)) cl = cl_plate * sin_deg(2.0f * al);
    if (fltrange(al, -45, -20)) cl = cl_m20 + (cl_m20 + cl_plate) * sin_deg((al + 20.0f) * 3.6f);
    if (fltrange(al, 20, 45)) cl = cl_p20 + (cl_plate - cl_p20) * sin_deg((al - 20.0f) * 3.6f);
    if (fltrange(al, 45, 135)) cl = cl_plate * sin_deg(2.0f * al);
    if (fltrange(al, 135, 160)) {
        const float c = cl_rat * cl_m20;
        cl = c + (c + cl_plate) * sin_deg((al - 160.0f) * 3.6f);
    }
    if (fltrange(al, 160, 180)) cl = ret_cl(al - 180.0f, afl, RT, Re) * cl_rat;
    return cl;
}

// Drag outside the parameter curves: from a parabola near them to the sine of a flat plate.
static float table_cd(float al, const afl_struct* afl, int RT, int Re, float cd_m20, float cd_p20) {
    const float cd_rat_use = flt_abs(al) > 90.0f ? cd_rat : 1.0f;
    const float alpha_use = al > 90.0f ? 180.0f - al : al < -90.0f ? -180.0f - al : al;
    if (flt_abs(al) >= 160.0f) return ret_cd(alpha_use, afl, RT, Re) * cd_rat_use;

    const float steep = flt_abs(alpha_use);
    const float start = (alpha_use > 0.0f ? cd_p20 : cd_m20) * cd_rat_use;
    const float d_sincurve = cd_plate * sin_deg(steep);
    const float d_parabola = extrap(0.0f, start, 1.0f, cd_plate, sqr((steep - al_curve) / 70.0f));
    return extrap(al_curve, d_parabola, 90.0f, d_sincurve, steep);
}

int gen_polar_tables(afl_struct* afl, int RT, int Re) {
    const float cl_p20 = ret_cl(al_curve, afl, RT, Re), cl_m20 = ret_cl(-al_curve, afl, RT, Re);
    const float cd_p20 = ret_cd(al_curve, afl, RT, Re), cd_m20 = ret_cd(-al_curve, afl, RT, Re);
    const float cm_p20 = ret_cm(al_curve, afl), cm_m20 = ret_cm(-al_curve, afl);

    int failed = 0;
    for (int i = 0; i < aflDIM; ++i) {
        const float al = ret_alpha(i);
        const float cl = table_cl(al, afl, RT, Re, cl_m20, cl_p20);
        float cd, cm;
        if (fltrange(al, -al_curve, al_curve)) {
            cd = ret_cd(al, afl, RT, Re);
            cm = ret_cm(al, afl);
        } else {
            cd = table_cd(al, afl, RT, Re, cd_m20, cd_p20);
            const float cm_plate = -sin_deg(al) * cd * 0.25f;  // the force acts at half chord
            cm = interp(al_curve, al > 0.0f ? cm_p20 : cm_m20, 45.0f, cm_plate, flt_abs(al));
        }
        failed |= check_nan(cl) | check_nan(cd) | check_nan(cm);
        afl->cl[RT][Re][i] = cl;
        afl->cd[RT][Re][i] = cd;
        afl->cm[RT][Re][i] = cm;
    }
    return !failed;
}

void gen_cl_cd_cm(afl_struct* afl, int RT, int Re) {
    if (!gen_polar_tables(afl, RT, Re))
        MACIBM_alert(mnw.top_win, "I have generated a NAN value for this aifoil:", afl_bad_parameter_text, "",
                     "", alert_fatal);
}
