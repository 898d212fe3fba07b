// Flames and smoke of forest fires.
#include "scene/effects/fires.h"

#include <GL/gl.h>

#include "core/math/num.h"
#include "core/records/records.h"
#include "draw/camera/xcam.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "weather/puffs.h"
#include "weather/wind.h"

static bool fires_show() {
    constexpr float puts_out = 0.01f;  // of rain
    return scn.fire_avail && con.sl_T_cel > 0.0f && atm.rain_set < puts_out && stg.draw_fires;
}

static constexpr float half_wide = 16.0f, high = 26.0f;  // of a fire, m

void fires_step() {
    constexpr float rises = 6.0f, size = 18.0f, thick = 0.6f;  // m/s, m, alpha
    if (!mnw.puff05 || mnw.paused || !fires_show()) return;
    for (int i = 0; i < fireDIM; ++i)
        if (scn.fire_on[i])
            puff.spawn_puff(scn.firexyz[i][0], scn.firexyz[i][1] + 0.7f * high, scn.firexyz[i][2], wind.ret_wind_x(),
                            rises, wind.ret_wind_z(), size, puff_black, thick);
}

// Upright, turned to the eye; mirrored now and then, so that it flickers.
static void draw_fire(const float (&at)[3], bool is_mirrored) {
    const float side_x = half_wide * ren.cos_final_psi, side_z = half_wide * ren.sin_final_psi;
    const float s = is_mirrored ? 1.0f : 0.0f;
    glBegin(GL_QUADS);
    glTexCoord2f(s, 0.0f), glVertex3f(at[0] - side_x, at[1], at[2] - side_z);
    glTexCoord2f(s, 1.0f), glVertex3f(at[0] - side_x, at[1] + high, at[2] - side_z);
    glTexCoord2f(1.0f - s, 1.0f), glVertex3f(at[0] + side_x, at[1] + high, at[2] + side_z);
    glTexCoord2f(1.0f - s, 0.0f), glVertex3f(at[0] + side_x, at[1], at[2] + side_z);
    glEnd();
}

void plot_fires() {
    constexpr float flickers = 9.0f;  // a second
    if (!fires_show()) return;
    OGL_setstate(fog_on, 1, lit_off, al_blend, depth_read, depth_no_write);
    OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, 1.0f, 1);
    tman.bind_ref(tex_fire, 0, combine_default);
    for (int i = 0; i < fireDIM; ++i) {
        const float(&at)[3] = scn.firexyz[i];
        if (!scn.fire_on[i] || !xcam.SphereInView(at[0], at[1], at[2], 2.0f * high)) continue;
        draw_fire(at, (intcut(mnw.totl_time * flickers) + 3 * i) % 4 < 2);
    }
}
