// The mouse as the yoke, for whoever has no joystick.
// Role: once a frame from JOY_get; writes mnw.mouse_is_joy and the axes of pitch and roll, which the flight step
// applies. Knows no aircraft.
#pragma once

void mouse_yoke_step();
// The mouse flies nothing and may take the yoke now: the picture says how.
bool mouse_yoke_is_free();
void reset_mouse_yoke();
