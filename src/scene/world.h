// The flying view.
#pragma once

void init_world_rendering();
void build_DLs();
void WORLD_scene_all_cases();  // draws the world and the cockpit

// What the drawing order computes for the simulation, without drawing.
void scene_state_step();
void reset_world_scene();
