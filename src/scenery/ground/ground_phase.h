// The constant terms of textures that are projected on the ground.
// Role: when the region shifts, the pattern under the eye keeps its phase. No OpenGL.
#pragma once

// What is added to world x and z before they are divided by a texture's metres per repeat, m.
struct ground_phase_struct {
    double x, z;
};
const ground_phase_struct& ground_phase();

// The same place of the ground had world x and z (m) of old_xz and has new_xz now: its phase stays.
void keep_ground_phase(const double old_xz[2], const double new_xz[2]);
void reset_ground_phase();
