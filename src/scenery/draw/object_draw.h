// What the drawing of an object asks of others, in one place so that it can be watched.
// Role: for the files of object drawing and their tests; the rest of the system calls objects.h.
#pragma once

struct object_calls_struct {
    void (*lite_init)(int force_textured);
    void (*lite_setref)(float x, float y, float z, float the, float psi, float phi);
    void (*lite_draw)(const float* xyz, float r, float g, float b, float a, float size, int i1, int i2,
                      int lit_type);
    void (*lite_close)();
    int (*lites_on)(int code);
    void (*spawn_puff)(float x, float y, float z, float vx, float vy, float vz, float size, int color,
                       float alpha);
};
extern object_calls_struct object_calls;

// The state and the textures in which an object's lists run: for a batch of one model.
void object_state(int M, int lit);

// What a plot does: compiles a level's list, draws the level that the distance asks for, or emits the
// display commands at once (while the level still has them).
enum object_plot : int { plot_compile = 0, plot_list = 1, plot_emit = 2 };

// Place in the world, heading, pitch, roll in degrees; lit: its night picture and lists.
void plot_obj(int M, int L, float x, float y, float z, float psi, float the, float phi, int lit, int DL_type);

// One of a batch: the caller has set the state, bound the textures and chosen the level. The only form that
// tests solid surfaces.
void plot_obj_inloop(int M, int L, float x, float y, float z, float psi, float the, float phi, int lit);

// Texturing on the first units only.
void OBJ_tex_units(int new_tex);
