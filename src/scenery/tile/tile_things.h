// The decoder's callbacks for what stands on the land: objects, roads, polygons; ref is the DSF_LoadState.
#pragma once
#include "scenery/tile/tile_state.h"

void DSF_AddObject(unsigned int type, double* coordinates, double rotation, void* ref);
void DSF_BeginSegment(unsigned int type, unsigned int subtype, unsigned int node, double* coordinates,
                      bool curved, void* ref);
void DSF_AddSegmentShapePoint(double* coordinates, bool curved, void* ref);
void DSF_EndSegment(unsigned int node, double* coordinates, bool curved, void* ref);
void DSF_BeginPolygon(unsigned int type, unsigned short param, void* ref);
void DSF_BeginPolygonWinding(void* ref);
void DSF_AddPolygonPoint(double* coordinates, void* ref);
void DSF_EndPolygonWinding(void* ref);
void DSF_EndPolygon(void* ref);

// Facades and forests of the tile's polygons, into layers of their own.
void extrude_polygons(DSF_LoadState* state);

// Road layers, and objects in layers by their textures.
void bucket_roads_and_objects(DSF_LoadState* state);
