// Points of light.
#include "weather/draw/point_lights.h"

#include <GL/gl.h>
#include <math.h>

#include "core/math/axes.h"
#include "core/math/geo3.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/alert.h"
#include "core/records/ren.h"
#include "core/records/stg.h"
#include "draw/gl/camera_load.h"
#include "draw/gl/colours.h"
#include "draw/gl/frame_counts.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "weather/sky/skyc.h"

namespace {
// The frame that lamps stand in, and directions of the world and of the eye in its axes.
struct frame_struct {
    d3_struct from_eye;  // its place, world axes, m
    bool tilted = false;
    float sines[6] = {0, 1, 0, 1, 0, 1};  // sine and cosine of heading, pitch, roll
    d3_struct across, up;                 // of the picture: right and up as the eye has them
    d3_struct east, south, below;         // of the world
};
struct run_struct {
    float size_prv = 0.0f;   // pixels of the points of this run
    float size_mult = 0.0f;  // of the pictures: less where the eye looks through a longer lens
};
frame_struct frame;
run_struct run;

// Turns by the frame's attitude: any_to_wrl or wrl_to_any.
d3_struct turned(const d3_struct& v, decltype(any_to_wrl) turn) {
    if (!frame.tilted) return v;
    const float* const s = frame.sines;
    d3_struct out;
    turn(v.x, v.y, v.z, &out.x, &out.y, &out.z, s[0], s[1], s[2], s[3], s[4], s[5]);
    return out;
}
d3_struct to_world(const d3_struct& v) { return turned(v, any_to_wrl); }
d3_struct from_world(const d3_struct& v) { return turned(v, wrl_to_any); }

// The picture's cells: lamp, its glow on the ground, lamp with a halo.
struct cell_struct {
    float s1, s2, t1, t2;
};
constexpr cell_struct cell_lamp = {0.0f, 0.25f, 0.0f, 0.5f}, cell_glow = {0.25f, 0.5f, 0.0f, 0.5f},
                      cell_halo = {0.25f, 0.5f, 0.5f, 1.0f};

void emit_quad(const d3_struct& middle, const d3_struct& right, const d3_struct& up,
               const cell_struct& cell) {
    const struct {
        float s, t, x, y;
    } corners[] = {{cell.s1, cell.t1, -1, -1},
                   {cell.s1, cell.t2, -1, 1},
                   {cell.s2, cell.t2, 1, 1},
                   {cell.s2, cell.t1, 1, -1}};  // clockwise for the eye
    for (const auto& c : corners) {
        glTexCoord2f(c.s, c.t);
        glVertex3fv((middle + right * c.x + up * c.y).xyz());
    }
    frame_counts.triangles += 2;
}

// A square below the lamp that the ground does not hide.
void emit_ground_glow(const d3_struct& at) {
    constexpr float half = 2.0f;  // m
    glEnd();
    OGL_depth(depth_no_read, depth_no_write);
    glBegin(GL_QUADS);
    emit_quad(at + frame.below, frame.east * half, frame.south * -half, cell_glow);
    glEnd();
    OGL_depth(depth_read, depth_no_write);
    glBegin(GL_QUADS);
}

void emit_picture(const d3_struct& at, float size, int lit_type) {
    constexpr float near_enough = 150000.0f;  // m2, for a glow on the ground
    const d3_struct from_eye = frame.from_eye + to_world(at);
    const float distance2 = from_eye.dot(from_eye);
    const float half = size * powf(distance2, 0.35f) * run.size_mult;
    if (lit_type == lite_ground_glow && distance2 < near_enough) emit_ground_glow(at);
    emit_quad(at, frame.across * half, frame.up * half, lit_type == lite_halo ? cell_halo : cell_lamp);
}

// OpenGL takes no other size within a run.
void emit_point(const d3_struct& at, float size) {
    if (size != run.size_prv) {
        glEnd();
        glPointSize(size);
        glBegin(GL_POINTS);
        run.size_prv = size;
    }
    glVertex3fv(at.xyz());
}
}  // namespace

void util_point_lite_init(int force_textured) {
    ren.tex_lites = stg.draw_texlites || force_textured;
    OGL_setstate(fog_on, ren.tex_lites, lit_off, al_blend, depth_read, depth_no_write);
    if (ren.tex_lites) tman.bind_ref(tex_lights, 0, combine_default);
    constexpr float per_distance = 0.02f;
    run = {-999.0f, per_distance / OGL_zoom()};
    glBegin(ren.tex_lites ? GL_QUADS : GL_POINTS);
}

void util_point_lite_setref(float x, float y, float z, float the, float psi, float phi) {
    frame.from_eye = {x - ren.view_xyz[0], y - ren.view_xyz[1], z - ren.view_xyz[2]};
    frame.tilted = the != 0.0f || psi != 0.0f || phi != 0.0f;
    const float sines[6] = {sin_deg(psi), cos_deg(psi), sin_deg(the),
                            cos_deg(the), sin_deg(phi), cos_deg(phi)};
    for (int i = 0; i < 6; ++i) frame.sines[i] = sines[i];
    const float sin_psi = ren.sin_final_psi, cos_psi = ren.cos_final_psi, sin_the = ren.sin_final_the,
                cos_the = ren.cos_final_the;
    frame.across = from_world({cos_psi, 0.0f, sin_psi});
    frame.up = from_world({-sin_psi * sin_the, cos_the, cos_psi * sin_the});
    frame.east = from_world({1.0f, 0.0f, 0.0f});
    frame.south = from_world({0.0f, 0.0f, 1.0f});
    frame.below = from_world({0.0f, -1.0f, 0.0f});
}

void util_point_lite_draw(const float* xyz, float r, float g, float b, float a, float size, int i1, int i2,
                          int lit_type) {
    if (!intrange(lit_type, lite_plain, lite_ground_glow)) return MACIBM_fatal("Bad lite type!");
    if (i1 >= 0 && !skyc.any_lites_on(i1)) return;
    OGL_setcolorRGBA(r, g, b, a * flt_seedrand(0.35f, 1.0f, i2), 1);
    const d3_struct at = {xyz[0], xyz[1], xyz[2]};
    if (ren.tex_lites)
        emit_picture(at, size, lit_type);
    else
        emit_point(at, size);
}

void util_point_lite_close() {
    glEnd();
    if (!ren.tex_lites) glPointSize(1.0f);
}
