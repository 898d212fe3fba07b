// Segments to wings: joining, planform, efficiency, and the ratios by which the section tables serve
// for a wing of finite span.
#include "aircraft/derive/finite_wing.h"

#include <cmath>

#include "aircraft/derive/derive.h"
#include "aircraft/derive/oswald.h"
#include "aircraft/design/location.h"
#include "aircraft/file/acf_fault.h"
#include "aircraft/file/acf_layout.h"
#include "core/math/num.h"
#include "core/program/logs.h"

namespace {

// One end of a segment, or of the wing that joined segments make: quarter chord, chord, incidence.
struct wing_end {
    float x, y, z;
    float chord;
    float inc;
};
struct wing_ends {
    wing_end root, tip;
};
struct planform_struct {
    float sweep_25_mac, sweep_00_mac;  // of the quarter chord and of the leading edge, degrees
    float washout;                     // degrees
};

bool near_flat(int p, int en) { return flt_abs(veh[p].wing[en].dihed1) < 45.0f; }

wing_ends segment_ends(int p, int en) {
    const veh_wing_struct& wing = veh[p].wing[en];
    const auto end = [&](float el, float chord, float inc) {
        return wing_end{get_el_base_loc(p, en, el, 'X'), get_el_base_loc(p, en, el, 'Y'),
                        get_el_base_loc(p, en, el, 'Z'), chord, inc};
    };
    return {end(0.0f, wing.Croot, wing.incidence[0]),
            end(static_cast<float>(wing.els), wing.Ctip, wing.incidence[wing.els - 1])};
}

bool meet(const wing_end& a, const wing_end& b, float distance) {
    return flt_abs(a.x - b.x) < distance && flt_abs(a.y - b.y) < distance && flt_abs(a.z - b.z) < distance;
}

// Grows wing en over the segments that go on where it ends. As many passes as there are surfaces, so
// that a chain of any length and order collapses.
wing_ends join_segments(int en, const wing_ends* segments, const bool* exists) {
    wing_ends wing = segments[en];
    for (int pass = part_wing_first; pass <= part_wing_last; ++pass) {
        if (!exists[pass]) continue;
        for (int sen = part_wing_first; sen <= part_wing_last; ++sen) {
            if (sen == en || !exists[sen]) continue;
            if (meet(segments[sen].tip, wing.root, 0.1f * wing.root.chord)) wing.root = segments[sen].root;
            if (meet(segments[sen].root, wing.tip, 0.1f * wing.tip.chord)) wing.tip = segments[sen].tip;
        }
    }
    return wing;
}

planform_struct derive_planform(int p, int en, const wing_ends& ends) {
    const wing_end &root = ends.root, &tip = ends.tip;
    veh_wing_struct& wing = veh[p].wing[en];
    constexpr float span_min = 1.0e-6f;
    const float dz_25 = tip.z - root.z;
    const float dz_00 = (tip.z - 0.25f * tip.chord) - (root.z - 0.25f * root.chord);
    const float span_25_mac = fltmax2(pythag(tip.x - root.x, tip.y - root.y, dz_25), span_min);
    const float span_00_mac = fltmax2(pythag(tip.x - root.x, tip.y - root.y, dz_00), span_min);

    planform_struct plan;
    plan.sweep_25_mac = asin_deg(dz_25 / span_25_mac);
    plan.sweep_00_mac = asin_deg(dz_00 / span_00_mac);
    plan.washout = en <= part_thru_last ? 0.0f : root.inc - tip.inc;  // a blade's twist is no washout

    wing.semilen_JND = span_25_mac;
    wing.TR = tip.chord / root.chord;
    const float mean_chord = fltmax2(0.5f * (root.chord + tip.chord), 0.001f);
    wing.AR = fltmax2(2.0f * wing.semilen_JND / mean_chord, 0.5f);
    // moves the aerodynamic centre from quarter to half chord; as given, by sweep, taper and aspect ratio
    wing.delta_fac = interp(65.0f, 1.0f, 0.0f, 0.0f, plan.sweep_00_mac) *
                     interp(0.0f, 1.0f, 1.0f, 0.0f, wing.TR) * interp(0.5f, 1.0f, 10.0f, 0.0f, wing.AR);
    return plan;
}

bool is_biplane_pair(int p, int en, int sen) {
    const veh_wing_struct &wing = veh[p].wing[en], &other = veh[p].wing[sen];
    const veh_part_struct &part = veh[p].part[en], &opart = veh[p].part[sen];
    const float Ctip = fltmin2(wing.Ctip, other.Ctip), Ctip_max = fltmax2(wing.Ctip, other.Ctip);
    const float dx = flt_abs(part.part_x - opart.part_x);
    const float dy = flt_abs(part.part_y - opart.part_y);
    const float dz = flt_abs(part.part_z - opart.part_z);
    return near_flat(p, en) && near_flat(p, sen) && flt_abs(wing.dihed1 - other.dihed1) < 10.0f &&  //
           dx < Ctip &&                                                                             //
           flt_abs(wing.semilen_SEG - other.semilen_SEG) < 2.0f * Ctip &&                           //
           dy > 0.1f * Ctip_max && dy < 2.0f * Ctip &&                                              //
           dy > dx && dz < dy;
}

// Efficiency of two wings over each other, by Munk's and Prandtl's factor of mutual induced drag.
float biplane_e(int p, int en, int sen) {
    const float s1 = fltmax2(veh[p].wing[en].semilen_SEG, 1.0e-6f);
    const float s2 = fltmax2(veh[p].wing[sen].semilen_SEG, 1.0e-6f);
    const float gamma = flt_abs(veh[p].part[en].part_y - veh[p].part[sen].part_y) / (s1 + s2);
    const float sigma = 0.9962f + gamma * (-4.896f + gamma * (17.98f + gamma * (-37.8f + gamma * 31.0f)));
    const float mu = fltmin2(s1, s2) / fltmax2(s1, s2);
    return fltmax2(2.0f * sqr(mu) / (sqr(mu) + 2.0f * sigma * mu + 1.0f), 0.5f);
}

void derive_efficiency(int p, int en, const planform_struct& plan, const bool* exists) {
    veh_wing_struct& wing = veh[p].wing[en];
    wing.e = ret_e(wing.AR, plan.washout, plan.sweep_25_mac, wing.TR);
    if (en >= part_wing_first && en <= part_wing_last)
        for (int sen = part_wing_first; sen <= part_wing_last; ++sen)
            if (sen != en && exists[sen] && is_biplane_pair(p, en, sen)) wing.e = biplane_e(p, en, sen);
    if (en <= part_thru_last && veh[p].engn[en].is_ducted) {
        wing.e = 1.0f;  // the duct keeps the blade tips from losing lift
        wing.AR *= 10.0f;
    }
}

// Splits the loss of lift slope in two: the tables are read at a lower alpha and the result is scaled,
// the alpha by twice as much. The whole is the lifting line's; as given the section's slope is 18 / pi, and
// the moment has the factor of a swept wing. In double, since both ratios come close to 1 for slender wings.
// 0 when the split does not give back the whole.
int derive_ratios(int p, int en, const planform_struct& plan) {
    veh_wing_struct& wing = veh[p].wing[en];
    const double a0_theo = 18.0 / con.pi;
    const double ls_D_ls0 = 1.0 / (a0_theo / (con.pi * static_cast<double>(wing.e) * wing.AR) + 1.0);
    const double cl_D_cl0 = (sqrt(8.0 * ls_D_ls0 + 1.0) + 1.0) / 4.0;
    const double al_D_al0 = ls_D_ls0 / cl_D_cl0;
    wing.cl_D_cl0 = static_cast<float>(cl_D_cl0);
    wing.al_D_al0 = static_cast<float>(al_D_al0);
    const float cos_sweep = cos_deg(plan.sweep_25_mac);
    wing.cm_D_cm0 = sqr(cos_sweep) * wing.AR / (2.0f * cos_sweep + wing.AR);
    wing.alpha_max /= wing.al_D_al0;

    const bool whole = fabs(al_D_al0 * cl_D_cl0 - ls_D_ls0) < 0.01;
    // (1 - al_D_al0) / (1 - cl_D_cl0) is 2, without the division, which a wing without loss would fail
    const bool split = fabs((1.0 - al_D_al0) - 2.0 * (1.0 - cl_D_cl0)) <= 0.01 * (1.0 - cl_D_cl0);
    return whole && split;
}

void report_wing(int p, int en, const wing_ends& ends, const planform_struct& plan) {
    if (!in_report(p)) return;
    const veh_wing_struct& wing = veh[p].wing[en];
    cyc << "surface " << en << " " << part_title(en) << ": root (" << ends.root.x << ", " << ends.root.y
        << ", " << ends.root.z << ") chord " << ends.root.chord << ", tip (" << ends.tip.x << ", "
        << ends.tip.y << ", " << ends.tip.z << ") chord " << ends.tip.chord << '\n'
        << "    element length " << wing.element_len << ", semi-length " << wing.semilen_JND << ", sweep "
        << plan.sweep_25_mac << ", of the leading edge " << plan.sweep_00_mac << ", washout " << plan.washout
        << ", taper " << wing.TR << ", aspect ratio " << wing.AR << '\n'
        << "    e " << wing.e << ", cl ratio " << wing.cl_D_cl0 << ", alpha ratio " << wing.al_D_al0
        << ", cm ratio " << wing.cm_D_cm0 << ", delta factor " << wing.delta_fac << ", stall alpha "
        << wing.alpha_max << '\n';
}

}  // namespace

int derive_finite_wings(int p) {
    wing_ends segments[wingDIM] = {};
    bool exists[wingDIM];
    for (int en = 0; en < wingDIM; ++en) {
        exists[en] = has_this_wing(p, en);
        if (exists[en]) segments[en] = segment_ends(p, en);
    }
    for (int en = 0; en < wingDIM; ++en) {
        if (!exists[en]) continue;
        const bool can_join = en >= part_wing_first && en <= part_wing_last;
        wing_ends ends = can_join ? join_segments(en, segments, exists) : segments[en];
        if (near_flat(p, en)) ends.root.x = 0.0f;  // the fuselage is part of such a wing

        const planform_struct plan = derive_planform(p, en, ends);
        const bool numbers = std::isfinite(veh[p].wing[en].AR + veh[p].wing[en].TR + plan.washout +
                                           plan.sweep_25_mac + plan.sweep_00_mac);
        if (numbers) derive_efficiency(p, en, plan, exists);
        if (!numbers || !derive_ratios(p, en, plan)) {
            ACF_fault(p, "Finite wing reduction fail!", veh[p].name, part_title(en), "");
            return 0;
        }
        report_wing(p, en, ends, plan);
    }
    return 1;
}
