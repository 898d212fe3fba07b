// Hulls and floats on water: buoyancy, planing, water rudder, anchor.
#pragma once

// World y of the water at x, z with its waves, where it stands at y without them.
float wave_h(float x, float y, float z);
// Forces of one keel point of body en, station s, ring r, at a place in aircraft axes (m); 1 if it is in the
// water.
int handle_float_point(int en, int s, int r, float x_acf, float y_acf, float z_acf);
// All of the user's aircraft; sets onground_any and onground_all.
void float_on_water();
// The anchor hangs on board, as it does away from the water.
void weigh_anchor();
