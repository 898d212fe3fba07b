// Definitions of a tile: what its terrain, objects, polygons and networks are. A definition that fails keeps
// its index, so that those behind it stay right.
#include "scenery/tile/tile_defs.h"

#include <stdlib.h>
#include <string.h>
#include <strings.h>

#include "core/disk/paths.h"
#include "core/program/alert.h"
#include "draw/images/tman.h"
#include "scenery/objects/object_build.h"
#include "scenery/objects/objects.h"
#include "scenery/packages/library.h"
#include "scenery/seam/scenery_draw.h"
#include "scenery/tile/terrain_file.h"
#include "scenery/tile/tile_state.h"

namespace {
DSF_LoadState& state_of(void* ref) { return *static_cast<DSF_LoadState*>(ref); }

std::string located(int type, const char* name, const DSF_LoadState& state, bool debug) {
    std::string path;
    DSF_LocateResourcePrimary(type, name, state.custom_package, debug, path);
    return path;
}

bool ends_with(const std::string& name, const char* ending) {
    const size_t length = strlen(ending);
    return name.size() >= length && strcasecmp(name.c_str() + name.size() - length, ending) == 0;
}

int load_image(const std::string& path) {
    return scenery_draw.load_texture(path, filter_auto_mip);
}

// -- terrain. Each definition owns two layers: the ground itself, and what lies over the ground of others.
struct layer_pair {
    xlay_struct lay1, lay2;
};

void make_water(layer_pair& pair) {
    for (xlay_struct* lay : {&pair.lay1, &pair.lay2}) {
        lay->plane_tex_ref = tex_water;
        lay->on_sectional = lay->before_airports = lay->project_texes = 1;
    }
    pair.lay2.poly_offset = 1;
}

// Ground that an image of another program would show: stood on, never drawn.
void make_hidden(layer_pair& pair) {
    for (xlay_struct* lay : {&pair.lay1, &pair.lay2}) {
        lay->plane_tex_ref = tex_water;
        lay->is_hidden = lay->before_airports = lay->project_texes = 1;
        lay->poly_offset = -1;
    }
}

void make_defined(layer_pair& pair, const std::string& name, const DSF_LoadState& state) {
    terrain_info_struct info;
    const std::string path = located(resource_terrain, name.c_str(), state, true);
    if (path.empty()) return tell_missing("Unable to locate terrain definition", name);
    if (!io_read_terrain(path, info)) return tell_missing("Unable to load terrain definition", name);
    if (!info.zap_alpha && info.compo_tex_ref == 0) tell_missing("all 0 !", name);
    const bool blends = info.plane_bor_ref != 0 || scenery_draw.has_alpha(info.plane_tex_ref);
    for (xlay_struct* lay : {&pair.lay1, &pair.lay2}) {
        lay->plane_tex_ref = info.plane_tex_ref;
        lay->compo_tex_ref = info.compo_tex_ref;
        lay->night_tex_ref = info.night_tex_ref;
        lay->before_airports = 1;
        lay->project_texes = static_cast<unsigned char>(info.projected);
        lay->cus_proj = info.projection;
        lay->composite_texes = info.compo_tex_ref != 0;
        lay->has_night_lite = info.night_tex_ref != 0;
        lay->zap_base_alpha = static_cast<unsigned char>(info.zap_alpha);
        lay->alpha_blnd = blends;
    }
    pair.lay1.on_sectional = 1;
    pair.lay2.plane_bor_ref = info.plane_bor_ref;
    pair.lay2.has_border_mask = info.plane_bor_ref != 0;
    pair.lay2.poly_offset = 1;
}

void make_image(layer_pair& pair, const std::string& name, const DSF_LoadState& state) {
    const std::string path = located(resource_image, name.c_str(), state, true);
    if (path.empty()) return tell_missing("Unable to locate terrain definition", name);
    const int day = load_image(path);
    if (day == 0) return tell_missing("Could not load the texture!", path);
    int night = 0;
    constexpr size_t ending = 4;
    if (name.size() > 3) {
        const std::string lit = located(
            resource_image, (name.substr(0, name.size() - ending) + "_LIT.png").c_str(), state, false);
        if (!lit.empty()) night = load_image(lit);
    }
    for (xlay_struct* lay : {&pair.lay1, &pair.lay2}) {
        lay->plane_tex_ref = day;
        lay->night_tex_ref = night;
        lay->on_sectional = lay->before_airports = 1;
        lay->alpha_blnd = scenery_draw.has_alpha(day) != 0;
        lay->has_night_lite = night != 0;
    }
    pair.lay2.poly_offset = 1;
}

bool is_hidden_name(const std::string& name) {
    for (const char* tile : {"00", "01", "10", "11"})
        if (name == std::string("terrain_VirtualOrtho") + tile) return true;
    return false;
}
}  // namespace

void tell_missing(const char* what, const std::string& name) { MACIBM_data_fault(what, name, "", ""); }

void DSF_AcceptProperty(const char* name, const char* value, void* ref) {
    DSF_LoadState& state = state_of(ref);
    if (strcmp(name, "sim/west") == 0) state.west = atof(value);
    if (strcmp(name, "sim/south") == 0) state.south = atof(value);
    if (strcmp(name, "sim/east") == 0) state.east = atof(value);
    if (strcmp(name, "sim/north") == 0) state.north = atof(value);
}

void DSF_AcceptTerrainDef(const char* inName, void* ref) {
    DSF_LoadState& state = state_of(ref);
    const std::string name = inName;
    layer_pair pair;
    if (name == "water" || name == "terrain_Water")
        make_water(pair);
    else if (is_hidden_name(name))
        make_hidden(pair);
    else if (ends_with(name, ".ter"))
        make_defined(pair, name, state);
    else
        make_image(pair, name, state);
    state.degree->tex_layers.push_back(std::move(pair.lay1));
    state.degree->tex_layers.push_back(std::move(pair.lay2));
}

void DSF_AcceptObjectDef(const char* name, void* ref) {
    DSF_LoadState& state = state_of(ref);
    const std::string path = located(resource_object, name, state, true);
    int model = -1;
    if (path.empty())
        tell_missing("Unable to locate object definition", name);
    else if ((model = build_obs(path, 1)) < 0)
        tell_missing("Unable to load object", name);
    state.DSF_to_SIM.push_back(model);
    if (model < 0) return;
    const vec_mod_struct& loaded = vec_mod[static_cast<size_t>(model)];
    state.tex_refs[loaded.tex_ref_1] = loaded.tex_ref_2;
}

namespace {
void read_forest(const std::string& name, DSF_LoadState& state) {
    const std::string path = located(resource_forest, name.c_str(), state, true);
    if (path.empty()) return tell_missing("Could not locate facade", name);
    if (!io_read_forest(path, state.forest_defs.back())) return tell_missing("Could not load forest!", name);
    state.facade_forest_tex_refs.back() = state.forest_defs.back().tex_ref;
}

void read_facade(const std::string& name, DSF_LoadState& state) {
    FacadeObj_t& facade = state.facade_defs.back();
    const std::string path = located(resource_facade, name.c_str(), state, true);
    if (path.empty()) return tell_missing("Could not locate facade", name);
    if (!ReadFacadeObjFile(path.c_str(), facade)) return tell_missing("Could not load facade!", name);
    std::string image;
    DSF_LocateResourceSecondary(resource_image, resource_facade, folder_of(path), facade.texture, true,
                                image);
    if (image.empty()) return tell_missing("Unable to locate facade texture", facade.texture);
    const int texture = load_image(image);
    if (texture == 0) return tell_missing("Unable to load polygon tex", image);
    state.facade_forest_tex_refs.back() = texture;
}
}  // namespace

void DSF_AcceptPolygonDef(const char* name, void* ref) {
    DSF_LoadState& state = state_of(ref);
    const bool forest = ends_with(name, ".for");
    state.facade_defs.emplace_back();
    state.forest_defs.emplace_back();
    state.is_forest.push_back(forest);
    state.facade_forest_tex_refs.push_back(0);
    forest ? read_forest(name, state) : read_facade(name, state);
}

void DSF_AcceptNetworkDef(const char* name, void* ref) {
    DSF_LoadState& state = state_of(ref);
    const std::string path = located(resource_network, name, state, true);
    if (path.empty()) return tell_missing("Could not locate network defs", name);
    if (!state.degree->road_def.ReadFromDef(path.c_str())) tell_missing("Could not load network def!", name);
}
