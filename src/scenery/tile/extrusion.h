// The sink of generated geometry: facades, forests and roads hand it their primitives, it makes patches of
// them.
#pragma once
#include <vector>

#include "scenery/ground/tile.h"

enum extrude_type : int {
    extrude_triangles = 0,
    extrude_strip = 1,
    extrude_fan = 2,
    extrude_quads = 3,
    extrude_quad_strip = 4,
    extrude_polygon = 5,
    extrude_line_strip = 6,
    extrude_begin = 7,
    extrude_end = 8,  // marks of one object, without geometry
};

// A grid over the tile whose cells collect patches.
struct extrude_helper_crap {
    float x_min = 0, x_max = 0, z_min = 0, z_max = 0;
    int x_divs = 0, z_divs = 0;
    using cell = std::vector<scene_patch_struct*>;
    std::vector<cell> patches;
    scene_patch_struct* current_patch = nullptr;
    float current_lod_near = -1, current_lod_far = -1;  // squared
    cell* current_bucket = nullptr;
};

void SetupExtrusionHelper(extrude_helper_crap* helper, int x_divs, int z_divs, float x_min, float x_max,
                          float z_min, float z_max);
// The sink itself; inRef is the helper.
void ExtrudeToPatch(int polyType, int count, const float* xyz, const float* sts, float near_lod,
                    float far_lod, void* inRef);
// Builds each patch and puts it into the layer's buckets.
void BucketExtrusion(extrude_helper_crap* helper, xlay_struct* layer);
