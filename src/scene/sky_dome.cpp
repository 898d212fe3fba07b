// The dome of the sky.
#include "scene/sky_dome.h"

#include <GL/gl.h>

#include "core/math/num.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "scene/sky_sphere.h"
#include "weather/draw/sky_draw.h"
#include "weather/sky/skyc.h"

float dome_radius() { return fltmax2(min_dome_dis, pythag(skyc.far_dis, skyc.far_dis, skyc.far_dis)); }

float horizon_dip() {
    constexpr float steepest = 45.0f;
    const float R = con.planet_rad;
    return fltlim(acos_deg(R / (R + fltmax2(ren.view_ele_msl, 0.0f))), 0.0f, steepest);
}

namespace {
// A strip that rises over the sky where the view looks, from side to side wider than the view.
struct strip_struct {
    float half, radius;
};

strip_struct strip_of_view(float share) {
    const float radius = dome_radius(), lat_rat = 2.0f * tan_deg(0.5f * ren.FOV);
    return {share * radius * lat_rat, share * radius};
}

void put(const strip_struct& strip, float side, float angle) {
    glVertex3f(side * strip.half, strip.radius * sin_deg(angle), -strip.radius * cos_deg(angle));
}
}  // namespace

// Columns of the texture are headings from the sun, its rows heights up to 30 degrees; what is higher has the
// last row.
void draw_sky_dome() {
    constexpr int step = 30, last = 180;
    constexpr float lowest_row = 0.0625f, highest_row = 0.9375f;
    const float dip = horizon_dip();
    const strip_struct strip = strip_of_view(1.0f);
    const float right = (skyc.del_psi_from_sun + ren.FOV) / 360.0f + 0.5f,
                left = (skyc.del_psi_from_sun - ren.FOV) / 360.0f + 0.5f;
    upload_sky();
    OGL_setstate(fog_off, 1, lit_off, al_none, depth_read, depth_write);
    glDepthFunc(GL_ALWAYS);
    tman.bind_ref(tex_sky, 0, combine_default);
    glPushMatrix();
    glRotatef(-turn_to_local_level(), 0.0f, 1.0f, 0.0f);
    glBegin(GL_QUAD_STRIP);
    for (int ref = 0; ref <= last; ref += step) {
        const float t = fltlim(static_cast<float>(ref) / 30.0f, lowest_row, highest_row);
        glTexCoord2f(right, t), put(strip, 1.0f, static_cast<float>(ref) - dip);
        glTexCoord2f(left, t), put(strip, -1.0f, static_cast<float>(ref) - dip);
    }
    glEnd();
    glPopMatrix();
}

// The ground's side of the dome in the fog's colour, up to a degree above the horizon.
void draw_bottom_band() {
    constexpr int first = -180, last = 30, step = 30;
    const float dip = horizon_dip();
    const strip_struct strip = strip_of_view(0.99f);
    OGL_setstate(fog_off, 0, lit_off, al_blend, depth_read, depth_write);
    glPushMatrix();
    glRotatef(-turn_to_local_level(), 0.0f, 1.0f, 0.0f);
    glBegin(GL_QUAD_STRIP);
    for (int magnify = first; magnify <= last; magnify += step) {
        const float angle = (magnify > 0 ? 1.0f : static_cast<float>(magnify)) - dip;
        glColor4f(skyc.fog_col[0] * skyc.sig_rat_bot, skyc.fog_col[1] * skyc.sig_rat_bot,
                  skyc.fog_col[2] * skyc.sig_rat_bot, magnify <= 0 ? 1.0f : 0.0f);
        put(strip, 1.0f, angle);
        put(strip, -1.0f, angle);
    }
    glEnd();
    glPopMatrix();
    glDepthFunc(GL_LEQUAL);
}
