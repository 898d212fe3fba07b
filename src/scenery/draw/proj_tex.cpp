// Generation of texture coordinates, unit by unit. Nothing else changes it, so that what is set already is
// known.
#define GL_GLEXT_PROTOTYPES
#include "scenery/draw/proj_tex.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <string.h>

#include <algorithm>

#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/ren.h"
#include "draw/gl/frame_counts.h"
#include "platform/window.h"

namespace {
struct generated_struct {
    bool s, t, q;  // generated now
    float plane_s[4], plane_t[4], plane_q[4];
};
struct units_struct {
    generated_struct unit[most_ground_units] = {};
    int generation = 0;  // of the window whose state this is
};
units_struct now;

generated_struct& state_of(int unit) {
    if (now.generation != window_generation) now = {{}, window_generation};
    return now.unit[unit];
}

void put(GLenum axis, GLenum axis_switch, bool wanted, bool* on, const float (&plane)[4], float (&known)[4]) {
    if (*on != wanted) {
        ++frame_counts.states;
        *on = wanted;
        wanted ? glEnable(axis_switch) : glDisable(axis_switch);
        if (wanted) glTexGeni(axis, GL_TEXTURE_GEN_MODE, GL_OBJECT_LINEAR);
    } else if (!wanted || std::equal(plane, plane + 4, known)) {
        return;
    }
    if (!wanted) return;
    ++frame_counts.states;
    glTexGenfv(axis, GL_OBJECT_PLANE, plane);
    memcpy(known, plane, sizeof plane);
}
}  // namespace

void set_proj_tex(int pt, int tex_unit, const ogl_proj_struct* coords, int ref) {
    if (!intrange(tex_unit, 0, intmin2(ren.num_tex_units, most_ground_units) - 1)) return;
    generated_struct& state = state_of(tex_unit);
    proj_planes_struct planes;
    const bool on = find_proj_planes(pt, coords, ref, &planes);
    if (!on && !state.s) return;
    if (tex_unit != 0) glActiveTexture(GL_TEXTURE0 + static_cast<GLenum>(tex_unit));
    put(GL_S, GL_TEXTURE_GEN_S, on, &state.s, planes.s, state.plane_s);
    put(GL_T, GL_TEXTURE_GEN_T, on && planes.has_t, &state.t, planes.t, state.plane_t);
    put(GL_Q, GL_TEXTURE_GEN_Q, on && planes.has_q, &state.q, planes.q, state.plane_q);
    if (tex_unit != 0) glActiveTexture(GL_TEXTURE0);
}

void end_projections() {
    for (int unit = 0; unit < most_ground_units; ++unit) set_proj_tex(proj_none, unit, nullptr);
}
