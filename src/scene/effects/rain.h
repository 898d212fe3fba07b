// Rain and snow before the eye: points in a cube of air that repeats and drifts past.
// Role: rain_step once a drawn frame; OGL_rain in the scene. Seen only: draws its random numbers apart.
#pragma once

void rain_step();
// Leaves a frustum of its own behind: what comes next loads its view anew.
void OGL_rain();
void reset_rain();

// Where the cube stands against the eye, m, each -10 to 10.
const float (&rain_offset())[3];
