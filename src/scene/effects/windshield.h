// What is on the glass before the pilot: cracks of hail, scratches in the glare, ice, the yaw string.
// Role: windshield_step once a drawn frame; the drawing in a 2D viewport of an inside view. Knows its cracks
// alone.
#pragma once

constexpr int crackDIM = 50;
struct crack_struct {
    float x, y, size, angle;  // middle and half side, virtual units; degrees
};
// Those of this flight, from the first.
int crack_count();
const crack_struct& crack_of(int i);

// New cracks while hail strikes.
void windshield_step(float hail_rat);
void OGL_windshield_effects(float hail_rat, float ice_rat);
void reset_windshield();
