// Surfaces that lie over the terrain mesh, and the small bumps of each kind.
#pragma once

// The network's terrain, a roof, a deck or a runway at (x, z), when there is one: sets env.terrain_* and its
// world y.
bool surface_over_terrain(float x, float z, int checker, float* y);
// Height of the bumps of the surface that the user's aircraft is on, metres.
float surface_detail(float x, float z);
