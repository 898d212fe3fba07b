// Overall coefficients: results of the element sums, for display only.
#include "flight/air/display_coeffs.h"

#include "aircraft/design/exists.h"
#include "core/math/num.h"
#include "core/program/logs.h"
#include "core/records/records.h"

namespace {
struct reference {
    float S = 0.0f, B = 0.0f, C = 0.0f;  // area m2, span m, chord m
};

reference reference_sizes() {
    reference ref;
    int n_ref = 0;
    for (int en = part_wing_first; en <= part_wing_last; ++en) {
        const veh_wing_struct& w = veh[0].wing[en];
        if (!has_this_wing(0, en) || !(fabsf(w.dihednow) < 45.0f)) continue;
        const flt_wing_struct& now = flt[0].wing[en];
        const float mean_chord = 0.5f * (w.Croot + w.Ctip);
        ++n_ref;
        ref.B = fltmax2(
            ref.B, 2.0f * (w.semilen_SEG * now.cos_act_sweep * now.cos_act_dihed + veh[0].part[en].part_x));
        ref.C += mean_chord;
        ref.S += w.semilen_SEG * now.cos_act_sweep * mean_chord;
    }
    if (n_ref) ref.C /= n_ref;
    return ref;
}

// A quotient for display: 0 at rest, without wings or without drag.
float quotient(float a, float b) { return fabsf(b) < 1e-6f ? 0.0f : a / b; }

// The attitude was kicked by one degree; what moment does it make?
void stability_report(const reference& ref) {
    const flt_struct& f = flt[0];
    if (msc.stab_ptch_test == 1) {
        cyc << "Pitch stability derivative is: Cm =  M / (Sref * Cref * Q).\n"
            << "M " << f.M << " Sref " << ref.S << " Cref " << ref.C << " Q " << f.Qstatic << " Cm " << f.C_m
            << '\n';
        msc.stab_ptch_test = 0;
    }
    if (msc.stab_hdng_test == 1) {
        cyc << " Yaw  stability derivative is: Cn =  N / (Sref * Bref * Q).\n"
            << "N " << f.N << " Sref " << ref.S << " Bref " << ref.B << " Q " << f.Qstatic << " Cn " << f.C_n
            << '\n';
        msc.stab_hdng_test = 0;
    }
}
}  // namespace

void display_coefficients() {
    flt_struct& f = flt[0];
    const reference ref = reference_sizes();
    f.lift_path_axis = f.fnrml_aero_acf * f.cos_alph - f.faxil_aero_acf * f.sin_alph;
    f.side_path_axis = f.fside_aero_acf * f.cos_beta - f.faxil_aero_acf * f.sin_beta;
    f.drag_path_axis =
        f.fside_aero_acf * f.sin_beta + f.faxil_aero_acf * f.cos_alph + f.fnrml_aero_acf * f.sin_alph;
    const float force = f.Qstatic * ref.S;
    f.C_m = quotient(f.M, force * ref.C);
    f.C_n = quotient(f.N, force * ref.B);
    f.cl_overall = quotient(f.lift_path_axis, force);
    f.cd_overall = quotient(f.drag_path_axis, force);
    f.l_o_d = quotient(f.lift_path_axis, f.drag_path_axis);
    stability_report(ref);
}
