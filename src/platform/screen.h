// The virtual screen of 1024 by 768 units, origin at the lower left, and what occupies it.
// Role: set at start and whenever a window opens or closes; knows no window system.
#pragma once
#include <string>

// Scale and offsets from x_res_now and y_res_now: the picture is centred sideways, extra height goes
// on top.
void compute_screen_scale();

// Switches what occupies the screen. from_str is a short note of the caller.
void MACIBM_startwind(int new_top_win, std::string from_str);
