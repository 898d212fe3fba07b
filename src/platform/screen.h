// The virtual screen of 1024 by 768 units, origin at the lower left, and what occupies it.
// Role: set at start and whenever a window opens or closes; knows no window system.
#pragma once

// Scale and offsets from x_res_now and y_res_now: the picture is centred sideways, extra height goes
// on top.
void compute_screen_scale();
