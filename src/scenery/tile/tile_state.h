// What the decoder's callbacks share while one tile loads.
#pragma once
#include <map>
#include <string>
#include <vector>

#include "scenery/extrude/facades.h"
#include "scenery/ground/tile.h"

struct scene_DSF_PatchInfo {
    scene_patch_struct* patch;
    size_t layer;
};
struct ytest_DSF_PatchInfo {
    ytest_patch_struct* patch;
};
struct DSF_PolygonInfo {
    int type = 0;  // index of the definition
    std::vector<Polygon3> windings;
    short param = 0;
};

struct DSF_LoadState {
    explicit DSF_LoadState(xdeg_struct* to) : degree(to) {}
    ~DSF_LoadState();  // what no bucket has taken over
    DSF_LoadState(const DSF_LoadState&) = delete;
    DSF_LoadState& operator=(const DSF_LoadState&) = delete;

    double west = 0, south = 0, east = 0, north = 0;
    double minxyz[3] = {9.9e+09, 9.9e+09, 9.9e+09}, maxxyz[3] = {-9.9e+09, -9.9e+09, -9.9e+09};
    xdeg_struct* degree;
    std::string file_path;
    std::string custom_package;     // that the file came from, empty for the default path
    bool has_bad_geometry = false;  // no globe has such a place: the file is refused
    int stray_patches = 0;          // of no terrain, or without a place and a normal: left out

    std::vector<scene_DSF_PatchInfo> scene_patches;
    scene_patch_struct* scene_cur_patch = nullptr;
    scene_pol_struct* scene_cur_poly = nullptr;
    std::vector<ytest_DSF_PatchInfo> ytest_patches;
    ytest_patch_struct* ytest_cur_patch = nullptr;
    ytest_pol_struct* ytest_cur_poly = nullptr;
    int ytest_cur_pol_type = pol_triangles;
    unsigned int cur_patch_terrain_type = 0;
    int cur_patch_st_depth = 0;
    int cur_patch_projected = 0;

    std::vector<int> DSF_to_SIM;  // object definition to vec_mod, -1 none
    std::map<int, int> tex_refs;  // day texture of the objects to their night texture
    std::vector<io_objct_struct> object_instances;

    std::vector<DSF_PolygonInfo> polygons;
    // by polygon definition
    std::vector<FacadeObj_t> facade_defs;
    std::vector<forest_info_struct> forest_defs;
    std::vector<char> is_forest;
    std::vector<int> facade_forest_tex_refs;
    Polygon3* cur_poly_winding = nullptr;
    DSF_PolygonInfo* cur_poly_info = nullptr;

    unsigned int cur_start_node_id = 0;
    float cur_start_node_loc[3] = {};
    unsigned int cur_road_type = 0;
    std::vector<float> cur_shape_pts;
};

// Place of the tile that is loading, for its seams: column and row in the region, south-west corner in
// degrees.
extern int g_lat_os, g_lon_os, g_lat_file, g_lon_file;

// Finite, and near the tile: a pool of a broken file decodes to anything.
bool is_near_tile(double lon, double lat);

// -- after the file
// Patches into their layers' buckets, with their lists, and what is stood on into its own.
void bucket_terrain(DSF_LoadState* state);
