// The windshield.
#include "scene/effects/windshield.h"

#include <GL/gl.h>

#include "cockpit/panel.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/records.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "draw/primitives.h"
#include "scene/cockpit/cockpit_kind.h"
#include "sound/sound.h"
#include "weather/sky/skyc.h"

namespace {
constexpr int grey = 6;  // row of the colour table

struct windshield_struct {
    crack_struct crack[crackDIM];
    int count = 0;
};
windshield_struct glass;
}  // namespace

int crack_count() { return glass.count; }
const crack_struct& crack_of(int i) { return glass.crack[i]; }
void reset_windshield() { glass = {}; }

void windshield_step(float hail_rat) {
    constexpr float strong = 0.5f, fast = 100.0f;  // kt
    constexpr float least_size = 10.0f, largest = 40.0f;
    if (mnw.first_miss_cycle) reset_windshield();
    if (mnw.paused || !(hail_rat > strong) || !(flt[0].v_ind_kts > fast) || glass.count >= crackDIM) return;
    if (view_rand(0.0f, 1.0f) >= mnw.prd_FM * hail_rat) return;
    glass.crack[glass.count++] = {view_rand(mnw.x1_pix, mnw.x2_pix), view_rand(mnw.y1_pix, mnw.y2_pix),
                                  view_rand(least_size, largest), view_rand(0.0f, 360.0f)};
    soun.SOUND_set(sound_hail_impact, 1.0f, 1.0f);
}

namespace {
void draw_crack(const crack_struct& c) {
    const float u = c.size * sin_deg(c.angle), v = c.size * cos_deg(c.angle);
    OGL_2dquad(tex_win_damage, grey, 1.0f, {c.x - v + u, c.y - u - v, 0, 0}, {c.x - v - u, c.y - u + v, 0, 1},
               {c.x + v - u, c.y + u + v, 1, 1}, {c.x + v + u, c.y + u - v, 1, 0}, 1, al_blend);
}

// Over the whole screen, so often across and up.
void cover_with(int tex, float across, float up) {
    tman.bind_ref(tex, 0, combine_default);
    glBegin(GL_QUADS);
    glTexCoord2f(0.0f, 0.0f), glVertex2f(mnw.x1_pix, mnw.y1_pix);
    glTexCoord2f(0.0f, up), glVertex2f(mnw.x1_pix, mnw.y2_pix);
    glTexCoord2f(across, up), glVertex2f(mnw.x2_pix, mnw.y2_pix);
    glTexCoord2f(across, 0.0f), glVertex2f(mnw.x2_pix, mnw.y1_pix);
    glEnd();
}

void draw_scratches() {
    constexpr float noticed = 0.01f;
    if (!(ren.glare_rat > noticed)) return;
    OGL_setstate(fog_off, 1, lit_off, al_blend, depth_no_read, depth_no_write);
    const auto held = [](float v) { return fltlim(v, 0.0f, 1.0f); };
    OGL_setcolorRGBA(held(skyc.lgt_dir[0]), held(skyc.lgt_dir[1]), held(skyc.lgt_dir[2]), held(ren.glare_rat), 1);
    cover_with(tex_scratches, 15.0f, 10.0f);
}

void draw_ice(float ice_rat) {
    constexpr float repeats = 3.0f;
    if (!(ice_rat > 0.0f)) return;
    OGL_setstate(fog_off, 1, lit_off, al_blend, depth_no_read, depth_no_write);
    OGL_setcolorINDEX(col_white, fltlim(sqrtf(ice_rat), 0.0f, 1.0f));
    cover_with(tex_ice, repeats, repeats * (mnw.y2_pix - mnw.y1_pix) / (mnw.x2_pix - mnw.x1_pix));
}

// Places on the panel are told against the middle of the head-up display, which lies in the middle of the view.
void draw_yaw_string() {
    constexpr float length = 50.0f, moves = 1.0f;  // virtual units, m/s
    const veh_struct& v = veh[0];
    if (!plot_TV2D_cock() || !(flt[0].V_msc > moves) || !(v.yawstring_x > 0.0f) || !(v.yawstring_y > 0.0f)) return;
    const float x = 0.5f * (mnw.x1_pix + mnw.x2_pix) + v.yawstring_x - v.HUD_ctr_x;
    const float y = VIEW_cntr_y_now() + v.yawstring_y - v.HUD_ctr_y[0];
    if (check_nan(x) || check_nan(y) || check_nan(flt[0].beta)) return;
    OGL_line(grey, 1.0f, x, y, x + length * sin_deg(flt[0].beta), y + length * cos_deg(flt[0].beta));
}
}  // namespace

void OGL_windshield_effects(float, float ice_rat) {
    for (int i = 0; i < glass.count; ++i) draw_crack(glass.crack[i]);
    draw_scratches();
    draw_ice(ice_rat);
    draw_yaw_string();
}
