// Lamps far and near as points of light that face the eye.
// Role: a run of lamps stands between init and close; nothing else is drawn and no matrix changes in between.
// The state that it needs is set by init and left behind.
#pragma once

// How a lamp looks.
enum lite_type : int { lite_plain = 26, lite_halo = 27, lite_ground_glow = 28 };

// As pictures where the user has them so or force_textured wants it, else as OpenGL's points.
void util_point_lite_init(int force_textured);
// Frame of the positions that follow, which the matrix has already: its place in the world, m, and its
// attitude, degrees. Only pictures need it: they turn to the eye and grow with its distance.
void util_point_lite_setref(float x, float y, float z, float the, float psi, float phi);
// xyz: m in that frame. size: pixels, or scale of the picture. i1: number of the lamp's dusk
// (skyc_class::any_lites_on), below 0 it always burns. i2: seed of its own brightness, not negative. Fatal: a
// type that is none, a colour outside 0 to 1.
void util_point_lite_draw(const float* xyz, float r, float g, float b, float a, float size, int i1, int i2,
                          int lit_type);
void util_point_lite_close();
