// 2D and 3D primitives.
#include "draw/primitives.h"

#include <GL/gl.h>

#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/seams.h"
#include "core/records/mnw.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"

namespace {
constexpr float solid = 0.99f;  // from this alpha on nothing shines through
constexpr int circle_parts = 48;

void plain_state(float alpha) {
    OGL_setstate(fog_off, 0, lit_off, alpha < solid ? al_blend : al_none, depth_no_read, depth_no_write);
}
void vertex(float x, float y) { glVertex2f(x + mnw.win_x, y + mnw.win_y); }
void vertex(const point3& p) { glVertex3f(p.x, p.y, p.z); }

// Clockwise from up.
void circle_points(float x, float y, float radius, float from, float to) {
    const int parts = intmax2(intround(circle_parts * fabsf(to - from) / 360.0f), 1);
    for (int i = 0; i <= parts; ++i) {
        const float angle = from + (to - from) * static_cast<float>(i) / static_cast<float>(parts);
        vertex(x + radius * sin_deg(angle), y + radius * cos_deg(angle));
    }
}
}  // namespace

void OGL_line(int color, float alpha, float x1, float y1, float x2, float y2) {
    plain_state(alpha);
    OGL_setcolorINDEX(color, alpha);
    glBegin(GL_LINES);
    vertex(x1 + 0.5f, y1 + 0.5f);
    vertex(x2 + 0.5f, y2 + 0.5f);
    glEnd();
}

static void box_points(float x, float y, float dx, float dy) {
    vertex(x, y);
    vertex(x, y + dy);
    vertex(x + dx, y + dy);
    vertex(x + dx, y);
}

void OGL_fillrect(int color, float alpha, float x, float y, float dx, float dy) {
    plain_state(alpha);
    OGL_setcolorINDEX(color, alpha);
    glBegin(GL_QUADS);
    box_points(x, y, dx, dy);
    glEnd();
}

void OGL_framerect(int color, float alpha, float x, float y, float dx, float dy) {
    plain_state(alpha);
    OGL_setcolorINDEX(color, alpha);
    glBegin(GL_LINE_LOOP);
    box_points(x + 0.5f, y + 0.5f, dx - 1.0f, dy - 1.0f);
    glEnd();
}

void OGL_fillcircle(int color, float alpha, float x, float y, float radius) {
    plain_state(alpha);
    OGL_setcolorINDEX(color, alpha);
    glBegin(GL_TRIANGLE_FAN);
    vertex(x, y);
    circle_points(x, y, radius, 0.0f, 360.0f);
    glEnd();
}

void OGL_framecircle(int color, float alpha, float x, float y, float radius) {
    OGL_arc(color, alpha, x, y, radius, 0.0f, 360.0f);
}

void OGL_arc(int color, float alpha, float x, float y, float radius, float from, float to) {
    plain_state(alpha);
    OGL_setcolorINDEX(color, alpha);
    glBegin(GL_LINE_STRIP);
    circle_points(x, y, radius, from, to);
    glEnd();
}

void OGL_grayrect(float x1, float y1, float x2, float y2, float rat) {
    OGL_fillrect(col_black, rat, x1, y1, x2 - x1, y2 - y1);
}

void OGL_2dquad(int tex, int col, float alp, const quad_corner& c1, const quad_corner& c2,
                const quad_corner& c3, const quad_corner& c4, int num_tex, int alB) {
    OGL_setstate(fog_off, num_tex, lit_off, alB, depth_no_read, depth_no_write);
    if (tex > 0) tman.bind_ref(tex, 0, 0);
    OGL_setcolorINDEX(col, alp);
    glBegin(GL_QUADS);
    for (const quad_corner* c : {&c1, &c2, &c3, &c4}) {
        glTexCoord2f(c->s, c->t);
        vertex(c->x, c->y);
    }
    glEnd();
}

void OGL_piece(int tex, int col, float alp, float x1, float y1, float x2, float y2, float s1, float t1,
               float s2, float t2) {
    if (!tman.tex_vram(tex)) return;  // before its image is there
    const float dx = tman.tex_dx_tot(tex), dy = tman.tex_dy_tot(tex);
    OGL_2dquad(tex, col, alp, {x1, y1, s1 / dx, t1 / dy}, {x1, y2, s1 / dx, t2 / dy},
               {x2, y2, s2 / dx, t2 / dy}, {x2, y1, s2 / dx, t1 / dy}, 1, al_blend);
}

static void world_state(int textures, float alpha) {
    OGL_setstate(fog_on, textures, lit_off, alpha < solid ? al_blend : al_none, depth_read, depth_write);
}

void OGL_3dline(int color, float alpha, const point3& a, const point3& b) {
    world_state(0, alpha);
    OGL_setcolorINDEX(color, alpha);
    glBegin(GL_LINES);
    vertex(a);
    vertex(b);
    glEnd();
}

void OGL_3dquad(int color, float alpha, const point3& a, const point3& b, const point3& c, const point3& d) {
    world_state(0, alpha);
    OGL_setcolorINDEX(color, alpha);
    glBegin(GL_QUADS);
    for (const point3* p : {&a, &b, &c, &d}) vertex(*p);
    glEnd();
}

void OGL_3dquad_st(int tex, int color, float alpha, const point3 (&corner)[4], const float (&st)[4][2]) {
    world_state(1, alpha);
    if (tex > 0) tman.bind_ref(tex, 0, 0);
    OGL_setcolorINDEX(color, alpha);
    glBegin(GL_QUADS);
    for (int i = 0; i < 4; ++i) {
        glTexCoord2f(st[i][0], st[i][1]);
        vertex(corner[i]);
    }
    glEnd();
}

void OGL_cube(int color, float alpha, const point3& m, float h) {
    const auto at = [&](float x, float y, float z) { return point3{m.x + x * h, m.y + y * h, m.z + z * h}; };
    for (const float s : {-1.0f, 1.0f}) {
        // each face clockwise seen from outside
        OGL_3dquad(color, alpha, at(s, -s, -1), at(s, -s, 1), at(s, s, 1), at(s, s, -1));
        OGL_3dquad(color, alpha, at(-s, s, -1), at(-s, s, 1), at(s, s, 1), at(s, s, -1));
        OGL_3dquad(color, alpha, at(-1, -s, s), at(-1, s, s), at(1, s, s), at(1, -s, s));
    }
}

void OGL_disc(int color, float alpha, const point3& m, float radius) {
    world_state(0, alpha);
    OGL_setcolorINDEX(color, alpha);
    glBegin(GL_TRIANGLE_FAN);
    vertex(m);
    for (int i = 0; i <= circle_parts; ++i) {
        const float angle = 360.0f * static_cast<float>(i) / circle_parts;
        vertex({m.x + radius * sin_deg(angle), m.y, m.z - radius * cos_deg(angle)});
    }
    glEnd();
}

void OGL_scissors(float x, float y, float dx, float dy) {
    if (!(dx > 0.0f && dy > 0.0f)) {
        MACIBM_fatal("OGL_scissors negative clip range!");
        return;
    }
    const auto real = [](float units) { return intround(units * mnw.xy_scale); };
    glScissor(real(x + mnw.win_x + mnw.x_off), real(y + mnw.win_y), intmax2(real(dx), 1),
              intmax2(real(dy), 1));
    glEnable(GL_SCISSOR_TEST);
}

void OGL_scissors_end() { glDisable(GL_SCISSOR_TEST); }

void OGL_sbuf() {
    OGL_setcolorINDEX(col_white, 1.0f);
    seam.swap_buffers();
}
