// Tiles in memory: bounds for the buckets, and the end of a tile's life.
#include "scenery/ground/tile.h"

#include <string.h>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/objects/objects.h"
#include "scenery/seam/scenery_draw.h"

// Lives as long as the process: display lists in it belong to a window that is gone when statics end.
xdeg_struct (&xdeg)[xdeg_lons][xdeg_lats] = *new xdeg_struct[1][xdeg_lons][xdeg_lats];

// -- what the buckets ask

void scene_patch_bucket_traits::GetObjectBounds(const scene_patch_struct* patch, Point2& p1, Point2& p2) {
    const double x = patch->center_x, z = patch->center_z, r = patch->radius;
    p1 = {x - r, z - r};
    p2 = {x + r, z + r};
}

void scene_patch_bucket_traits::DestroyObject(scene_patch_struct* patch) {
    scenery_draw.destroy_patch_list(patch);
    delete patch->temp;
    delete patch;
}

void scene_objct_bucket_traits::GetObjectBounds(const scene_objct_struct* object, Point2& p1, Point2& p2) {
    const vec_mod_struct& model = vec_mod[static_cast<size_t>(object->M_SIM)];
    const double x = object->xyz[0] + model.cull_center_xyz[0], z = object->xyz[2] + model.cull_center_xyz[2];
    const double r = model.cull_radius;
    p1 = {x - r, z - r};
    p2 = {x + r, z + r};
}

void scene_objct_bucket_traits::DestroyObject(scene_objct_struct* object) { delete object; }

void ytest_patch_bucket_traits::GetObjectBounds(const ytest_patch_struct* patch, Point2& p1, Point2& p2) {
    p1 = {patch->min_x, patch->min_z};
    p2 = {patch->max_x, patch->max_z};
}

void ytest_patch_bucket_traits::DestroyObject(ytest_patch_struct* patch) { delete patch; }

// -- a tile's end

void UTIL_build_DL(xlay_struct* our_layer, scene_patch_struct* patch) {
    const scene_patch_struct_temp& box = *patch->temp;
    patch->center_x = 0.5f * (box.min_x + box.max_x);
    patch->center_y = 0.5f * (box.min_y + box.max_y);
    patch->center_z = 0.5f * (box.min_z + box.max_z);
    patch->radius = 0.5f * pythag(box.max_x - box.min_x, box.max_y - box.min_y, box.max_z - box.min_z);
    scenery_draw.compile_patch(our_layer, patch);
    delete patch->temp;
    patch->temp = nullptr;
}

void clear_degree(xdeg_struct* deg) {
    deg->road_def.Clear();
    deg->road_data.Clear();
    deg->sphere_hash.clear();
    for (xlay_struct& layer : deg->tex_layers) {
        layer.scene_buckets.RemoveAllAndDestroy();
        layer.objct_buckets.RemoveAllAndDestroy();
    }
    deg->tex_layers.clear();
    deg->ytest_buckets.RemoveAllAndDestroy();
    deg->vec_ins.clear();
    deg->vec_hwy_car.clear();
    forget_found_terrain();
}

// -- the region

void find_region_extents() {
    constexpr double per_earth_radius =
        1.56785397635206e-07;  // 1 / 6,378,145 m, the radius the miles belong to
    constexpr double miles_per_degree = 60.0;
    const double rad_rat = con.planet_rad * per_earth_radius;
    const double south = fabs(env.lat_sou),
                 north = fabs(env.lat_sou + static_cast<double>(lat_secs[env.planet]));
    const double degree = rad_rat * con.nmtomtrs * miles_per_degree;
    const double x2 = lon_secs_os[env.planet] * degree * cos((south < north ? south : north) * dob_degtorad);
    const double z2 = lat_secs_os[env.planet] * degree;
    env.reg_x2_mtr = static_cast<float>(x2);
    env.reg_x1_mtr = -env.reg_x2_mtr;
    env.reg_z2_mtr = static_cast<float>(z2);
    env.reg_z1_mtr = -env.reg_z2_mtr;
    ren.deg_per_mtr_x = static_cast<float>(1.0 / (cos(ref_lat() * dob_degtorad) * con.planet_deg_mtrs));
    ren.deg_per_mtr_z = 1.0f / con.planet_deg_mtrs;
}

int ret_xz_inreg_tight(float x, float z) {
    constexpr float margin = 2500.0f;
    // a region at the south pole, whose corner cannot follow, has no rim there
    const bool has_south_rim = env.lat_sou > -90.0f;
    return x > env.reg_x1_mtr + margin && x < env.reg_x2_mtr - margin && z > env.reg_z1_mtr + margin &&
           (!has_south_rim || z < env.reg_z2_mtr - margin);
}
