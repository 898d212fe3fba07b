// Panel and inside of the aircraft.
#define GL_GLEXT_PROTOTYPES
#include "scene/cockpit/cockpit_draw.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <string.h>

#include "aircraft/draw/plane_draw.h"
#include "core/math/num.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "draw/camera/xcam.h"
#include "draw/gl/camera_load.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "platform/window.h"
#include "scene/cockpit/cockpit_kind.h"
#include "scene/cockpit/cockpit_light.h"
#include "scene/cockpit/panel_calls.h"
#include "scenery/draw/object_draw.h"
#include "ui/views/zoom.h"
#include "weather/sky/skyc.h"

namespace {
void view_flat() {
    OGL_viewport(2, mnw.x1_rat, mnw.y1_rat, mnw.x2_rat, mnw.y2_rat, mnw.x1_pix, mnw.y1_pix, mnw.x2_pix,
                 mnw.y2_pix, 0.0f, 1.0f, 1.0f);
}

void plot_background() {
    if (TVPDoDrawingHook(hook_panel_background)) plot_panel_background();
    TVPDoDrawingHook(hook_panel_background_done);
}

void plot_panel() {
    if (TVPDoDrawingHook(hook_panel)) APP_update_panel();
    TVPDoDrawingHook(hook_panel_done);
}

// The texture and its mask must have their size before the screen is copied into them: the mask is white
// until an aircraft brings one.
void make_room_for_panel() {
    static int generation = 0;  // of the window whose textures they are
    if (generation == window_generation && tman.tex_vram(tex_cockpit_3d)) return;
    generation = window_generation;
    for (const int ref : {tex_cockpit_3d, tex_cockpit_3d_alpha}) {
        constexpr int rgba = 4, mask_side = 2;
        scratch_dx = scratch_dy = ref == tex_cockpit_3d ? image_max : mask_side;
        memset(scratch_array, 255, static_cast<size_t>(scratch_dx) * static_cast<size_t>(scratch_dy) * rgba);
        tman.load_texture(0, load_ogl, ref, filter_rgba, scratch_name);
    }
}

struct manual_light {
    float r = r_manual_lighting, g = g_manual_lighting, b = b_manual_lighting;
    ~manual_light() { r_manual_lighting = r, g_manual_lighting = g, b_manual_lighting = b; }
};
}  // namespace

void capture_panel() {
    if (!plot_OBJ7_cock() && !plot_TV3D_cock()) return;
    const manual_light restored_after;
    view_flat();
    set_lites_for_cockpit();
    plot_background();
    plot_panel();
    OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
    make_room_for_panel();
    tman.bind_ref(tex_cockpit_3d, 0, combine_default);
    const int scroll = intlim(intround(zoom.scroll_pix()), 0, image_max - 1);
    const int dx = intmin2(mnw.x_res_now, image_max), dy = intmin2(intmin2(mnw.y_res_now, image_max), image_max - scroll);
    glCopyTexSubImage2D(GL_TEXTURE_2D, 0, 0, scroll, 0, 0, dx, dy);
    GL_error_check("glCopyTexSubImage2D");
}

namespace {
void begin_inside() {
    constexpr float near_clip = 0.1f, far_clip = 200.0f;  // m
    OGL_depth_write(depth_write);
    glClear(GL_DEPTH_BUFFER_BIT);
    OGL_viewport(3, mnw.x1_rat, mnw.y1_rat, mnw.x2_rat, mnw.y2_rat, mnw.x1_pix, mnw.y1_pix, mnw.x2_pix,
                 mnw.y2_pix, near_clip, far_clip, zoom.act_zoom());
    xcam.Rotate(ren.cockpit_the, -1.0, 0.0, 0.0);
    xcam.Rotate(ren.cockpit_psi, 0.0, 1.0, 0.0);
    LoadModelView();
}

// Weapons are placed in the world: the world turned so that the aircraft stands as the cockpit does.
void draw_weapons_inside() {
    glPushMatrix();
    glRotatef(flt[0].phi, 0.0f, 0.0f, 1.0f);
    glRotatef(flt[0].the, -1.0f, 0.0f, 0.0f);
    glRotatef(flt[0].psi, 0.0f, 1.0f, 0.0f);
    glTranslated(-flt[0].dob_x, -flt[0].dob_y, -flt[0].dob_z);
    for (int w = 0; w < wattDIM; ++w) plot_weapon(0, w);
    glPopMatrix();
}

// One metre ahead, as large as the picture.
void draw_panel_plane() {
    OGL_setstate(fog_off, 2, lit_off, al_test, depth_no_read, depth_no_write);
    tman.bind_ref(tex_cockpit_3d, 0, combine_modulate);
    tman.bind_ref(tex_cockpit_3d_alpha, 1, combine_modulate);
    const float high = (mnw.y2_pix - mnw.y1_pix) / (mnw.x2_pix - mnw.x1_pix);
    const float x[2] = {mnw.x1_rat, mnw.x2_rat}, y[2] = {mnw.y1_rat * high, mnw.y2_rat * high};
    constexpr int corners[4][2] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};  // clockwise
    glBegin(GL_QUADS);
    for (const auto& corner : corners) {
        for (const GLenum unit : {GL_TEXTURE0, GL_TEXTURE1}) glMultiTexCoord2i(unit, corner[0], corner[1]);
        glVertex3f(x[corner[0]], y[corner[1]], -1.0f);
    }
    glEnd();
}
}  // namespace

void draw_cockpit_3d() {
    const int on_plane = plot_TV3D_cock(), outside = plot_outer_acf(), model = plot_OBJ7_cock();
    if (!view_is_internal() || !(on_plane || outside || model)) return;
    begin_inside();
    const veh_struct& v = veh[0];
    glPushMatrix();
    glTranslatef(-v.pe_xyz[0], -v.pe_xyz[1], -v.pe_xyz[2]);
    if (outside) plot_plane_3D(0, 2);
    if (model)
        plot_obj(cockpit_M(), 0, v.cockpit_xyz[0], v.cockpit_xyz[1], v.cockpit_xyz[2], 0.0f, 0.0f, 0.0f,
                 skyc.cockpit_lites_on(), plot_list);
    if (outside) draw_weapons_inside();
    glPopMatrix();
    tman.reset_bind();
    if (on_plane) draw_panel_plane();
}

void draw_cockpit_2d() {
    if (ren.wpn_to_track >= 0) return;
    constexpr float see_through = 0.4f;
    ren.current_alpha = ren.trans_panel ? see_through : 1.0f;
    set_lites_for_cockpit();
    if (!plot_OBJ7_cock() && !plot_TV3D_cock() && draw_back_buff()) plot_background();
    if (plot_TV2D_cock()) plot_panel();
    ren.current_alpha = 1.0f;
}
