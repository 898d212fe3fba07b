// The decoder's callbacks for patches; ref is the DSF_LoadState.
#pragma once
#include "scenery/ground/tile.h"

void DSF_BeginPatch(unsigned int type, double near_LOD, double far_LOD, unsigned char flags, float* proj,
                    float* mask, int depth, void* ref);
void DSF_BeginPrimitive(int type, void* ref);
void DSF_AddPatchVertex(double* coordinates, void* ref);
void DSF_EndPrimitive(void* ref);
void DSF_EndPatch(void* ref);

// Triangles of a strip or fan, without those that have no area on the map.
void decompose_polygon_to_triangles(ytest_pol_struct& poly, int pol_type);

// A side shorter than a metre on the map.
bool zero_area_tri(const d3_struct& v0, const d3_struct& v1, const d3_struct& v2);
