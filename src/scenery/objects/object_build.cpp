// Objects as they are loaded: file, textures, and display lists where something draws.
#include "scenery/objects/object_build.h"

#include "core/disk/paths.h"
#include "draw/images/tman.h"
#include "scenery/objects/object_file.h"
#include "scenery/packages/library.h"
#include "scenery/seam/scenery_draw.h"

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
    return path.empty() ? 0 : scenery_draw.load_texture(path, filter_auto);
}

void load_object_textures(const std::string& folder, const std::string& name, vec_mod_struct* mod) {
    mod->tex_ref_1 = load_object_texture(folder, name + ".png", true);
    if (mod->tex_ref_1 == 0) mod->tex_ref_1 = tex_blank;
    mod->tex_ref_2 = load_object_texture(folder, name + "_LIT.png", false);
    if (mod->tex_ref_2 == 0) mod->tex_ref_2 = load_object_texture(folder, name + "LIT.png", false);
}
}  // namespace

int build_obs(const std::string& hard_path, int) {
    const std::string path = below_install_folder(hard_path);
    const auto known = vec_mod_index.find(path);
    if (known != vec_mod_index.end()) return known->second;

    vec_mod_struct mod;
    std::string texture;
    mod.path = path;
    const object_read result = read_object_file(app_path + path, &mod, &texture);
    if (result == object_broken) vec_mod_index[path] = -1;  // it is read, and told, no second time
    if (result != object_good) return -1;
    load_object_textures(folder_of(app_path + path), texture, &mod);
    find_object_bounds(&mod);
    check_object(mod);
    find_object_normals(&mod);

    const int M = static_cast<int>(vec_mod.size());
    vec_mod.push_back(std::move(mod));
    vec_mod_index[path] = M;
    scenery_draw.compile_object(M);
    for (vec_lod_struct& lod : vec_mod[M].vec_lod) keep_object_actions(&lod);
    return M;
}

int build_obs_lib(std::string path) {
    if (!DSF_LookupLibraryResource(path)) return -1;
    return build_obs(path, 1);
}
