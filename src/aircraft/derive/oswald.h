// Oswald efficiency of a wing by its planform.
// Role: once per surface at load.
#pragma once

// aspec: aspect ratio; washo: washout, degrees; sweep: of the quarter chord, degrees; taper: tip chord
// over root chord. An argument off the grid takes the end value.
float ret_e(float aspec, float washo, float sweep, float taper);

// Value at (x, y) in a grid of 3 by 3; zij stands at (xi, yj). Straight lines along x, then along y;
// beyond the grid the outer cell goes on.
float interp9(float x1, float x2, float x3, float y1, float y2, float y3, float z11, float z21, float z31,
              float z12, float z22, float z32, float z13, float z23, float z33, float x, float y);
