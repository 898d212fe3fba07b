// Terrain of a tile: patches that are drawn, and those among them that can be stood on.
#include "scenery/tile/tile_mesh.h"

#include <math.h>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/records.h"
#include "scenery/tile/tile_edge.h"
#include "scenery/tile/tile_state.h"

namespace {
constexpr unsigned char flag_collidable = 1, flag_overlay = 2;
constexpr int least_depth = 5;

DSF_LoadState* state_of(void* ref) { return static_cast<DSF_LoadState*>(ref); }

float squared_LOD(double metres) {
    return metres == -1.0 ? -1.0f : static_cast<float>(fmin(metres * metres, 1.0e18));
}

bool all_finite(const double* values, int count) {
    for (int i = 0; i < count; ++i)
        if (!(fabs(values[i]) < 1.0e6)) return false;
    return true;
}

bool is_sane_vertex(const double* c, int depth) { return all_finite(c, depth) && is_near_tile(c[0], c[1]); }

// What a depth holds behind place and normal.
struct tail_struct {
    bool one_st, two_st, level;
};
tail_struct tail_of(int depth) {
    return {depth == 7 || depth == 8, depth >= 9, depth == 6 || depth == 8 || depth >= 10};
}

d2_struct pair_at(const double* c) { return {{static_cast<float>(c[0]), static_cast<float>(c[1])}}; }

void store_tail(const DSF_LoadState& state, const double* c, scene_pol_struct& pol) {
    const tail_struct tail = tail_of(state.cur_patch_st_depth);
    c += least_depth;
    if (tail.one_st) {
        (state.cur_patch_projected ? pol.alpha : pol.color).push_back(pair_at(c));
        c += 2;
    }
    if (tail.two_st) {
        pol.color.push_back(pair_at(c));
        pol.alpha.push_back(pair_at(c + 2));
        c += 4;
    }
    if (tail.level) pol.level.push_back(static_cast<float>(*c));
}

// Exact comparisons: a tile's edge decodes to whole degrees.
void meet_neighbours(double lon, double lat, d3_struct* geo, d3_struct* nrm) {
    const auto handle = [&](int op) { handle_edge(g_lon_os, g_lat_os, geo, nrm, op); };
    if (g_lon_os != lon_secs[env.planet] - 1 && lon == g_lon_file + 1) handle(edge_keep_right);
    if (g_lat_os != lat_secs[env.planet] - 1 && lat == g_lat_file + 1) handle(edge_keep_top);
    if (g_lon_os > 0 && lon == g_lon_file) handle(edge_take_left);
    if (g_lat_os > 0 && lat == g_lat_file) handle(edge_take_bottom);
}

void grow_tile(DSF_LoadState& state, const d3_struct& at) {
    constexpr double room = 100.0;  // metres
    for (int axis = 0; axis < 3; ++axis) {
        state.minxyz[axis] = fmin(state.minxyz[axis], at.at(axis) - room);
        state.maxxyz[axis] = fmax(state.maxxyz[axis], at.at(axis) + room);
    }
}

d3_struct local_place(double lon, double lat, double ele) {
    d3_struct at;
    xyz_with_latlonel(&at.x, &at.y, &at.z, lat, lon, ele);
    return at;
}

// The stored normal is x and z of a unit vector that points up.
d3_struct normal_with_xz(double x, double z) {
    return {static_cast<float>(x), static_cast<float>(sqrt(fmax(1.0 - x * x - z * z, 0.0))),
            static_cast<float>(z)};
}
}  // namespace

void DSF_BeginPatch(unsigned int type, double near_LOD, double far_LOD, unsigned char flags, float*, float*,
                    int depth, void* ref) {
    DSF_LoadState& state = *state_of(ref);
    state.scene_cur_patch = nullptr;
    state.scene_cur_poly = nullptr;
    state.ytest_cur_patch = nullptr;
    state.ytest_cur_poly = nullptr;
    const size_t layer = size_t{type} * 2 + (flags & flag_overlay ? 1 : 0);
    if (depth < least_depth || layer >= state.degree->tex_layers.size()) {
        ++state.stray_patches;
        return;
    }
    state.cur_patch_terrain_type = type;
    state.cur_patch_st_depth = depth;
    state.cur_patch_projected = state.degree->tex_layers[layer].project_texes;
    state.scene_cur_patch = new scene_patch_struct;
    state.scene_cur_patch->temp = new scene_patch_struct_temp;
    state.scene_cur_patch->dis_near_sqr = squared_LOD(near_LOD);
    state.scene_cur_patch->dis_far_sqr = squared_LOD(far_LOD);
    state.scene_patches.push_back({state.scene_cur_patch, layer});
    if (!(flags & flag_collidable)) return;
    state.ytest_cur_patch = new ytest_patch_struct;
    state.ytest_patches.push_back({state.ytest_cur_patch});
}

void DSF_BeginPrimitive(int type, void* ref) {
    DSF_LoadState& state = *state_of(ref);
    if (!state.scene_cur_patch) return;
    state.scene_cur_poly = &state.scene_cur_patch->temp->scene_pol.emplace_back();
    state.scene_cur_poly->pol_type = pol_triangles + type;
    if (!state.ytest_cur_patch) return;
    state.ytest_cur_poly = &state.ytest_cur_patch->ytest_pol.emplace_back();
    state.ytest_cur_pol_type = pol_triangles + type;
    // a tile's first definition is the water
    if (state.cur_patch_terrain_type == 0) state.ytest_cur_patch->patch_is_wet = 1;
}

void DSF_AddPatchVertex(double* coordinates, void* ref) {
    DSF_LoadState& state = *state_of(ref);
    if (!state.scene_cur_poly) return;
    if (!is_sane_vertex(coordinates, state.cur_patch_st_depth)) {
        state.has_bad_geometry = true;
        return;
    }
    const double lon = coordinates[0], lat = coordinates[1];
    d3_struct geo = local_place(lon, lat, coordinates[2]);
    d3_struct nrm = normal_with_xz(coordinates[3], coordinates[4]);
    store_tail(state, coordinates, *state.scene_cur_poly);
    meet_neighbours(lon, lat, &geo, &nrm);
    state.scene_cur_poly->geo.push_back(geo);
    state.scene_cur_poly->nrm.push_back(nrm);
    state.scene_cur_patch->temp->grow(geo);
    grow_tile(state, geo);
    if (!state.ytest_cur_poly) return;
    state.ytest_cur_poly->geo.push_back(geo);
    state.ytest_cur_patch->grow(geo);
}

bool zero_area_tri(const d3_struct& v0, const d3_struct& v1, const d3_struct& v2) {
    constexpr float least = 1.0f;  // metre
    const auto side = [](const d3_struct& a, const d3_struct& b) {
        return pythag(b.x - a.x, b.z - a.z);
    };
    return side(v0, v1) < least || side(v1, v2) < least || side(v2, v0) < least;
}

namespace {
void add_triangle(std::vector<d3_struct>& to, const d3_struct& v0, const d3_struct& v1, const d3_struct& v2) {
    if (zero_area_tri(v0, v1, v2)) return;
    to.insert(to.end(), {v0, v1, v2});
}
}  // namespace

void decompose_polygon_to_triangles(ytest_pol_struct& poly, int pol_type) {
    const std::vector<d3_struct> in = std::move(poly.geo);
    std::vector<d3_struct>& out = poly.geo;
    out.clear();
    if (in.size() > 2) out.reserve(3 * (in.size() - 2));  // a strip's or fan's; these stay in memory
    switch (pol_type) {
        case pol_fan:
            for (size_t v = 2; v < in.size(); ++v) add_triangle(out, in[0], in[v - 1], in[v]);
            return;
        case pol_strip:
        case pol_quad_strip:
            for (size_t v = 2; v < in.size(); ++v)
                if (v % 2 == 0)
                    add_triangle(out, in[v - 2], in[v - 1], in[v]);
                else
                    add_triangle(out, in[v - 2], in[v], in[v - 1]);
            return;
        case pol_quads:
            for (size_t v = 3; v < in.size(); v += 4) {
                add_triangle(out, in[v - 3], in[v - 2], in[v - 1]);
                add_triangle(out, in[v - 3], in[v - 1], in[v]);
            }
            return;
        default:
            MACIBM_data_fault("Trying to decompose a polygon whose type is not supported yet.", "", "", "");
    }
}

namespace {
// A list may end in the middle of a triangle, and hold some without area.
void clean_triangle_list(std::vector<d3_struct>& geo) {
    std::vector<d3_struct> in;
    in.swap(geo);
    for (size_t v = 2; v < in.size(); v += 3) add_triangle(geo, in[v - 2], in[v - 1], in[v]);
}

void check_triangles(const std::vector<d3_struct>& geo) {
    for (size_t v = 2; v < geo.size(); v += 3) {
        if (!zero_area_tri(geo[v - 2], geo[v - 1], geo[v])) continue;
        char text[80];
        snprintf(text, sizeof text, "lat_file=%8.4f, lon_file=%8.4f", static_cast<double>(g_lat_file),
                 static_cast<double>(g_lon_file));
        MACIBM_data_fault("LOAD-TIME: Zero-side-length triangle in the y-tester!", text, "", "");
    }
}
}  // namespace

void DSF_EndPrimitive(void* ref) {
    DSF_LoadState& state = *state_of(ref);
    if (!state.ytest_cur_poly) return;
    if (state.ytest_cur_pol_type == pol_triangles)
        clean_triangle_list(state.ytest_cur_poly->geo);
    else
        decompose_polygon_to_triangles(*state.ytest_cur_poly, state.ytest_cur_pol_type);
    check_triangles(state.ytest_cur_poly->geo);
    for (const d3_struct& at : state.ytest_cur_poly->geo) state.ytest_cur_poly->grow(at);
}

void DSF_EndPatch(void*) {}
