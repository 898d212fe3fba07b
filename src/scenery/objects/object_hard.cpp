// Solid surfaces of objects: what makes a roof or a deck the ground under the user's aircraft.
#include "scenery/objects/object_hard.h"

#include "core/math/geo3.h"
#include "core/program/alert.h"
#include "core/records/env.h"
#include "core/records/flt.h"
#include "core/records/net.h"
#include "scenery/objects/objects.h"

namespace {
constexpr int surface_hard_object = 107;

// Inner side of all four edges, or on one; clockwise seen from above, x east and z south.
bool inside_cw_reg_vecs(const vec_act_struct* corner, double x, double z) {
    for (int i = 0; i < 4; ++i) {
        const float *a = corner[i].dat, *b = corner[(i + 1) % 4].dat;
        if (!inside_cw_edge(a[0], a[2], b[0], b[2], x, z)) return false;
    }
    return true;
}

bool has_corners(const std::vector<vec_act_struct>& acts, size_t C) {
    constexpr size_t first = 2, last = 5;
    if (C + last >= acts.size()) return false;
    for (size_t i = C + first; i <= C + last; ++i)
        if (acts[i].act != obj_vert_tex) return false;
    return true;
}
}  // namespace

void poly_hard(int M, int L, int C, float x, float y, float z) {
    if (net.getting_terrain) return;
    const std::vector<vec_act_struct>& acts = vec_mod[M].vec_lod[L].vec_act;
    if (!has_corners(acts, static_cast<size_t>(C))) {
        MACIBM_data_fault("Too many C-indices for the hardpol!", "", "", "");
        return;
    }
    const vec_act_struct* const corner = &acts[C + 2];
    if (!inside_cw_reg_vecs(corner, flt[0].dob_x - x, flt[0].dob_z - z)) return;
    env.over_obs_this = 1;
    env.obj_y_top = corner->dat[1] + y;
    env.surf_tex = surface_hard_object;
}

void object_hard_quads(int M, int L, float x, float y, float z) {
    const std::vector<vec_act_struct>& acts = vec_mod[M].vec_lod[L].vec_act;
    for (size_t C = 0; C < acts.size(); ++C)
        if (acts[C].act == obj_quad_hard) poly_hard(M, L, static_cast<int>(C), x, y, z);
}
