// Angles of views.
#include "ui/views/view_angles.h"

#include "core/math/axes.h"
#include "core/math/num.h"
#include "core/records/ren.h"

namespace {
struct vector_struct {
    float x, y, z;
};

vector_struct turned(const vector_struct& v, float psi, float the, float phi) {
    vector_struct out;
    any_to_wrl(v.x, v.y, v.z, &out.x, &out.y, &out.z, sin_deg(psi), cos_deg(psi), sin_deg(the), cos_deg(the),
               sin_deg(phi), cos_deg(phi));
    return out;
}
}  // namespace

void get_euler_from_eulers(float psi1, float psi2, float psi3, float* psi, float the1, float the2, float the3,
                           float* the, float phi1, float phi2, float phi3, float* phi) {
    vector_struct ahead = {0.0f, 0.0f, -1.0f}, up = {0.0f, 1.0f, 0.0f};
    const struct {
        float psi, the, phi;
    } sets[] = {{psi1, the1, phi1}, {psi2, the2, phi2}, {psi3, the3, phi3}};
    for (const auto& set : sets) {
        ahead = turned(ahead, set.psi, set.the, set.phi);
        up = turned(up, set.psi, set.the, set.phi);
    }
    // straight up or down there is no heading of its own: roll 0, and the heading is that of the top of the
    // picture
    constexpr float pole = 1e-5f;
    const float level = pythag(ahead.x, ahead.z);
    *the = atan2_deg(ahead.y, level);
    if (level < pole) {
        *psi = ahead.y < 0.0f ? atan2_deg(up.x, -up.z) : atan2_deg(-up.x, up.z);
        *phi = 0.0f;
    } else {
        *psi = atan2_deg(ahead.x, -ahead.z);
        // right of a level view with this heading, and its own up
        const float sin_psi = ahead.x / level, cos_psi = -ahead.z / level;
        const float to_right = up.x * cos_psi + up.z * sin_psi;
        const float upward = up.y * level - ahead.y * (up.x * sin_psi - up.z * cos_psi);
        *phi = atan2_deg(to_right, upward);
    }
    *psi = fltwrap(*psi, 0.0f, 360.0f);
}

attitude_struct folded(attitude_struct a) {
    a.the = fltwrap(a.the, -180.0f, 180.0f);
    if (flt_abs(a.the) > 90.0f) {
        a.the = (a.the > 0.0f ? 180.0f : -180.0f) - a.the;
        a.psi += 180.0f;
        a.phi = 180.0f - a.phi;
    }
    return {fltwrap(a.psi, 0.0f, 360.0f), a.the, fltwrap(a.phi, -180.0f, 180.0f)};
}

attitude_struct turn_of_view(int code) {
    const struct {
        int code;
        float psi, the;
    } turns[] = {{view_left_45, -45.0f, 0.0f}, {view_left_90, -90.0f, 0.0f},  {view_left_135, -135.0f, 0.0f},
                 {view_right_45, 45.0f, 0.0f}, {view_right_90, 90.0f, 0.0f},  {view_right_135, 135.0f, 0.0f},
                 {view_back, 180.0f, 0.0f},    {view_up_left, -45.0f, 30.0f}, {view_up_right, 45.0f, 30.0f},
                 {view_down, 0.0f, -90.0f}};
    for (const auto& turn : turns)
        if (turn.code == code) return {turn.psi, turn.the, 0.0f};
    return {};
}

attitude_struct direction_to(float dx, float dy, float dz) {
    return {fltwrap(atan2_deg(dx, -dz), 0.0f, 360.0f), atan2_deg(dy, pythag(dx, dz)), 0.0f};
}
