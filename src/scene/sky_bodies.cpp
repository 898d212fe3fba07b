// Stars, sun, moon and glare.
#include "scene/sky_bodies.h"

#include <GL/gl.h>

#include "core/math/axes.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "scene/aurora.h"
#include "scene/sky_sphere.h"
#include "weather/sky/skyc.h"
#include "weather/sky/stars.h"

namespace {
float sky_vis_nm() { return atm.vis_sky * con.mtrstonm; }

// The sun alone glares, and not below the horizon.
float night_glare_fadeout() { return interp(4.0f, 1.0f, 2.0f, 0.0f, skyc.lgt_the_sun_mon_any[body_sun]); }

bool below_overcast() {
    return atm.cld_type[atm.prim_layer] == cld_overcast && ren.view_ele_msl < atm.tops_h_MSL[atm.prim_layer];
}
}  // namespace

body_brightness find_body_brightness() {
    const float ambient = skyc.lgt_amb[0] + skyc.lgt_amb[1] + skyc.lgt_amb[2];
    const float day = fltlim(ambient, 0.0f, 1.0f) * skyc.view_sig_earth_rat;
    const float fade7 = interp(0.0f, 0.0f, 7.0f, 1.0f, sky_vis_nm());
    const float fade5 = interp(0.0f, 0.0f, 5.0f, 1.0f, sky_vis_nm());
    body_brightness bright = {fade7 * (1.0f - 2.0f * day),
                              fade7 * (1.0f - 6.0f * day) * skyc.view_sig_earth_rat, fade5,
                              env.planet == 1 ? 0.0f : fade5 * (1.0f - 0.4f * day)};
    if (ren.night_vision_on) bright.stars = bright.moon = 1.0f;
    return bright;
}

bool outshines_ambient(float brightness) {
    return brightness > skyc.lgt_amb[0] || brightness > skyc.lgt_amb[1] || brightness > skyc.lgt_amb[2];
}

bool aurora_shows() {
    return atm.plot_aurora && ren.stars_are_vis && outshines_ambient(find_body_brightness().aurora);
}

void glare_step() {
    const float lo_vis_fadeout = interp(10.0f, 1.0f, 5.0f, 0.0f, sky_vis_nm());
    const float angle_off =
        pythag(fltwrap(ren.final_psi - skyc.lgt_psi_sun_mon_any[body_any], -180.0f, 180.0f),
               fltwrap(ren.final_the - skyc.lgt_the_sun_mon_any[body_any], -180.0f, 180.0f));
    const float manual = r_manual_lighting + g_manual_lighting + b_manual_lighting;
    ren.glare_rat = fltlim(
        (1.0f - angle_off * 0.05f) * manual * night_glare_fadeout() * lo_vis_fadeout * 0.33f, 0.0f, 1.0f);
    if (ren.sunglasses_on) ren.glare_rat *= 0.5f;
    if (below_overcast() || ren.elum_renders > 0) ren.glare_rat = 0.0f;
}

// -- frames of the sky

float turn_to_local_level() {
    float q[4], psi, the, phi;
    init_quaternion(ren.final_psi, ren.final_the, ren.final_phi, q);
    quat_to_local_euler(q, flt[0].dob_lat, flt[0].dob_lon, &psi, &the, &phi);
    glRotatef(-ren.final_psi, 0.0f, 1.0f, 0.0f);
    glRotatef(-ren.final_the, -1.0f, 0.0f, 0.0f);
    glRotatef(-ren.final_phi, 0.0f, 0.0f, 1.0f);
    glRotatef(phi, 0.0f, 0.0f, 1.0f);
    glRotatef(the, -1.0f, 0.0f, 0.0f);
    glRotatef(psi, 0.0f, 1.0f, 0.0f);
    return psi;
}

namespace {
void draw_stars(float brightness) {
    if (!outshines_ambient(brightness)) return;
    glPushMatrix();
    turn_to_local_level();
    glRotatef(static_cast<float>(flt[0].dob_lat), 1.0f, 0.0f, 0.0f);
    glRotatef(15.0f * skyc.side_time_hrs, 0.0f, 0.0f, 1.0f);
    star.star_plot(brightness, skyc.view_sig_earth_rat);
    glPopMatrix();
}

// -- discs

struct tex_box {
    float s1, t1, s2, t2;
};

// Towards the eye, upright on the screen but for the view's roll.
void draw_disc(int tex, float half, const tex_box& box) {
    tman.bind_ref(tex, 0, combine_default);
    glBegin(GL_QUADS);
    glTexCoord2f(box.s1, box.t1), glVertex3f(-half, -half, 0.0f);
    glTexCoord2f(box.s1, box.t2), glVertex3f(-half, half, 0.0f);
    glTexCoord2f(box.s2, box.t2), glVertex3f(half, half, 0.0f);
    glTexCoord2f(box.s2, box.t1), glVertex3f(half, -half, 0.0f);
    glEnd();
}

void go_to_body(int body) {
    const float azi = skyc.lgt_azi_sun_mon_any[body], dec = skyc.lgt_dec_sun_mon_any[body],
                lat = static_cast<float>(flt[0].dob_lat);
    turn_to_local_level();
    glRotatef(lat, 1.0f, 0.0f, 0.0f);
    glRotatef(azi, 0.0f, 0.0f, 1.0f);
    glRotatef(dec, 1.0f, 0.0f, 0.0f);
    glTranslatef(0.0f, dis_to_sun, 0.0f);
    glRotatef(-dec, 1.0f, 0.0f, 0.0f);
    glRotatef(-azi, 0.0f, 0.0f, 1.0f);
    glRotatef(-lat, 1.0f, 0.0f, 0.0f);
    glRotatef(-ren.final_psi, 0.0f, 1.0f, 0.0f);
    glRotatef(ren.final_the, 1.0f, 0.0f, 0.0f);
}

// Bodies grow towards the horizon.
float swelling(int body) { return interp(5.0f, 1.0f, 0.0f, 1.5f, skyc.lgt_the_sun_mon_any[body]); }

void set_body_state() { OGL_setstate(fog_off, 1, lit_off, al_blend, depth_no_read, depth_no_write); }

constexpr float half_sun = 0.04f * dis_to_sun, half_moon = 0.02f * dis_to_sun;  // high in the sky, m

// The halo in the air, and what blinds.
void draw_sun_glow() {
    const float vis = sky_vis_nm();
    const float lim = vis < 5.0f ? 0.0f : max_vis_ter_mtrs[env.planet == 1] * con.mtrstonm;
    const float alpha = interp(lim, 0.0f, 5.0f, 1.0f, vis) * night_glare_fadeout();
    if (alpha > 0.0f) {
        OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, alpha, 1);
        draw_disc(tex_sun_glow, 7.0f * half_sun, {0.0f, 0.0f, 1.0f, 1.0f});
    }
    if (ren.glare_rat > 0.01f) {
        OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, ren.glare_rat, 1);
        draw_disc(tex_lights, 5.0f * half_sun, {0.5f, 0.0f, 1.0f, 1.0f});
    }
}

void draw_sun(float brightness) {
    if (!(brightness > 0.01f)) return;
    glPushMatrix();
    go_to_body(body_sun);
    set_body_state();
    OGL_setcolorRGBA(skyc.sun_col[0], skyc.sun_col[1], skyc.sun_col[2], brightness, 1);
    draw_disc(tex_lights, half_sun * swelling(body_sun), {0.0f, 0.5f, 0.25f, 1.0f});
    draw_sun_glow();
    glPopMatrix();
}

void draw_moon(float brightness) {
    if (!(brightness > 0.01f)) return;
    glPushMatrix();
    go_to_body(body_moon);
    set_body_state();
    OGL_setcolorRGBA(skyc.mon_col[0], skyc.mon_col[1], skyc.mon_col[2], brightness, 1);
    draw_disc(skyc.moon_tex, half_moon * swelling(body_moon), {0.0f, 0.0f, 1.0f, 1.0f});
    glPopMatrix();
}
}  // namespace

void draw_sky_bodies() {
    if (!ren.stars_are_vis) return;
    const body_brightness bright = find_body_brightness();
    OGL_cull(0);
    draw_stars(fltlim(bright.stars, 0.0f, 1.0f));
    draw_sun(bright.sun);
    draw_moon(bright.moon);
    if (aurora_shows()) draw_aurora(bright.aurora);
    OGL_cull(1);
}
