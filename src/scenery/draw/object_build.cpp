// Objects as they are loaded: file, textures, display lists.
#include <algorithm>

#include "core/alert.h"
#include "core/paths.h"
#include "draw/ogl.h"
#include "draw/tman.h"
#include "platform/window_x11.h"
#include "scenery/draw/object_draw.h"
#include "scenery/library.h"
#include "scenery/object_file.h"

std::vector<vec_mod_struct> vec_mod;
std::unordered_map<std::string, int> vec_mod_index;

void clear_objects() {
    vec_mod.clear();
    vec_mod_index.clear();
}

namespace {
// -- textures

// 0 when there is none.
int load_object_texture(const std::string& folder, const std::string& name, bool tell) {
    std::string path;
    DSF_LocateResourceSecondary(resource_image, resource_object, folder, name, tell, path);
    return path.empty() ? 0 : tman.load_texture(0, load_ogl, tex_free, filter_auto, path);
}

void load_object_textures(const std::string& folder, const std::string& name, vec_mod_struct* mod) {
    if (cx) OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
    mod->tex_ref_1 = load_object_texture(folder, name + ".png", true);
    if (mod->tex_ref_1 == 0) mod->tex_ref_1 = tex_blank;
    mod->tex_ref_2 = load_object_texture(folder, name + "_LIT.png", false);
    if (mod->tex_ref_2 == 0) mod->tex_ref_2 = load_object_texture(folder, name + "LIT.png", false);
}

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

void hold_places(vec_lod_struct* lod) {
    constexpr int black = 0, dark = 40, white = 255;
    lod->binds_in_list = has_command(*lod, obj_quad_cockpit);
    if (lod->binds_in_list) {
        hold_place_of(tex_cockpit_3d, dark);
        hold_place_of(tex_cockpit_3d_alpha, white);
    }
    if (has_command(*lod, obj_quad_movie)) hold_place_of(tex_movie, black);
}

void compile_lists(int M) {
    for (size_t L = 0; L < vec_mod[M].vec_lod.size(); ++L) {
        hold_places(&vec_mod[M].vec_lod[L]);
        for (const int lit : {0, 1})
            plot_obj(M, static_cast<int>(L), 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, lit, plot_compile);
    }
    tman.reset_bind();
    OGL_setstate(fog_off, 0, lit_off, al_none, depth_no_read, depth_no_write);
}
}  // namespace

int build_obs(const std::string& hard_path, int) {
    const std::string path = below_install_folder(hard_path);
    const auto known = vec_mod_index.find(path);
    if (known != vec_mod_index.end()) return known->second;

    vec_mod_struct mod;
    std::string texture;
    mod.path = path;
    if (read_object_file(app_path + path, &mod, &texture) != object_good) return -1;
    load_object_textures(folder_of(app_path + path), texture, &mod);
    find_object_bounds(&mod);
    check_object(mod);
    find_object_normals(&mod);

    const int M = static_cast<int>(vec_mod.size());
    vec_mod.push_back(std::move(mod));
    vec_mod_index[path] = M;
    if (cx) compile_lists(M);
    for (vec_lod_struct& lod : vec_mod[M].vec_lod) keep_object_actions(&lod);
    return M;
}

int build_obs_lib(std::string path) {
    if (!DSF_LookupLibraryResource(path)) return -1;
    return build_obs(path, 1);
}
