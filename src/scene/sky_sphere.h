// What the bodies of the sky share.
#pragma once

constexpr float dis_to_sun = 1759.4f;  // radius of the sphere round the eye that bodies stand on, m

// Does it outshine the light from all around in any colour?
bool outshines_ambient(float brightness);
// Turns OpenGL's model view to the level frame at the aircraft's place: x east, y up, z south. Gives the
// view's heading there, degrees. All of the sky hangs in that frame: the region's own leans against it by up
// to a degree and a half, and by another one after each shift.
float turn_to_local_level();
