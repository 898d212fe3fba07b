// What stands on a tile: objects, facades, forests and roads, thinned out by the user's settings.
#include "scenery/tile/tile_things.h"

#include <math.h>

#include <memory>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/records.h"
#include "draw/images/tex_refs.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/objects/object_build.h"
#include "scenery/objects/objects.h"
#include "scenery/seam/scenery_draw.h"
#include "scenery/tile/extrusion.h"
#include "scenery/tile/tile_defs.h"
#include "scenery/tile/tile_state.h"

namespace {
constexpr int terrain_checker = 26;  // of scenery that is placed

DSF_LoadState& state_of(void* ref) { return *static_cast<DSF_LoadState*>(ref); }

// Elevation 0: the ground's height is found when the terrain is there.
void local_xz(double lon, double lat, float (&xyz)[3]) {
    xyz_with_latlonel(&xyz[0], &xyz[1], &xyz[2], lat, lon, 0.0);
}
}  // namespace

// -- objects

void DSF_AddObject(unsigned int type, double* coordinates, double rotation, void* ref) {
    DSF_LoadState& state = state_of(ref);
    constexpr int all = 36;  // at the highest setting, 6
    if (int_rand(1, all) > stg.draw_objs_05 * stg.draw_objs_05) return;
    if (!is_near_tile(coordinates[0], coordinates[1]) || !(fabs(rotation) < 1.0e6)) return;
    io_objct_struct object;
    object.M_DSF = type < state.DSF_to_SIM.size() ? static_cast<int>(type) : -1;
    local_xz(coordinates[0], coordinates[1], object.xyz);
    object.psi = static_cast<float>(rotation);
    object.calc_y = 1;
    state.object_instances.push_back(object);
}

// -- polygons

void DSF_BeginPolygon(unsigned int type, unsigned short param, void* ref) {
    DSF_LoadState& state = state_of(ref);
    constexpr int all = 6;
    state.cur_poly_info = nullptr;
    state.cur_poly_winding = nullptr;
    if (int_rand(1, all) > stg.draw_objs_05 || type >= state.is_forest.size()) return;
    state.cur_poly_info = &state.polygons.emplace_back();
    state.cur_poly_info->type = static_cast<int>(type);
    state.cur_poly_info->param = static_cast<short>(param);
}

void DSF_BeginPolygonWinding(void* ref) {
    DSF_LoadState& state = state_of(ref);
    if (state.cur_poly_info) state.cur_poly_winding = &state.cur_poly_info->windings.emplace_back();
}

// Kept as latitude, longitude until the heights can be found.
void DSF_AddPolygonPoint(double* coordinates, void* ref) {
    DSF_LoadState& state = state_of(ref);
    if (state.cur_poly_winding && is_near_tile(coordinates[0], coordinates[1]))
        state.cur_poly_winding->push_back({coordinates[1], coordinates[0], 0.0});
}

void DSF_EndPolygonWinding(void*) {}

void DSF_EndPolygon(void* ref) {
    DSF_LoadState& state = state_of(ref);
    state.cur_poly_info = nullptr;
    state.cur_poly_winding = nullptr;
}

// -- roads

namespace {
// Subtypes of the highways, of the main roads, of the rest.
bool is_taken(unsigned int type) {
    if (stg.draw_vecs_03 > 2) return true;
    if (stg.draw_vecs_03 > 1 && type <= 41) return true;
    return stg.draw_vecs_03 > 0 && (type <= 25 || (type >= 54 && type <= 57) || type == 62);
}

void local_point(const double* coordinates, float (&xyz)[3]) {
    xyz_with_latlonel(&xyz[0], &xyz[1], &xyz[2], coordinates[1], coordinates[0], coordinates[2]);
}

bool is_sane_point(const double* coordinates) {
    return is_near_tile(coordinates[0], coordinates[1]) && fabs(coordinates[2]) < 1.0e6;
}
}  // namespace

void DSF_BeginSegment(unsigned int, unsigned int subtype, unsigned int node, double* coordinates, bool,
                      void* ref) {
    DSF_LoadState& state = state_of(ref);
    state.cur_shape_pts.clear();
    state.cur_start_node_id = is_sane_point(coordinates) ? node : 0;
    state.cur_road_type = subtype;
    if (state.cur_start_node_id != 0) local_point(coordinates, state.cur_start_node_loc);
}

void DSF_AddSegmentShapePoint(double* coordinates, bool, void* ref) {
    DSF_LoadState& state = state_of(ref);
    float xyz[3];
    if (!is_sane_point(coordinates)) return;
    local_point(coordinates, xyz);
    state.cur_shape_pts.insert(state.cur_shape_pts.end(), xyz, xyz + 3);
}

void DSF_EndSegment(unsigned int node, double* coordinates, bool, void* ref) {
    DSF_LoadState& state = state_of(ref);
    if (state.cur_start_node_id != 0 && is_sane_point(coordinates) && is_taken(state.cur_road_type)) {
        float end[3];
        local_point(coordinates, end);
        RoadData& roads = state.degree->road_data;
        RoadChain_t* chain =
            roads.AddSimpleSegment(static_cast<int>(state.cur_road_type), state.cur_start_node_id, node,
                                   state.cur_start_node_loc, end, false);
        roads.AddShapePoint(chain, static_cast<int>(state.cur_shape_pts.size() / 3),
                            state.cur_shape_pts.data());
    }
    state.cur_shape_pts.clear();
}

// -- after the file: polygons

namespace {
struct tile_area {
    float x1, x2, z1, z2;
};
tile_area area_of(const DSF_LoadState& state) {
    return {static_cast<float>(state.minxyz[0]), static_cast<float>(state.maxxyz[0]),
            static_cast<float>(state.minxyz[2]), static_cast<float>(state.maxxyz[2])};
}

void reset_scene_buckets(xlay_struct& layer, const DSF_LoadState& state) {
    layer.scene_buckets.Reset(bucket_levels, {state.minxyz[0], state.minxyz[2]},
                              {state.maxxyz[0], state.maxxyz[2]}, buckets_loose);
}

// A layer of its own for geometry of one texture, and the grid that collects it.
struct extruded_layer {
    size_t layer;
    extrude_helper_crap helper;
};
using layers_by_texture = std::map<int, extruded_layer>;

extruded_layer& layer_for(int texture, layers_by_texture& layers, DSF_LoadState& state) {
    const auto known = layers.find(texture);
    if (known != layers.end()) return known->second;
    constexpr int divisions = 64;
    xlay_struct layer;
    layer.plane_tex_ref = texture;
    layer.alpha_blnd = scenery_draw.has_alpha(texture) != 0;
    reset_scene_buckets(layer, state);
    extruded_layer& made = layers[texture];
    made.layer = state.degree->tex_layers.size();
    const tile_area area = area_of(state);
    SetupExtrusionHelper(&made.helper, divisions, divisions, area.x1, area.x2, area.z1, area.z2);
    state.degree->tex_layers.push_back(std::move(layer));
    return made;
}

void set_on_terrain(Polygon3& winding) {
    for (Point3& p : winding) {
        float xyz[3];
        local_xz(p.y, p.x, xyz);
        p = {xyz[0], return_terrain_y(xyz[0], xyz[2], terrain_checker), xyz[2]};
    }
}

void bucket_all(layers_by_texture& layers, DSF_LoadState& state) {
    for (auto& [texture, extruded] : layers)
        BucketExtrusion(&extruded.helper, &state.degree->tex_layers[extruded.layer]);
}
}  // namespace

void extrude_polygons(DSF_LoadState* state) {
    layers_by_texture forests, facades;
    for (DSF_PolygonInfo& polygon : state->polygons) {
        const size_t d = static_cast<size_t>(polygon.type);
        const int texture = state->facade_forest_tex_refs[d];
        const bool forest = state->is_forest[d] != 0;
        if (texture == 0 || polygon.windings.empty()) continue;  // its definition failed and was told
        extruded_layer& to = layer_for(texture, forest ? forests : facades, *state);
        xlay_struct& layer = state->degree->tex_layers[to.layer];
        if (forest || state->facade_defs[d].two_sided) layer.two_sided = 1;
        for (Polygon3& winding : polygon.windings) set_on_terrain(winding);
        if (forest) {
            extrude_forest(state->forest_defs[d], polygon.windings, ExtrudeToPatch, &to.helper);
        } else {
            const int floors = FindFloorsForHeight(state->facade_defs[d], polygon.param);
            BuildFacadeObj(state->facade_defs[d], polygon.windings[0], floors, {0.0, 1.0, 0.0},
                           ExtrudeToPatch, &to.helper);
        }
    }
    bucket_all(forests, *state);
    bucket_all(facades, *state);
}

// -- after the file: roads and objects

namespace {
void enter_textures(DSF_LoadState& state, int model) {
    const vec_mod_struct& loaded = vec_mod[static_cast<size_t>(model)];
    state.tex_refs[loaded.tex_ref_1] = loaded.tex_ref_2;
}

// Objects that the roads place.
void ReceiveObjFunc(double x, double y, double z, double heading, bool calc_y, int obj, void* inRef, void*) {
    if (obj < 0) return;
    DSF_LoadState& state = state_of(inRef);
    io_objct_struct object;
    object.M_DSF = obj;
    object.xyz[0] = static_cast<float>(x);
    object.xyz[1] = static_cast<float>(y);
    object.xyz[2] = static_cast<float>(z);
    object.psi = static_cast<float>(heading);
    object.calc_y = calc_y;
    state.object_instances.push_back(object);
    enter_textures(state, obj);
}

void add_road_layers(DSF_LoadState& state) {
    constexpr int wires = tex_powerlines;
    constexpr int divisions = 64;
    const RoadDef_t& def = state.degree->road_def;
    const tile_area area = area_of(state);
    for (size_t n = 0; n < def.texes.size(); ++n) {
        xlay_struct layer;
        layer.plane_tex_ref = def.texes[n];
        layer.poly_offset = n < def.offsets.size() ? def.offsets[n] : 0;
        layer.night_tex_ref = n < def.texes_lit.size() ? def.texes_lit[n] : 0;
        layer.alpha_blnd = scenery_draw.has_alpha(layer.plane_tex_ref) != 0;
        layer.two_sided = layer.before_airports = 1;
        layer.project_texes = layer.plane_tex_ref == wires;
        reset_scene_buckets(layer, state);
        extrude_helper_crap helper;
        SetupExtrusionHelper(&helper, divisions, divisions, area.x1, area.x2, area.z1, area.z2);
        state.degree->road_data.ExtrudeArea(static_cast<int>(n), def, 0, 0, ExtrudeToPatch, ReceiveObjFunc,
                                            &helper, &state, nullptr);
        BucketExtrusion(&helper, &layer);
        state.degree->tex_layers.push_back(std::move(layer));
    }
}

// The antenna of a radio aid by its kind; empty for none.
std::string antenna_of(int type, size_t index) {
    const std::string folder = "lib/airport/NAVAIDS/";
    switch (type) {
        case nav_ndb:
            return folder + "NDB_" + std::to_string(index % 3 + 1) + ".obj";
        case nav_vor:
            return folder + "VOR.obj";
        case nav_ils:
        case nav_loc:
            return folder + "ILS.obj";
        case nav_gls:
            return folder + "glideslope.obj";
        case nav_outer:
        case nav_dme:
            return folder + "Marker1.obj";
        case nav_middle:
        case nav_inner:
            return folder + "Marker2.obj";
        default:
            return "";
    }
}

bool is_in_tile(const vec_nav_struct& nav) {
    return nav.lat > g_lat_file && nav.lat < g_lat_file + 1 && nav.lon > g_lon_file &&
           nav.lon < g_lon_file + 1;
}

void add_antennas(DSF_LoadState& state) {
    constexpr size_t first = 4;
    for (size_t n = first; n < vec_nav.size(); ++n) {
        const vec_nav_struct& nav = vec_nav[n];
        if (!is_in_tile(nav)) continue;
        const std::string name = antenna_of(nav.type, n);
        if (name.empty()) continue;
        io_objct_struct object;
        object.M_DSF = build_obs_lib(name);
        if (object.M_DSF < 0) {
            tell_missing("Unable to load object", name);
            continue;
        }
        xyz_with_latlonel(&object.xyz[0], &object.xyz[1], &object.xyz[2], nav.lat, nav.lon, nav.ele);
        object.psi = nav.type == nav_ils || nav.type == nav_loc ? nav.psi_true : 0.0f;
        object.calc_y = 1;
        enter_textures(state, object.M_DSF);
        state.object_instances.push_back(object);
    }
}

// One layer for each day texture, in the order of the references.
std::map<int, size_t> add_object_layers(DSF_LoadState& state) {
    std::map<int, size_t> layers;
    for (const auto& [day, night] : state.tex_refs) {
        xlay_struct layer;
        layer.plane_tex_ref = day;
        layer.night_tex_ref = night;
        layer.before_airports = 1;
        layer.alpha_blnd = scenery_draw.has_alpha(day) || (night != 0 && scenery_draw.has_alpha(night));
        layer.has_night_lite = night != 0;
        layer.objct_buckets.Reset(bucket_levels, {state.minxyz[0], state.minxyz[2]},
                                  {state.maxxyz[0], state.maxxyz[2]}, buckets_loose);
        layers[day] = state.degree->tex_layers.size();
        state.degree->tex_layers.push_back(std::move(layer));
    }
    return layers;
}

void place_object(const io_objct_struct& object, DSF_LoadState& state, const std::map<int, size_t>& layers) {
    if (object.M_DSF < 0) return;
    auto placed = std::make_unique<scene_objct_struct>();
    placed->M_SIM = object.M_DSF;
    placed->xyz[0] = object.xyz[0];
    placed->xyz[1] =
        object.calc_y ? return_terrain_y(object.xyz[0], object.xyz[2], terrain_checker) : object.xyz[1];
    placed->xyz[2] = object.xyz[2];
    placed->psi = object.psi;
    const size_t layer = layers.at(vec_mod[static_cast<size_t>(object.M_DSF)].tex_ref_1);
    state.degree->tex_layers[layer].objct_buckets.Insert(placed.release());
}
}  // namespace

void bucket_roads_and_objects(DSF_LoadState* state) {
    for (io_objct_struct& object : state->object_instances)
        object.M_DSF = object.M_DSF < 0 ? -1 : state->DSF_to_SIM[static_cast<size_t>(object.M_DSF)];
    add_road_layers(*state);
    add_antennas(*state);
    const std::map<int, size_t> layers = add_object_layers(*state);
    // Thousands of triangles over one another are searched for each object: such a tile gets no more of them.
    constexpr long most_effort = 300000000;
    const long start = terrain_effort();
    for (const io_objct_struct& object : state->object_instances) {
        if (terrain_effort() - start > most_effort) {
            tell_missing("The ground is too dense to set all objects on it", state->file_path);
            return;
        }
        place_object(object, *state, layers);
    }
}
