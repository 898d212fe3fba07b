// Wings, fins and pylons from their meshes, with controls that move. What moves costs a matrix: lists are
// compiled once for an aircraft.
#pragma once

// All that slot p has, as they stand now. Aircraft axes; state and colour are the caller's.
void draw_surfaces(int p);
// The meshes of slot p have changed.
void surfaces_are_old(int p);
// The window that held the lists is gone.
void forget_surface_lists();
