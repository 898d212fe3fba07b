// Solid surfaces of objects: decks and roofs under the user's aircraft. Knows no OpenGL.
#pragma once

// The hard quad whose command stands at C, of an object at a place: under the user's aircraft it becomes the
// ground (env.over_obs_this, obj_y_top, surf_tex). No OpenGL.
void poly_hard(int M, int L, int C, float x, float y, float z);

// All hard quads of a level.
void object_hard_quads(int M, int L, float x, float y, float z);
