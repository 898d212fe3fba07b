// Lamps far and near as points of light that face the eye.
// Role: a run of lamps stands between init and close, which change the GL state as they need.
#pragma once

// How a lamp looks.
enum lite_type : int { lite_plain = 26, lite_halo = 27, lite_ground_glow = 28 };

// force_textured: as pictures, whatever the user's choice.
void util_point_lite_init(int force_textured);
// Frame of the positions that follow: its place in the world, m, and its angles, degrees.
void util_point_lite_setref(float x, float y, float z, float the, float psi, float phi);
// size: pixels, or scale of the picture. i1: number of the lamp's dusk (skyc_class::any_lites_on), below 0 it
// always burns. i2: seed of its own brightness.
void util_point_lite_draw(const float* xyz, float r, float g, float b, float a, float size, int i1, int i2,
                          int lit_type);
void util_point_lite_close();
