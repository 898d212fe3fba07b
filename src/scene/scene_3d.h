// What stands in the world besides ground, airports and aircraft.
// Role: after the terrain's pass, with the camera at the eye, light and fog set. Leaves another frustum when
// rain or the inside of the aircraft was drawn.
#pragma once

void APP_3D_scenery();
