// Northern lights.
#include "scene/aurora.h"

#include <GL/gl.h>

#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/mnw.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "scene/sky_sphere.h"

namespace {
// Half-width, height, middle, alpha.
enum { part_dx, part_dy, part_cx, part_al, part_count };

constexpr float rest[part_count] = {dis_to_sun, 0.5f * dis_to_sun, 0.5f, 0.5f};
constexpr float push[part_count] = {0.008f * dis_to_sun, 0.004f * dis_to_sun, 0.015f, 0.015f};

struct motion_struct {
    float value[part_count] = {rest[0], rest[1], rest[2], rest[3]};
    float speed[part_count] = {}, accel[part_count] = {};  // a second, a second squared
};

struct aurora_state {
    motion_struct bands[aurora_bands];
};
aurora_state state;

// Pushed anew now and then, drawn back to rest as by a spring; the loss keeps the pushes of a whole night
// from adding up.
void move_part(motion_struct& band, int part) {
    constexpr float spring = 0.01f, loss = 0.05f;  // per s2, per s
    const float dt = mnw.prd_FM;
    if (view_rand(0.0f, 1.0f) < dt) band.accel[part] = view_rand(-push[part], push[part]);
    const float back = spring * (band.value[part] - rest[part]) + loss * band.speed[part];
    band.speed[part] += (band.accel[part] - back) * dt;
    band.value[part] += band.speed[part] * dt;
    if (part == part_cx || part == part_al) band.value[part] = fltlim(band.value[part], 0.0f, 1.0f);
}
}  // namespace

void reset_aurora() { state = {}; }

aurora_band aurora_band_of(int i) {
    const float* v = state.bands[i].value;
    return {v[part_dx], v[part_dy], v[part_cx], v[part_al]};
}

void aurora_step() {
    for (motion_struct& band : state.bands)
        for (int part = 0; part < part_count; ++part) move_part(band, part);
}

float aurora_shape(const aurora_band& band) {
    const float dx = fallout(band.dx, -1.0f, 1.0f), dy = fallout(band.dy, -1.0f, 1.0f);
    return interp(1.5f, 1.0f, 3.0f, 0.0f, dy / dx) * interp(2.5f, 1.0f, 5.0f, 0.0f, dx / dy) *
           interp(1.5f, 1.0f, 2.0f, 0.0f, dy / (0.5f * dis_to_sun)) *
           interp(0.2f, 1.0f, 0.0f, 0.0f, band.cx) * interp(0.8f, 1.0f, 1.0f, 0.0f, band.cx);
}

namespace {
void half_band(float x1, float x2, float y1, float y2, float s1, float s2) {
    glTexCoord2f(s1, 0.0f), glVertex3f(x1, y1, 0.0f);
    glTexCoord2f(s1, 1.0f), glVertex3f(x1, y2, 0.0f);
    glTexCoord2f(s2, 1.0f), glVertex3f(x2, y2, 0.0f);
    glTexCoord2f(s2, 0.0f), glVertex3f(x2, y1, 0.0f);
}

void draw_band(int i, float brightness) {
    const aurora_band band = aurora_band_of(i);
    const float alpha = fltlim(band.al * aurora_shape(band) * brightness * 0.4f, 0.0f, 1.0f);
    const float middle = extrap(0.0f, -band.dx, 1.0f, band.dx, band.cx), low = -0.5f * dis_to_sun;
    tman.bind_ref(tex_aurora + i, 0, combine_default);
    OGL_setcolorINDEX(col_state, alpha);
    glBegin(GL_QUADS);
    half_band(-band.dx, middle, low, band.dy, 0.0f, 0.5f);
    half_band(middle, band.dx, low, band.dy, 0.5f, 1.0f);
    glEnd();
}
}  // namespace

void draw_aurora(float brightness) {
    glPushMatrix();
    turn_to_local_level();
    glTranslatef(0.0f, 0.4f * dis_to_sun, -0.7f * dis_to_sun);
    OGL_setstate(fog_off, 1, lit_off, al_blend, depth_no_read, depth_no_write);
    for (int i = 0; i < aurora_bands; ++i) draw_band(i, brightness);
    glPopMatrix();
}
