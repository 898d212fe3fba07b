// Generated geometry becomes patches, by the cell of a grid in which each object begins.
#include "scenery/tile/extrusion.h"

#include "core/math/num.h"
#include "core/program/alert.h"

void SetupExtrusionHelper(extrude_helper_crap* helper, int x_divs, int z_divs, float x_min, float x_max,
                          float z_min, float z_max) {
    *helper = {};
    helper->x_min = x_min;
    helper->x_max = x_max;
    helper->z_min = z_min;
    helper->z_max = z_max;
    helper->x_divs = x_divs;
    helper->z_divs = z_divs;
    helper->patches.resize(static_cast<size_t>(x_divs) * static_cast<size_t>(z_divs));
}

namespace {
int division(float at, float min, float max, int divs) {
    const float ratio = (at - min) / fltmax2(max - min, 1.0f);
    return intlim(intcut(ratio * static_cast<float>(divs)), 0, divs - 1);
}

extrude_helper_crap::cell* cell_at(extrude_helper_crap& helper, const float* xyz) {
    const int x = division(xyz[0], helper.x_min, helper.x_max, helper.x_divs);
    const int z = division(xyz[2], helper.z_min, helper.z_max, helper.z_divs);
    const int place = z * helper.x_divs + x;
    return &helper.patches[static_cast<size_t>(place)];
}

scene_patch_struct* patch_in(extrude_helper_crap::cell& cell, float near_sqr, float far_sqr) {
    for (scene_patch_struct* patch : cell)
        if (patch->dis_near_sqr == near_sqr && patch->dis_far_sqr == far_sqr) return patch;
    scene_patch_struct* const made = new scene_patch_struct;
    made->temp = new scene_patch_struct_temp;
    made->dis_near_sqr = near_sqr;
    made->dis_far_sqr = far_sqr;
    cell.push_back(made);
    return made;
}

float squared_LOD(float metres) { return metres > 0.0f ? metres * metres : metres; }

void choose_patch(extrude_helper_crap& helper, const float* xyz, float near_lod, float far_lod) {
    const float near_sqr = squared_LOD(near_lod), far_sqr = squared_LOD(far_lod);
    if (helper.current_patch && helper.current_lod_near == near_sqr && helper.current_lod_far == far_sqr)
        return;
    if (!helper.current_bucket) helper.current_bucket = cell_at(helper, xyz);
    helper.current_patch = patch_in(*helper.current_bucket, near_sqr, far_sqr);
    helper.current_lod_near = near_sqr;
    helper.current_lod_far = far_sqr;
}

constexpr int gl_types[] = {pol_triangles,  pol_strip,   pol_fan,        pol_quads,
                            pol_quad_strip, pol_polygon, pol_lines_strip};

// Separate triangles and quads go on in the last primitive of their kind.
scene_pol_struct& primitive_of(scene_patch_struct_temp& geometry, int type) {
    const bool merges = type == extrude_triangles || type == extrude_quads;
    if (merges && !geometry.scene_pol.empty() && geometry.scene_pol.back().pol_type == gl_types[type])
        return geometry.scene_pol.back();
    scene_pol_struct& made = geometry.scene_pol.emplace_back();
    made.pol_type = gl_types[type];
    return made;
}
}  // namespace

void ExtrudeToPatch(int polyType, int count, const float* xyz, const float* sts, float near_lod,
                    float far_lod, void* inRef) {
    extrude_helper_crap& helper = *static_cast<extrude_helper_crap*>(inRef);
    if (polyType == extrude_begin || polyType == extrude_end) {
        helper.current_patch = nullptr;
        helper.current_bucket = nullptr;
        return;
    }
    if (polyType < 0 || polyType > extrude_line_strip || count <= 0) return;
    choose_patch(helper, xyz, near_lod, far_lod);
    scene_patch_struct_temp& geometry = *helper.current_patch->temp;
    scene_pol_struct& pol = primitive_of(geometry, polyType);
    for (int n = 0; n < count; ++n) {
        const d3_struct at = {xyz[3 * n], xyz[3 * n + 1], xyz[3 * n + 2]};
        pol.geo.push_back(at);
        if (pol.pol_type != pol_lines_strip) pol.nrm.push_back({0.0f, 1.0f, 0.0f});
        if (sts) pol.color.push_back({{sts[2 * n], sts[2 * n + 1]}});
        geometry.grow(at);
    }
}

void BucketExtrusion(extrude_helper_crap* helper, xlay_struct* layer) {
    for (extrude_helper_crap::cell& cell : helper->patches) {
        for (scene_patch_struct* patch : cell) {
            UTIL_build_DL(layer, patch);
            layer->scene_buckets.Insert(patch);
        }
        cell.clear();
    }
}
