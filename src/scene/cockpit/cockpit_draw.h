// The cockpit in the frame: the panel into its texture, the inside in 3D, the flat panel.
#pragma once

// The panel, drawn before the sky, which then covers it, into the texture that models and the plane show.
void capture_panel();
// Inside of the aircraft in 3D, nearer than all of the world. Leaves its own frustum behind.
void draw_cockpit_3d();
// The flat panel, in a 2D viewport.
void draw_cockpit_2d();
