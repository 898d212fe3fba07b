// One picture of the world.
#include "scene/dome.h"

#include <GL/gl.h>

#include "core/math/num.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "draw/camera/xcam.h"
#include "draw/gl/camera_load.h"
#include "draw/gl/frame_counts.h"
#include "draw/gl/gl_facts.h"
#include "draw/gl/ogl.h"
#include "scene/cockpit/cockpit_draw.h"
#include "scene/effects/windshield.h"
#include "scene/eye/view_turn.h"
#include "scene/planet.h"
#include "scene/scene_3d.h"
#include "scene/sky_bodies.h"
#include "scene/sky_dome.h"
#include "scene/sky_sphere.h"
#include "scenery/draw/terrain_draw.h"
#include "ui/views/zoom.h"
#include "weather/sky/skyc.h"

namespace {
void set_view() {
    constexpr float beyond_dome = 1.05f;
    look_through_eye(skyc.near_dis, dome_radius() * beyond_dome);
    xcam.SetFakeFarClippingPlane(skyc.far_land);
}

}  // namespace

void draw_sky() {
    set_view();
    OGL_cull(0);
    draw_sky_dome();
    draw_sky_bodies();
    OGL_cull(0);
    draw_bottom_band();
    OGL_cull(1);
}

namespace {
void go_to_eye() {
    xcam.Translate(-ren.view_xyz[0], -ren.view_xyz[1], -ren.view_xyz[2]);
    LoadModelView();
}

void set_light() {
    const float ambient[4] = {skyc.lgt_amb[0], skyc.lgt_amb[1], skyc.lgt_amb[2], 1.0f};
    const float diffuse[4] = {skyc.lgt_dir[0], skyc.lgt_dir[1], skyc.lgt_dir[2], 1.0f};
    const float above[4] = {0.0f, 1.0f, 0.0f, 0.0f};
    glPushMatrix();
    turn_to_local_level();
    glRotatef(skyc.lgt_lat_sun_mon_any[body_any], 1.0f, 0.0f, 0.0f);
    glRotatef(skyc.lgt_azi_sun_mon_any[body_any], 0.0f, 0.0f, 1.0f);
    glRotatef(skyc.lgt_dec_sun_mon_any[body_any], 1.0f, 0.0f, 0.0f);
    glLightfv(GL_LIGHT0, GL_AMBIENT, ambient);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse);
    glLightfv(GL_LIGHT0, GL_POSITION, above);
    glPopMatrix();
}

void set_fog() {
    constexpr GLenum distance_mode = 0x855A, eye_radial = 0x855B;  // of NV_fog_distance
    glFogfv(GL_FOG_COLOR, skyc.fog_col);
    glFogf(GL_FOG_START, skyc.near_fog);
    glFogf(GL_FOG_END, skyc.far_fog);
    if (dis_fog_avail) glFogi(distance_mode, eye_radial);
}
}  // namespace

void WORLD_scene_per_dome() {
    capture_panel();
    TVPDoDrawingHook(hook_scene);
    draw_sky();
    go_to_eye();
    set_light();
    set_fog();
    OGL_manage_planet();
    end_section(section_sky);
    if (TVPDoDrawingHook(hook_terrain)) OGL_terrain_grid(0, 0);
    TVPDoDrawingHook(hook_terrain_done);
    APP_3D_scenery();
    TVPDoDrawingHook(hook_scene_done);
    OGL_viewport(2, mnw.x1_rat, mnw.y1_rat, mnw.x2_rat, mnw.y2_rat, mnw.x1_pix, mnw.y1_pix, mnw.x2_pix,
                 mnw.y2_pix, 0.0f, 1.0f, 1.0f);
    if (view_is_internal()) OGL_windshield_effects(atm.hail_rat_acf, flt[0].window_ice);
    draw_cockpit_2d();
    end_section(section_marks);
}
