// Aircraft as they are seen from outside: an outline of their parts, until they have a mesh of their own. Its
// drawing is plot_airplanes (core/program/upward.h).
#pragma once

// The airframe of slot p is to be built anew (reset_geo). Needs no window: it is built when it is first seen.
void load_plane_geo(int reset_geo, int plot, int is_wpn, int p);

void reset_plane_geo();
