// Drops and flakes.
#include "scene/effects/rain.h"

#include <GL/gl.h>

#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/records.h"
#include "draw/camera/xcam.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "scene/eye/view_turn.h"
#include "weather/wind.h"

namespace {
constexpr int points = 2000;
constexpr float side = 20.0f, half = 0.5f * side;  // of the cube, m

struct rain_struct {
    float xyz[points][3];  // in the cube, m
    bool has_points = false;
    float offset[3] = {};
    float speed[3] = {};  // of the drops against the eye, m/s
};
rain_struct rain;

bool is_snow() { return !(atm.rain_rat_acf > 0.0f); }

void scatter() {
    rain.has_points = true;
    for (auto& p : rain.xyz)
        for (float& v : p) v = view_rand(-half, half);
}

// Some outside views stand still while the aircraft flies.
bool eye_stands() {
    return ren.view_type_act == view_tower || ren.view_type_act == view_runway ||
           ren.view_type_act == view_still_spot;
}

void find_speed() {
    constexpr float rain_falls = 20.0f, snow_falls = 3.0f;  // kt
    const float falls = (is_snow() ? snow_falls : rain_falls) * con.ktstomsc;
    const float eye[3] = {flt[0].vx, flt[0].vy, flt[0].vz};
    const float drop[3] = {wind.ret_wind_x(), wind.ret_wind_y() - falls, wind.ret_wind_z()};
    constexpr float most = 1000.0f;  // m/s
    for (int axis = 0; axis < 3; ++axis) {
        const float v = drop[axis] - (eye_stands() ? 0.0f : eye[axis]);
        if (!check_nan(v)) rain.speed[axis] = fltlim(v, -most, most);
    }
}
}  // namespace

void reset_rain() { rain = {}; }
const float (&rain_offset())[3] { return rain.offset; }

void rain_step() {
    if (!(atm.rain_rat_acf > 0.0f) && !(atm.snow_rat_acf > 0.0f)) return;
    find_speed();
    if (mnw.paused) return;
    for (int axis = 0; axis < 3; ++axis)
        rain.offset[axis] = fltwrap(rain.offset[axis] + rain.speed[axis] * mnw.prd_FM, -half, half);
}

namespace {
struct light_struct {
    float r, g, b;
};

// Drops take the light of the day, but shine in a lamp; the beacon reddens them.
light_struct find_light() {
    constexpr float grey = 0.75f, white = 1.0f, gamma = 0.4f;
    const float base = is_snow() ? white : grey;
    light_struct light = {base, base, base};
    if (!flt[0].lite_map && !flt[0].str_inflash) {
        light.r *= powf(fltlim(r_manual_lighting, 0.0f, 1.0f), gamma);
        light.g *= powf(fltlim(g_manual_lighting, 0.0f, 1.0f), gamma);
        light.b *= powf(fltlim(b_manual_lighting, 0.0f, 1.0f), gamma);
    }
    light.r = fltlim(light.r + flt[0].bea_alpha, 0.0f, 1.0f);
    return light;
}

// The first of the two cubes, along an axis, that hold what can be seen along it: 10 m around a point half
// way into the view.
float first_cube(float offset, float ahead) { return offset + side * floorf((half * ahead - offset) / side); }

// A drop leaves a streak as long as it moves while a picture is seen; a flake is short.
void send_drop(const float (&at)[3], const light_struct& light, float alpha) {
    constexpr float seen = 1.0f / 50.0f;  // s
    OGL_setcolorRGBA(light.r, light.g, light.b, alpha, 1);
    glVertex3fv(at);
    OGL_setcolorRGBA(light.r, light.g, light.b, 0.4f * alpha, 1);
    glVertex3f(at[0] - rain.speed[0] * seen, at[1] - rain.speed[1] * seen, at[2] - rain.speed[2] * seen);
}

void send_cube(const float (&middle)[3], int count, const light_struct& light) {
    constexpr float fade = 0.05f;  // per m
    const double* const m = xcam.ModelView();
    for (int i = 0; i < count; ++i) {
        const float at[3] = {middle[0] + rain.xyz[i][0], middle[1] + rain.xyz[i][1],
                             middle[2] + rain.xyz[i][2]};
        const float z = static_cast<float>(m[2] * at[0] + m[6] * at[1] + m[10] * at[2]);
        if (z > 0.0f || z < -side || !xcam.SphereInView(at[0], at[1], at[2], 1.0)) continue;
        send_drop(at, light, fltlim(1.0f + z * fade, 0.0f, 1.0f));
    }
}
}  // namespace

void OGL_rain() {
    constexpr float least = 0.1f;
    if (!rain.has_points) scatter();
    constexpr float near_clip = 0.04f, far_clip = 40.0f;  // m
    look_through_eye(near_clip, far_clip);
    OGL_setstate(fog_off, 0, lit_off, al_blend, depth_no_read, depth_no_write);
    const light_struct light = find_light();
    const float ratio = fltlim(is_snow() ? atm.snow_rat_acf : atm.rain_rat_acf, least, 1.0f);
    const int count = static_cast<int>(points * ratio);
    const float ahead[3] = {ren.sin_final_psi * ren.cos_final_the, ren.sin_final_the,
                            -ren.cos_final_psi * ren.cos_final_the};
    glPointSize(1.0f);
    glBegin(GL_LINES);
    for (int tile = 0; tile < 8; ++tile) {
        float middle[3];
        for (int axis = 0; axis < 3; ++axis)
            middle[axis] = first_cube(rain.offset[axis], ahead[axis]) + ((tile >> axis & 1) ? side : 0.0f);
        send_cube(middle, count, light);
    }
    glEnd();
}
