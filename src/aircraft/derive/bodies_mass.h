// Areas and inertia of bodies.
#pragma once

// Area of a triangle in space.
float findarea(float x1, float y1, float z1, float x2, float y2, float z2, float x3, float y3, float z3);

// Measures body en of aircraft p, or with is_wpn the body of its weapon en, at place x, y, z (metres).
// s_frn grows to the largest section, s_sid and s_top by the side and the plan area, swet_tot by the
// surface, and the three J by surface times squared arms: about the lateral (xx), vertical (yy) and
// longitudinal (zz) axis. x_aero, y_aero, z_aero: centroid of the surface.
// A body of the user's aircraft without frontal area is fatal.
void get_MI_S_body(int p, int en, int is_wpn, float x, float y, float z, float* s_frn, float* s_sid,
                   float* s_top, float* x_aero, float* y_aero, float* z_aero, float* swet_tot,
                   float* Jxx_unitmass, float* Jyy_unitmass, float* Jzz_unitmass);

// Surface of all bodies of a derived aircraft, square metres.
float bodies_wetted_area(int p);

// -- masses (bodies_mass.cpp)
void derive_prop_discs(int p);
void derive_inertia(int p);
