// The dome of the sky, and the haze that hides where the land ends.
// Role: first of all that is drawn of a view, which it covers: nothing else clears colour or depth.
#pragma once

constexpr float min_dome_dis = 1852.0f;

// Radius of the dome, m: so far that the corners of what is drawn lie inside.
float dome_radius();
// Height of the horizon below the level, degrees, 0 to 45.
float horizon_dip();

// Both with the view's turn in OpenGL's model view, without its place.
void draw_sky_dome();
void draw_bottom_band();
