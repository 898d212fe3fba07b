// Object files, from the text to the actions that are left of it: the first byte tells a whole file from
// commands behind a good header. No textures, no OpenGL.

#include "core/math/num.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "scenery/objects/object_file.h"
#include "scenery/objects/object_hard.h"
#include "support.h"

namespace {
using fuzzing::must;

bool is_primitive(int code) { return intrange(code, obj_light, obj_tri_fan); }
bool is_vertex(int code) { return intrange(code, obj_vert_light, obj_vert_movie); }
bool is_closing(int code) { return intrange(code, obj_end_light, obj_end_cockpit); }

// What OpenGL is asked for: primitives that open and close, vertices inside them, attributes outside.
void check_commands(const vec_lod_struct& lod) {
    bool open = false;
    for (const vec_act_struct& act : lod.vec_act) {
        for (const float value : act.dat) must(std::isfinite(value));
        must(is_display_command(act.act) || is_action_command(act.act));
        if (is_primitive(act.act)) {
            must(!open);
            open = true;
        } else if (is_closing(act.act)) {
            must(open);
            open = false;
        } else {
            const bool inside = is_vertex(act.act) || act.act == obj_normal;
            const bool anywhere = act.act == obj_smoke_black || act.act == obj_smoke_white;
            must(anywhere || inside == open);
        }
        if (act.act == obj_normal) must(std::fabs(pythag(act.dat[0], act.dat[1], act.dat[2]) - 1.0f) < 1e-5f);
    }
    must(!open);
}

void check_actions(const vec_lod_struct& lod) {
    int of_hard = 0;
    for (const vec_act_struct& act : lod.vec_act) {
        must(is_action_command(act.act) || of_hard-- > 0);
        if (act.act == obj_quad_hard) of_hard = 5;
    }
}
}  // namespace

void fuzz_obj(fuzzing::input& in) {
    mnw.x_res_now = 1024;
    ren.FOV = 45.0f;
    static const fuzzing::folder folder;
    const std::string header = in.byte() & 1 ? "I\n700\nOBJ\nbricks\n" : "";
    const std::string path = folder.write("a.obj", header + in.text());

    vec_mod_struct mod;
    std::string texture;
    mod.path = "a.obj";  // one name, so that the faults shown stay few
    if (read_object_file(path, &mod, &texture) != object_good) return;
    find_object_bounds(&mod);
    check_object(mod);
    find_object_normals(&mod);
    must(mod.cull_radius >= 0.0f && std::isfinite(mod.cull_radius));
    for (vec_lod_struct& lod : mod.vec_lod) {
        must(lod.dis_far_sqr >= 0.0f && std::isfinite(lod.dis_far_sqr));
        check_commands(lod);
        keep_object_actions(&lod);
        check_actions(lod);
    }
    const int levels = static_cast<int>(mod.vec_lod.size());
    vec_mod.assign(1, std::move(mod));
    for (int L = 0; L < levels; ++L) object_hard_quads(0, L, 0.0f, 0.0f, 0.0f);
}
