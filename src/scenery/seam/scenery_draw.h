// What reading scenery asks of drawing, in one table: textures and display lists.
// Role: readers of tiles and objects call through it and so link without OpenGL; whoever has a window fills
// it with scenery_draw_gl (scenery/draw/scenery_gl.h).
#pragma once
#include <string>

struct xlay_struct;
struct scene_patch_struct;

struct scenery_draw_struct {
    // Reference of the picture at a path, 0 when there is none. filter: a tex_filter.
    int (*load_texture)(const std::string& path, int filter);
    void (*unload_texture)(int ref);
    int (*has_alpha)(int ref);  // non-zero when the texture's picture has an alpha channel

    void (*compile_patch)(const xlay_struct* layer, scene_patch_struct* patch);  // patch_DL from its geometry
    void (*destroy_patch_list)(scene_patch_struct* patch);

    void (*compile_object)(int M);  // lists of all levels of vec_mod[M]

    void (*load_planet_pictures)(int planet);  // env.planet: 0 Earth, 1 Mars
};
// At first every texture is the blank one, and there are no lists.
extern scenery_draw_struct scenery_draw;
