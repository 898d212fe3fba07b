// Roofs and hard decks of placed objects under the user's aircraft.
// Role: a walk over what stands near, once a frame, with a window or without; whether an object is seen does
// not matter. Knows no OpenGL.
#pragma once

// Sets env.over_obs_this, obj_y_top and surf_tex when the aircraft is over one: of several over the last.
void find_roof_below();
