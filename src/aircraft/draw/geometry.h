// Aircraft as they are seen from outside: meshes of their surfaces, an outline of the other parts. Its
// drawing is plot_airplanes (core/program/upward.h).
#pragma once

// Builds the meshes of slot p. Needs no window: lists are compiled when the aircraft is first seen. load_tex
// asks for its paint; dump_start and touch_up are an editor's and stay unused.
void load_plane_geo(int load_tex, int dump_start, int touch_up, int p);

void reset_plane_geo();
