// The ground scene: layers of terrain and objects of all tiles, and what is drawn between them.
// Role: once a view, with xcam set up and loaded (draw/gl/camera_load.h), light and fog set. Draws what xdeg
// holds, which may be nothing. Main thread.
#pragma once
#include "scenery/ground/tile.h"

// is_map: the map view, without fog; is_hits: the pick render, which shows ground and airports alone.
void OGL_terrain_grid(int is_map, int is_hits);

enum ground_pass : int {
    pass_before_airports = 0,
    pass_after_airports = 1,
    pass_objects = 2,
};
// has_fog: an ogl_switch.
void plot_group_layers(int iterator_enum, int is_map, int is_hits, int has_fog);

// For XCull::Iterate: draws of one bucket of a layer what is seen at that squared distance, m2.
void plot_bucket_terrain_layer(XBucketID id, float lod_m_sqr, xlay_struct* ref);
void plot_bucket_instances_layer(XBucketID id, float lod_m_sqr, xlay_struct* ref);

// The aircraft's landing light as a lamp of OpenGL, and the colour that water has with it and without.
void turn_lite_on();
void turn_lite_off(int is_map, int is_hits);

void reset_terrain_draw();
