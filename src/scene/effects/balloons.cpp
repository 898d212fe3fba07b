// Balloons.
#include "scene/effects/balloons.h"

#include <GL/gl.h>

#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/records.h"
#include "draw/camera/xcam.h"
#include "draw/gl/colours.h"
#include "draw/gl/frame_counts.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "platform/window.h"
#include "scene/effects/person.h"
#include "scenery/ground/terrain_query.h"
#include "weather/sky/skyc.h"
#include "weather/wind.h"

namespace {
struct balloons_struct {
    balloon_struct at[balloonDIM] = {};
    GLuint list = 0;
    int generation = 0;  // of the window that the list is of
};
balloons_struct balloons;

bool weather_is_fair() {
    constexpr float least_C = 15.0f, most_C = 25.0f, vis_nm = 5.0f;
    return stg.draw_misc && fltrange(con.sl_T_cel, least_C, most_C) && !skyc.runway_lites_on() &&
           atm.vis_rep * con.mtrstonm > vis_nm;
}

// On a random bearing at the edge of where they fly.
void place(balloon_struct* b, float reach) {
    const float bearing = view_rand(0.0f, 360.0f);
    *b = {static_cast<float>(flt[0].dob_x) + reach * sin_deg(bearing),
          static_cast<float>(flt[0].dob_z) - reach * cos_deg(bearing)};
}
}  // namespace

const balloon_struct& balloon_of(int i) { return balloons.at[i]; }
void reset_balloons() { balloons = {}; }

void balloons_step() {
    constexpr float reach_nm = 3.0f;
    const float reach = reach_nm * con.nmtomtrs;
    if (!weather_is_fair()) return;
    for (balloon_struct& b : balloons.at) {
        const float off = pythag(b.x - static_cast<float>(flt[0].dob_x), b.z - static_cast<float>(flt[0].dob_z));
        const bool is_unset = b.x == 0.0f && b.z == 0.0f;
        if (is_unset || !(off <= reach)) place(&b, 0.999f * reach);
        if (mnw.paused) continue;
        b.x += wind.ret_wind_x() * mnw.prd_FM;
        b.z += wind.ret_wind_z() * mnw.prd_FM;
    }
}

namespace {
// Envelope, from the mouth to the crown: height above its middle and radius, m.
struct ring_struct {
    float y, r;
};
constexpr ring_struct rings[] = {{-12.0f, 1.6f}, {-10.0f, 3.0f}, {-7.0f, 5.6f}, {-4.0f, 7.8f}, {-1.0f, 9.2f}, {2.0f, 9.6f},
                                 {4.5f, 9.0f},   {7.0f, 7.2f},   {8.6f, 4.9f},  {9.5f, 2.4f},  {9.8f, 0.05f}};
constexpr int ring_count = sizeof rings / sizeof rings[0], sides = 24;
constexpr float basket_t = 0.1f;  // of the texture's height that is wicker

void send_ring_point(int ring, int i) {
    const int before = intmax2(ring - 1, 0), after = intmin2(ring + 1, ring_count - 1);
    const float dy = rings[after].y - rings[before].y, dr = rings[after].r - rings[before].r;
    const float steep = fltmax2(pythag(dy, dr), 0.001f), way = 360.0f * static_cast<float>(i) / sides;
    const float t = basket_t + (1.0f - basket_t) * static_cast<float>(ring) / (ring_count - 1);
    glNormal3f(sin_deg(way) * dy / steep, -dr / steep, cos_deg(way) * dy / steep);
    glTexCoord2f(static_cast<float>(i) / sides, t);
    glVertex3f(rings[ring].r * sin_deg(way), rings[ring].y, rings[ring].r * cos_deg(way));
}

void send_envelope() {
    for (int ring = 0; ring + 1 < ring_count; ++ring) {
        glBegin(GL_QUAD_STRIP);
        for (int i = 0; i <= sides; ++i) {
            send_ring_point(ring, i);
            send_ring_point(ring + 1, i);
        }
        glEnd();
    }
}

// Four walls of wicker around the crew, and the ropes that carry them.
void send_basket() {
    constexpr float half = 0.95f, low = -17.1f, high = -16.0f, mouth = -12.0f, mouth_r = 1.55f;
    constexpr float corner[5][2] = {{-1, 1}, {1, 1}, {1, -1}, {-1, -1}, {-1, 1}};
    glBegin(GL_QUADS);
    for (int i = 0; i < 4; ++i) {
        const auto &a = corner[i], &b = corner[i + 1];
        glNormal3f(0.5f * (a[0] + b[0]), 0.0f, 0.5f * (a[1] + b[1]));
        glTexCoord2f(0.0f, 0.0f), glVertex3f(a[0] * half, low, a[1] * half);
        glTexCoord2f(0.0f, 0.085f), glVertex3f(a[0] * half, high, a[1] * half);
        glTexCoord2f(0.2f, 0.085f), glVertex3f(b[0] * half, high, b[1] * half);
        glTexCoord2f(0.2f, 0.0f), glVertex3f(b[0] * half, low, b[1] * half);
    }
    glNormal3f(0.0f, 1.0f, 0.0f);
    for (int i = 0; i < 4; ++i) glTexCoord2f(0.1f, 0.04f), glVertex3f(corner[i][0] * half, low, corner[i][1] * half);
    glEnd();
    glBegin(GL_LINES);
    for (int i = 0; i < 4; ++i) {
        glTexCoord2f(0.1f, 0.095f);
        glVertex3f(corner[i][0] * half, high, corner[i][1] * half);
        glVertex3f(corner[i][0] * mouth_r * 0.7f, mouth, corner[i][1] * mouth_r * 0.7f);
    }
    glEnd();
}

GLuint balloon_list() {
    if (balloons.list && balloons.generation == window_generation) return balloons.list;
    balloons.generation = window_generation;
    balloons.list = glGenLists(1);
    glNewList(balloons.list, GL_COMPILE);
    send_envelope();
    send_basket();
    glEndList();
    return balloons.list;
}

void draw_crew() {
    constexpr float floor = -17.0f, off = 0.6f;
    constexpr float place_xz[4][2] = {{0, -off}, {off, 0}, {0, off}, {-off, 0}};
    for (int i = 0; i < 4; ++i)
        OGL_person(place_xz[i][0], floor, place_xz[i][1], 90.0f * static_cast<float>(i), i + 1);
}

void draw_balloon(int i, float x, float y, float z) {
    constexpr float near_enough = 2000.0f;  // m: farther off a person is smaller than a pixel
    OGL_setstate(fog_on, 1, lit_on, al_none, depth_read, depth_write);
    OGL_cull(0);
    tman.bind_ref(tex_balloon + i, 0, combine_default);
    glPushMatrix();
    glTranslatef(x, y, z);
    glCallList(balloon_list());
    ++frame_counts.lists;
    frame_counts.triangles += 2 * sides * (ring_count - 1) + 10;
    if (pythag(x - ren.view_xyz[0], y - ren.view_xyz[1], z - ren.view_xyz[2]) < near_enough) draw_crew();
    glPopMatrix();
    OGL_cull(1);
}
}  // namespace

void draw_balloons() {
    constexpr float up = 100.0f, around = 20.0f;  // m above the ground; radius with the basket
    if (!weather_is_fair()) return;
    for (int i = 0; i < balloonDIM; ++i) {
        const balloon_struct& b = balloons.at[i];
        if (b.x == 0.0f && b.z == 0.0f) continue;
        const float y = return_terrain_y(b.x, b.z, checker_balloon_first + i) + up;
        if (xcam.SphereInView(b.x, y, b.z, around)) draw_balloon(i, b.x, y, b.z);
    }
}
