// Three-dimensional objects: models of files, loaded once and known by their index, and their drawing.
// Role: main thread only. A level of a model is two display lists, day and night, and a short list of actions
// for what changes with time: lamps, smoke, movies, solid surfaces. Without a window there are no lists.
// Object frame: metres, y up.
#pragma once
#include <string>
#include <unordered_map>
#include <vector>

// Commands of a model: those that a file gives, the rest is made while it is read.
enum object_code : int {
    obj_none = 0,
    obj_light = 1,
    obj_line = 2,
    obj_tri = 3,
    obj_quad = 4,
    obj_quad_movie = 5,
    obj_quad_cockpit = 6,
    obj_quad_hard = 7,
    obj_polygon = 8,
    obj_quad_strip = 9,
    obj_tri_strip = 10,
    obj_tri_fan = 11,
    obj_normal = 12,  // x y z
    obj_vert_light = 13,
    obj_vert_line = 14,  // x y z r g b
    obj_vert_tex = 15,
    obj_vert_movie = 16,  // x y z s t
    obj_end_light = 17,
    obj_end_line = 18,
    obj_end_poly = 19,
    obj_end_movie = 20,
    obj_end_cockpit = 21,
    obj_smoke_black = 22,
    obj_smoke_white = 23,  // x y z size
    obj_shade_flat = 24,
    obj_shade_smooth = 25,
    obj_ambient = 26,
    obj_diffuse = 27,
    obj_specular = 28,
    obj_emission = 29,  // r g b
    obj_shiny = 30,     // shininess
    obj_no_depth = 31,
    obj_depth = 32,
    obj_no_cull = 33,
    obj_cull = 34,
    obj_poly_os = 35,  // steps
    obj_lod = 36,
    obj_reset = 37,
    obj_other_attr = 38,
    obj_file_end = 99,
};

struct vec_act_struct {
    int act = obj_none;  // object_code
    float dat[6] = {};
};

struct vec_lod_struct {
    int dl_day = 0, dl_nit = 0;                // display lists, 0 without a window
    float dis_near_sqr = 0, dis_far_sqr = -1;  // where it is seen, squared distance from the eye, m2
    int triangles = 0;                         // in a list
    bool binds_in_list = false;                // the lists bind textures past the texture manager
    std::vector<vec_act_struct> vec_act;       // all commands while a file is read, then the actions alone
};

struct vec_mod_struct {
    std::string path;                  // relative to the install folder
    int tex_ref_1 = 0, tex_ref_2 = 0;  // textures of day and night; 0 for no night
    std::vector<vec_lod_struct> vec_lod;
    float cull_center_xyz[3] = {};  // middle of the box around level 0
    float cull_radius = 0;          // the box's whole diagonal, m
};

extern std::vector<vec_mod_struct> vec_mod;
extern std::unordered_map<std::string, int> vec_mod_index;
