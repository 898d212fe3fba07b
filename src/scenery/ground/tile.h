// Tiles of one degree, as they lie in memory: what is drawn, what is stood on, and what stands about.
// Role: filled by the loader (tile_load.h), read by terrain queries and drawing. All positions are metres in
// the world frame of the present region.
#pragma once
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/math/geo3.h"
#include "scenery/extrude/road_data.h"
#include "scenery/ground/buckets.h"
#include "scenery/ground/cull.h"

struct d2_struct {
    float v[2];
};
// -- drawn

// OpenGL's numbers of primitives.
enum pol_type : int {
    pol_lines_strip = 3,
    pol_triangles = 4,
    pol_strip = 5,
    pol_fan = 6,
    pol_quads = 7,
    pol_quad_strip = 8,
    pol_polygon = 9,
};

// One primitive.
struct scene_pol_struct {
    int pol_type = pol_triangles;
    std::vector<d3_struct> geo, nrm;
    std::vector<d2_struct> color, alpha;  // texture coordinates of the image and of the border mask
    std::vector<float> level;             // blend level
};

// Geometry of a patch until its display list is built.
struct scene_patch_struct_temp : box_struct {
    std::vector<scene_pol_struct> scene_pol;
};

// Drawn as a unit. It holds its geometry while it loads, then its display list.
struct scene_patch_struct {
    float radius = 0, center_x = 0, center_y = 0, center_z = 0;
    float dis_near_sqr = -1, dis_far_sqr = -1;  // squared limits of its level of detail, -1 none
    scene_patch_struct_temp* temp = nullptr;    // owned
    unsigned int patch_DL = 0;
    int triangles = 0;  // in the list
};

// A placed object.
struct scene_objct_struct {
    int M_SIM = -1;  // index into vec_mod
    float xyz[3] = {};
    float psi = 0, the = 0, phi = 0;
};
// A placement on its way there.
struct io_objct_struct {
    int M_DSF = -1;  // index of the tile's definition, then into vec_mod
    float xyz[3] = {};
    float psi = 0;
    char calc_y = 0;  // stands on the terrain
};

// -- stood on

// A list of triangles, clockwise from above, and the box around them.
struct ytest_pol_struct : box_struct {
    std::vector<d3_struct> geo;
};
struct ytest_patch_struct : box_struct {
    unsigned char patch_is_wet = 0;
    std::vector<ytest_pol_struct> ytest_pol;
};

// -- buckets

struct scene_patch_bucket_traits {
    static void GetObjectBounds(const scene_patch_struct* patch, Point2& p1, Point2& p2);
    static void DestroyObject(scene_patch_struct* patch);
};
struct scene_objct_bucket_traits {
    static void GetObjectBounds(const scene_objct_struct* object, Point2& p1, Point2& p2);
    static void DestroyObject(scene_objct_struct* object);
};
struct ytest_patch_bucket_traits {
    static void GetObjectBounds(const ytest_patch_struct* patch, Point2& p1, Point2& p2);
    static void DestroyObject(ytest_patch_struct* patch);
};
using scene_patch_buckets = XBuckets<scene_patch_struct*, scene_patch_bucket_traits>;
using scene_objct_buckets = XBuckets<scene_objct_struct*, scene_objct_bucket_traits>;
using ytest_patch_buckets = XBuckets<ytest_patch_struct*, ytest_patch_bucket_traits>;
constexpr unsigned int bucket_levels = 8;

// -- a tile

struct ogl_proj_struct {
    float x_tex_size_m = 0, y_tex_size_m = 0;  // metres per repeat of a texture
};

// A texture layer, drawn as a whole.
struct xlay_struct {
    int plane_tex_ref = 0;  // 0 marks a layer to be dropped
    int compo_tex_ref = 0, night_tex_ref = 0, plane_bor_ref = 0;
    unsigned char is_hidden = 0, on_sectional = 0, before_airports = 0, use_night_lite = 0, alpha_blnd = 0;
    unsigned char two_sided = 0;
    int poly_offset = 0;
    unsigned char project_texes = 0;  // coordinates come from a projection on the ground
    unsigned char composite_texes = 0, has_night_lite = 0, has_border_mask = 0;
    unsigned char zap_base_alpha = 0;  // the base image's alpha is ignored
    ogl_proj_struct cus_proj;
    scene_patch_buckets scene_buckets;
    int scene_buckets_max_layer = 0;  // the deepest level with something in it
    int scene_buckets_max_lod = 0;    // m; beyond it nothing is seen; -1 without a limit
    scene_objct_buckets objct_buckets;
    int objct_buckets_max_layer = 0, objct_buckets_max_lod = 0;
};

using reg_hash_type = std::unordered_map<XBucketID, Sphere3>;

// An instance on the ground that roads and forests have put there.
struct vec_ins_struct {
    int obj;       // index into vec_mod
    float xyz[3];  // m
    float psi;     // degrees
};
// A car on the tile's roads.
struct vec_hwy_car_struct {
    int type;                     // of the vehicle, 0 to 11
    float xyz[3];                 // m
    float psi;                    // degrees
    char lites, brakes, blinker;  // 0 or 1
};

struct xdeg_struct {
    reg_hash_type sphere_hash;            // of each bucket: around all that it and those below it hold
    XCull<camera_cull_traits> visibles;   // what the view drawn now sees of them
    std::vector<xlay_struct> tex_layers;  // in the order of drawing
    ytest_patch_buckets ytest_buckets;
    std::vector<vec_ins_struct> vec_ins;
    RoadDef_t road_def;
    RoadData road_data;
    std::vector<vec_hwy_car_struct> vec_hwy_car;
};
inline bool camera_cull_traits::IsVisible(const xcam_class& camera, const xdeg_struct& reference,
                                          XBucketID id, const Sphere3** sphere) {
    const auto found = reference.sphere_hash.find(id);
    if (found == reference.sphere_hash.end() || !(found->second.radius > 0.0)) return false;
    const Sphere3& s = found->second;
    *sphere = &s;
    return camera.SphereInView(s.c.x, s.c.y, s.c.z, s.radius);
}

// By column from the west and row from the south; as many as the larger planet's region has.
constexpr int xdeg_lons = 12, xdeg_lats = 8;
extern xdeg_struct (&xdeg)[xdeg_lons][xdeg_lats];

// Finds the patch's sphere from its box, has its geometry made into a display list where something draws, and
// frees the geometry.
void UTIL_build_DL(xlay_struct* our_layer, scene_patch_struct* patch);

// Prepares culling of a loaded tile: deepest levels and largest LODs of its layers, spheres of its buckets.
void finish_degree(xdeg_struct* deg);

// Forgets the tile, its lists and what terrain queries remember.
void clear_degree(xdeg_struct* deg);

// Extent of the region and of a degree at its centre, from env.lat_sou and lon_wes.
void find_region_extents();
// Inside the region by a margin of 2500 metres on each side, but for the south pole, which is no rim.
int ret_xz_inreg_tight(float x, float z);
