// The part of the frame that simulates and draws the content of the screen.
#pragma once

// The part of the frame that simulates and draws the content of the screen.
void APP_update();

// The part of the simulation that runs in every state, also paused and behind settings windows.
void WORLD_math_all_cases();

// Whether flight data is recorded and sent now.
int collect_data();
void reset_app_update();
