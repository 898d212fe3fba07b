// Display lists of terrain and of all that is extruded.
#pragma once
#include "scenery/ground/tile.h"

// Turns a patch's geometry into a display list. Without a window there is none.
void compile_patch_list(const xlay_struct* layer, scene_patch_struct* patch);
void destroy_patch_list(scene_patch_struct* patch);

// What a vertex of a layer sends besides its place and normal: night 1, projected 2, border 4, composite 8;
// 16 has neither texture nor normal.
int vertex_format(const xlay_struct& layer, const scene_patch_struct_temp& geometry);
