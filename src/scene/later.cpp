// Routines of this folder that do not exist yet: each call stands in its place in the frame and gets its
// neutral answer here. The file shrinks as they are built.
#include "core/program/upward.h"
#include "scene/world.h"

// There is no map, and no fixed display lists.
void poke_zoom(int) {}
void poke_pan(float, float) {}
void shift_camera_spot(const double*) {}
void build_DLs() {}
