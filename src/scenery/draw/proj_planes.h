// Planes that give texture coordinates to a place of the world.
// Role: the mathematics of set_proj_tex (proj_tex.h); main thread, since what moves with water and wind is
// kept here. Makes no call of OpenGL.
#pragma once
#include "scenery/draw/layer_units.h"

// Coordinate = plane * (x, y, z, 1), world frame, m.
struct proj_planes_struct {
    float s[4], t[4], q[4];
    bool has_t, has_q;  // one that has none comes from the vertices
};

// coords: metres per repeat, for proj_ground. ref: the picture shown. False for what is no projection.
bool find_proj_planes(int pt, const ogl_proj_struct* coords, int ref, proj_planes_struct* out);

// The tile that is drawn now, by its column and row in the region.
void set_proj_tile(int lon_os, int lat_os);

// Waves and drifting snow move on by so many seconds.
void move_projections(float seconds);
void reset_projections();
