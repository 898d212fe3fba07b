// Autopilot, flight director and the sum of all controls.
#pragma once

// Every pilot and system input becomes the final commands FC_ptch, FC_roll, FC_hdng.
void update_autopilot(int p);
// 1 if any autopilot mode is engaged.
int otto_running();
