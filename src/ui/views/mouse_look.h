// The mouse and the joystick's hat turn the view.
// Role: once a frame from JOY_get; writes ren's look offsets and a view station's angles.
#pragma once

void mouse_look_step();
