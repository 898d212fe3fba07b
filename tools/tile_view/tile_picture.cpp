// Sky, sun and haze, then every layer and object of a tile, patch by patch.
#include "tile_picture.h"

#include <GL/gl.h>
#include <math.h>

#include <algorithm>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/records/con.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "draw/gl/ogl.h"
#include "layer_state.h"
#include "scenery/draw/object_draw.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/ground/tile.h"
#include "scenery/objects/objects.h"

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
    const float near_clip = fltmax2(closest, per_height * static_cast<float>(eye.height));
    OGL_view_3d(view_deg, near_clip, far_clip);
    glRotatef(static_cast<float>(-eye.pitch), 1.0f, 0.0f, 0.0f);
    glRotatef(static_cast<float>(eye.heading), 0.0f, 1.0f, 0.0f);
    const float lean = static_cast<float>(dob_radtodeg) / con.planet_rad;  // degrees for each metre
    glRotatef(-lean * ren.view_xyz[2], 1.0f, 0.0f, 0.0f);
    glRotatef(lean * ren.view_xyz[0], 0.0f, 0.0f, 1.0f);
    light_the_land();
    glTranslatef(-ren.view_xyz[0], -ren.view_xyz[1], -ren.view_xyz[2]);
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

// -- the tile

float distance_sqr(float x, float y, float z) {
    return sqr(x - ren.view_xyz[0]) + sqr(y - ren.view_xyz[1]) + sqr(z - ren.view_xyz[2]);
}

// -1 is no limit.
bool is_between(float dis_sqr, float near_sqr, float far_sqr) {
    return dis_sqr >= near_sqr && (far_sqr < 0.0f || dis_sqr < far_sqr);
}

void draw_patches(const xlay_struct& layer) {
    begin_layer(layer);
    for (unsigned level = 0; level < bucket_levels; ++level)
        layer.scene_buckets.IterateBucketLayer(level, [](XBucketID, const auto& patches) {
            for (const scene_patch_struct* patch : patches)
                if (is_between(distance_sqr(patch->center_x, patch->center_y, patch->center_z),
                               patch->dis_near_sqr, patch->dis_far_sqr))
                    glCallList(patch->patch_DL);
        });
    end_layer(layer);
}

// The last level whose range holds the distance; -1 for none. A model of one level is always seen.
int level_of(const vec_mod_struct& model, float dis_sqr) {
    if (model.vec_lod.size() == 1) return 0;
    int level = -1;
    for (size_t L = 0; L < model.vec_lod.size(); ++L)
        if (is_between(dis_sqr, model.vec_lod[L].dis_near_sqr, model.vec_lod[L].dis_far_sqr))
            level = static_cast<int>(L);
    return level;
}

void draw_objects(const xlay_struct& layer) {
    int model = -1;  // whose state is set
    for (unsigned level = 0; level < bucket_levels; ++level)
        layer.objct_buckets.IterateBucketLayer(level, [&model](XBucketID, const auto& objects) {
            for (const scene_objct_struct* o : objects) {
                const int L = level_of(vec_mod[static_cast<size_t>(o->M_SIM)],
                                       distance_sqr(o->xyz[0], o->xyz[1], o->xyz[2]));
                if (L < 0) continue;
                if (model != o->M_SIM) object_state(model = o->M_SIM, 0);
                plot_obj_inloop(o->M_SIM, L, o->xyz[0], o->xyz[1], o->xyz[2], o->psi, o->the, o->phi, 0);
            }
        });
}
}  // namespace

void draw_tile(xdeg_struct& tile, const eye_place& eye) {
    place_eye(eye);
    glDepthMask(1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    draw_sky(eye);
    set_haze();
    look_from(eye);
    for (const xlay_struct& layer : tile.tex_layers)
        if (!layer.is_hidden && !layer.scene_buckets.Empty()) draw_patches(layer);
    for (const xlay_struct& layer : tile.tex_layers)
        if (!layer.is_hidden && !layer.objct_buckets.Empty()) draw_objects(layer);
}
