// Sky, sun and haze, then the ground scene as the simulator draws it.
#include "tile_picture.h"

#include <GL/gl.h>
#include <math.h>

#include <algorithm>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/records/con.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "draw/camera/xcam.h"
#include "draw/gl/camera_load.h"
#include "draw/gl/ogl.h"
#include "scenery/draw/terrain_draw.h"
#include "scenery/ground/terrain_query.h"

namespace {
constexpr float view_deg = 60.0f;                                              // horizontal
constexpr float haze_from = 4000.0f, haze_to = 75000.0f, far_clip = 90000.0f;  // m
constexpr float haze[3] = {0.73f, 0.80f, 0.86f}, zenith[3] = {0.30f, 0.50f, 0.80f};

// -- the eye

// Above the ground along the place's own vertical, which leans in the frame of the region.
void place_eye(const eye_place& eye) {
    constexpr int checker = 27;
    double at[3], lat, lon, ground;
    xdob_xyz_with_latlonel(&at[0], &at[1], &at[2], eye.lat, eye.lon, 0.0);
    const double y = return_terrain_y(static_cast<float>(at[0]), static_cast<float>(at[2]), checker);
    xdob_latlonel_with_xyz(&lat, &lon, &ground, at[0], y, at[2]);
    xdob_xyz_with_latlonel(&at[0], &at[1], &at[2], eye.lat, eye.lon, ground + eye.height);
    for (int i = 0; i < 3; ++i) ren.view_xyz[i] = static_cast<float>(at[i]);
}

// An afternoon sun in the south-west, so that slopes show; directions of the world.
void light_the_land() {
    const float azimuth = 235.0f, elevation = 38.0f;
    const float sun[4] = {sin_deg(azimuth) * cos_deg(elevation), sin_deg(elevation),
                          -cos_deg(azimuth) * cos_deg(elevation), 0.0f};
    const float direct[4] = {0.82f, 0.80f, 0.74f, 1.0f}, sky[4] = {0.36f, 0.38f, 0.42f, 1.0f};
    glLightfv(GL_LIGHT0, GL_POSITION, sun);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, direct);
    glLightfv(GL_LIGHT0, GL_AMBIENT, sky);
}

// Upright on the curved planet in the flat frame of the region.
void look_from(const eye_place& eye) {
    // as far off as may be: the depth of distant ground has few bits
    constexpr float closest = 1.5f, per_height = 0.02f;
    const double near_clip = fltmax2(closest, per_height * static_cast<float>(eye.height));
    const double x = near_clip * tan_deg(0.5f * view_deg), y = x * mnw.y_res_now / mnw.x_res_now;
    xcam.SetupFrustum(-x, x, -y, y, near_clip, far_clip);
    camera_load_projection();
    xcam.Identity();
    xcam.Rotate(-eye.pitch, 1.0, 0.0, 0.0);
    xcam.Rotate(eye.heading, 0.0, 1.0, 0.0);
    const double lean = dob_radtodeg / con.planet_rad;  // degrees for each metre
    xcam.Rotate(-lean * ren.view_xyz[2], 1.0, 0.0, 0.0);
    xcam.Rotate(lean * ren.view_xyz[0], 0.0, 0.0, 1.0);
    LoadModelView();
    light_the_land();
    xcam.Translate(-ren.view_xyz[0], -ren.view_xyz[1], -ren.view_xyz[2]);
    LoadModelView();
}

// -- sky

// Where an elevation above the horizon stands in the window, -1 its lower edge to 1.
float height_in_view(double elevation, double pitch) {
    const float up = static_cast<float>(std::clamp(elevation - pitch, -80.0, 80.0));
    const float half =
        tan_deg(0.5f * view_deg) * static_cast<float>(mnw.y_res_now) / static_cast<float>(mnw.x_res_now);
    return std::clamp(tan_deg(up) / half, -1.0f, 1.0f);
}

void draw_band(float y1, float y2, const float* c1, const float* c2) {
    glColor3fv(c1);
    glVertex2f(1.0f, y1);
    glVertex2f(-1.0f, y1);
    glColor3fv(c2);
    glVertex2f(-1.0f, y2);
    glVertex2f(1.0f, y2);
}

// Haze below the horizon, towards blue above it.
void draw_sky(const eye_place& eye) {
    constexpr double step = 5.0, highest = 60.0;  // degrees
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    OGL_setstate(fog_off, 0, lit_off, al_none, depth_no_read, depth_no_write);
    const auto colour = [](double elevation, float* rgb) {
        const float high = static_cast<float>(1.0 - exp(-std::max(elevation, 0.0) / 15.0));
        for (int i = 0; i < 3; ++i) rgb[i] = haze[i] + high * (zenith[i] - haze[i]);
    };
    glBegin(GL_QUADS);
    draw_band(-1.0f, height_in_view(0.0, eye.pitch), haze, haze);
    for (double elevation = 0.0; elevation < 90.0; elevation += step) {
        float lower[3], upper[3];
        colour(elevation, lower);
        colour(elevation + step, upper);
        const double top = elevation >= highest ? 90.0 : elevation + step;
        draw_band(height_in_view(elevation, eye.pitch), height_in_view(top, eye.pitch), lower, upper);
    }
    glEnd();
}

void set_haze() {
    const float colour[4] = {haze[0], haze[1], haze[2], 1.0f};
    glFogfv(GL_FOG_COLOR, colour);
    glFogf(GL_FOG_START, haze_from);
    glFogf(GL_FOG_END, haze_to);
}
}  // namespace

void draw_tile(const eye_place& eye) {
    place_eye(eye);
    glDepthMask(1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    draw_sky(eye);
    set_haze();
    look_from(eye);
    OGL_terrain_grid(0, 0);
}
