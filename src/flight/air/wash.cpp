// Slipstream of discs over wings and bodies.
#include "flight/air/wash.h"

#include "aircraft/design/exists.h"
#include "core/math/axes.h"
#include "core/records/records.h"
#include "flight/force/trace.h"

wash_list find_washes() {
    wash_list list;
    list.count = 0;
    const flt_struct& f = flt[0];
    for (int en = 0; en < veh[0].num_thrustpoints; ++en) {
        const int type = veh[0].engn[en].prop_type;
        if (fabsf(f.engn[en].DVinc) <= 0.01f) continue;
        if (type == prop_tail_rotor || type == prop_lift_fan || !has_this_thru(0, en, 6)) continue;
        wash_struct& w = list.wash[list.count++];
        w.en = en;
        disc_to_veh(0.0f, 0.0f, f.engn[en].DVinc, &w.was_inc[0], &w.was_inc[1], &w.was_inc[2], 0, en);
        w.was_vec[0] = f.vx_air_on_acf + w.was_inc[0];
        w.was_vec[1] = f.vy_air_on_acf + w.was_inc[1];
        w.was_vec[2] = f.vz_air_on_acf + w.was_inc[2];
        w.was_len = pythag(w.was_vec[0], w.was_vec[1], w.was_vec[2]);
        w.rad = veh[0].wing[en].semilen_SEG;
        w.is_rotor = type == prop_collective || type == prop_governed_rotor;
    }
    return list;
}

// The swirl goes up on one side of the wash and down on the other: its sign for an element that lies
// rel_vec off the axis.
static float swirl_sign(int en, int prop_en, const float rel_vec[3]) {
    const flt_wing_struct& flow = flt[0].wing[en];
    const float dihed = fabsf(veh[0].wing[en].dihednow);
    float s = veh[0].engn[prop_en].prop_dir < 0.0f ? -1.0f : 1.0f;
    const bool flat = dihed < 45.0f || dihed > 135.0f;
    if (flat ? rel_vec[0] * flow.cos_act_dihed > 0.0f : rel_vec[1] * flow.sin_act_dihed > 0.0f) s = -s;
    return s;
}

// m/s. As given: full to three quarters of the disc's radius, none from five quarters; swirl grows with the
// distance.
static void add_one_wash(const wash_struct& w, int en, const float place[3], float* axilv, float* normv) {
    constexpr float no_length = 1e-6f;  // below it a direction has no meaning
    const flt_engn_struct& engn = flt[0].engn[w.en];
    const float geo[3] = {place[0] - engn.XYZ[0], place[1] - engn.XYZ[1], place[2] - engn.XYZ[2]};

    // a lift rotor's wash is followed downward, a propeller's aft
    const int axis = fabsf(geo[2]) > fabsf(geo[1]) ? 2 : 1;
    const bool behind_prop = sign(geo[axis]) == sign(w.was_vec[axis]);
    if (!behind_prop) return;

    const float nrm_len =
        pythag(geo[1] * w.was_vec[2] - geo[2] * w.was_vec[1], geo[2] * w.was_vec[0] - geo[0] * w.was_vec[2],
               geo[0] * w.was_vec[1] - geo[1] * w.was_vec[0]);
    const float side_dis_mtr = w.was_len < no_length ? 0.0f : nrm_len / w.was_len;
    if (!(side_dis_mtr < w.rad)) return;

    const float prop_wash_rat = interp(0.75f, 1.0f, 1.25f, 0.0f, side_dis_mtr / w.rad);
    *axilv += w.was_inc[2] * prop_wash_rat;

    const float geo_len = pythag(geo[0], geo[1], geo[2]);
    float swirl = 0.0f;
    if (geo_len >= no_length && w.was_len >= no_length) {
        // from the nearest point of the wash axis to the element
        const float was_off_rad = asinf(fltmin2(side_dis_mtr / geo_len, 1.0f));
        const float rat_was_vec = cosf(was_off_rad) * geo_len / w.was_len;
        const float rel_vec[3] = {geo[0] - w.was_vec[0] * rat_was_vec, geo[1] - w.was_vec[1] * rat_was_vec,
                                  geo[2] - w.was_vec[2] * rat_was_vec};
        swirl = engn.side_wash * side_dis_mtr / w.rad * swirl_sign(en, w.en, rel_vec);
        *normv += swirl;
    }
    if (mnw.cyc_out) [[unlikely]]
        trace_values("slipstream", {{"disc", static_cast<float>(w.en)},
                                    {"axial m/s", w.was_inc[2] * prop_wash_rat},
                                    {"swirl m/s", swirl}});
}

void add_wash_to_element(const wash_list& washes, int en, const float place[3], float* axilv, float* normv) {
    for (int i = 0; i < washes.count; ++i) add_one_wash(washes.wash[i], en, place, axilv, normv);
}

void add_wash_to_body(const wash_list& washes, int en, float vel[3]) {
    const veh_part_struct& body = veh[0].part[en];
    for (int i = 0; i < washes.count; ++i) {
        const wash_struct& w = washes.wash[i];
        if (w.is_rotor) continue;
        const veh_part_struct& disc = veh[0].part[w.en];
        const float dx_en_to_prop = body.aero_x_os - disc.part_x;
        const float dy_en_to_prop = body.aero_y_os - disc.part_y;
        const float dz_en_to_prop = body.aero_z_os - disc.part_z;
        if (dz_en_to_prop > 0.0f && pythag(dx_en_to_prop, dy_en_to_prop) < w.rad)
            for (int axis = 0; axis < 3; ++axis) vel[axis] += w.was_inc[axis];
    }
}
