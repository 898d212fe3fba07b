// Lines of the wind.
#include "scene/effects/wind_vectors.h"

#include <GL/gl.h>

#include "core/math/num.h"
#include "core/records/records.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "weather/wind.h"

static void send_wind(float x, float y, float z) {
    constexpr int green = 44;
    constexpr float drawn = 0.2f;  // m for each m/s, against the wind
    float wx, wy, wz;
    wind.ret_wind_wrl(x, y, z, &wx, &wy, &wz);
    OGL_setcolorINDEX(green, 1.0f);
    glVertex3f(x, y, z);
    OGL_setcolorINDEX(green, 0.0f);
    glVertex3f(x - drawn * wx, y - drawn * wy, z - drawn * wz);
}

void draw_wind_vectors() {
    constexpr int level = 2, across = 5, up = 2;  // steps to either side
    if (scn.vis_math_level <= level) return;
    const float step = 0.2f * fltlim(veh[0].size_tot, 1.0f, 500.0f);
    const float x = static_cast<float>(flt[0].dob_x), y = static_cast<float>(flt[0].dob_y),
                z = static_cast<float>(flt[0].dob_z);
    OGL_setstate(fog_on, 0, lit_off, al_blend, depth_read, depth_no_write);
    glBegin(GL_LINES);
    for (int i = -across; i <= across; ++i)
        for (int j = -up; j <= up; ++j)
            for (int k = -across; k <= across; ++k)
                send_wind(x + step * static_cast<float>(i), y + step * static_cast<float>(j),
                          z + step * static_cast<float>(k));
    glEnd();
}
