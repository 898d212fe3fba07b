// Routines of this folder that do not exist yet: each call stands in its place in the frame and gets its neutral
// answer here. The file shrinks as they are built.
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "scene/world.h"
#include "scenery/packages/library.h"

// The plain view stands for the world renderer, and there is no map.
void poke_zoom(int) {}
void poke_pan(float, float) {}
void shift_camera_spot(const double*) {}
void init_world_rendering() { DSF_ScanSceneryFolder(); }
void build_DLs() {}
void scene_state_step() {}
void WORLD_scene_all_cases() {
    scene_state_step();
    seam.draw_world();
}
