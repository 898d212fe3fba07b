// Display lists of an object, and the pictures that they bind.
#include "scenery/draw/object_lists.h"

#include <algorithm>

#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "platform/window_x11.h"
#include "scenery/draw/object_draw.h"
#include "scenery/objects/objects.h"

namespace {
// A picture that is filled while the program runs may not be there yet, but what binds it must find one:
// small and of one grey.
void hold_place_of(int ref, int grey) {
    constexpr int side = 2;
    if (tman.tex_vram(ref) != 0) return;
    scratch_dx = scratch_dy = side;
    for (int i = 0; i < side * side * 4; ++i)
        scratch_array[i] = static_cast<unsigned char>(i % 4 == 3 ? 255 : grey);
    tman.load_texture(0, load_ogl, ref, filter_rgba, scratch_name);
}

// -- lists

bool has_command(const vec_lod_struct& lod, int code) {
    return std::any_of(lod.vec_act.begin(), lod.vec_act.end(),
                       [code](const vec_act_struct& act) { return act.act == code; });
}

// A primitive of n corners is n - 2 triangles, one of single triangles or quads a third or half as many as it
// has corners.
int triangles_of(const vec_lod_struct& lod) {
    int shape = obj_none, corners = 0, triangles = 0;
    for (const vec_act_struct& act : lod.vec_act) {
        if (act.act == obj_vert_tex) ++corners;
        if (act.act >= obj_tri && act.act <= obj_tri_fan) shape = act.act, corners = 0;
        if (act.act != obj_end_poly) continue;
        const bool apart = shape <= obj_quad_hard;
        triangles += shape == obj_tri ? corners / 3 : apart ? corners / 2 : corners > 2 ? corners - 2 : 0;
        corners = 0;
    }
    return triangles;
}

void hold_places(vec_lod_struct* lod) {
    constexpr int black = 0, dark = 40, white = 255;
    lod->binds_in_list = has_command(*lod, obj_quad_cockpit);
    if (lod->binds_in_list) {
        hold_place_of(tex_cockpit_3d, dark);
        hold_place_of(tex_cockpit_3d_alpha, white);
    }
    if (has_command(*lod, obj_quad_movie)) hold_place_of(tex_movie, black);
}
}  // namespace

void compile_object_lists(int M) {
    if (!cx) return;
    for (size_t L = 0; L < vec_mod[M].vec_lod.size(); ++L) {
        hold_places(&vec_mod[M].vec_lod[L]);
        vec_mod[M].vec_lod[L].triangles = triangles_of(vec_mod[M].vec_lod[L]);
        for (const int lit : {0, 1})
            plot_obj(M, static_cast<int>(L), 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, lit, plot_compile);
    }
    tman.reset_bind();
    OGL_setstate(fog_off, 0, lit_off, al_none, depth_no_read, depth_no_write);
}
