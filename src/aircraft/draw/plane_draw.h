// The aircraft as it is seen.
#pragma once

// The aircraft of a slot in its own axes, m. view: 2 from its own cockpit.
void plot_plane_3D(int p, int view);
// A weapon on board or in flight, at its place in the world.
void plot_weapon(int p, int w);
