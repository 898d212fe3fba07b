// Frames of an instrument approach.
#include "scene/effects/ils_picture.h"

#include <GL/gl.h>
#include <string.h>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "scenery/nav/nav_tables.h"

namespace {
constexpr float half_course = 3.0f, half_slope = 0.7f;  // of the beam, degrees

struct beam_struct {
    float x, y, z;           // glide slope's antenna, world frame, m
    float ahead_x, ahead_z;  // along the course of a landing
    float slope;             // tangent
};

// The first radio before the second.
int tuned_radio() {
    constexpr float least_slope = 1.0f;  // degrees
    for (int radio = 0; radio < 2; ++radio)
        if ((nav.nav_type[radio] == nav_ils || nav.nav_type[radio] == nav_loc) && nav.slope[radio] > least_slope) return radio;
    return -1;
}

beam_struct beam_of(int radio) {
    const float course = nav.sel_crs_true[radio] +
                         z_north_os(static_cast<float>(flt[0].dob_lat), static_cast<float>(flt[0].dob_lon));
    return {nav.X_gls[radio],  nav.Y_gls[radio],  nav.Z_gls[radio],
            sin_deg(course), -cos_deg(course), tan_deg(fltlim(nav.slope[radio], 1.0f, 45.0f))};
}

// Corner of the beam's section so far from the antenna; across and up: -1 or 1.
void send_corner(const beam_struct& beam, float away, float measure, float across, float up) {
    const float side = across * measure * tan_deg(half_course);
    glVertex3f(beam.x - away * beam.ahead_x - side * beam.ahead_z,
               beam.y + away * beam.slope + up * measure * tan_deg(half_slope),
               beam.z - away * beam.ahead_z + side * beam.ahead_x);
}

constexpr float corner[4][2] = {{-1, -1}, {-1, 1}, {1, 1}, {1, -1}};

void send_frame(const beam_struct& beam, float away, float measure) {
    glBegin(GL_LINE_LOOP);
    for (const auto& c : corner) send_corner(beam, away, measure, c[0], c[1]);
    glEnd();
}

int marker_colour(int type) { return type == nav_outer ? 53 : type == nav_middle ? 58 : 43; }

bool is_of_tuned(const vec_nav_struct& marker, const std::string& tuned) {
    constexpr size_t compared = 8;
    return intrange(marker.type, nav_outer, nav_inner) && marker.in_reg &&
           strncmp(marker.nav_name, tuned.c_str(), compared) == 0;
}

// As wide and high as the beam there, and as long as high.
void draw_marker_box(const beam_struct& beam, const vec_nav_struct& marker) {
    constexpr float alpha = 0.4f;
    float x, y, z;
    xyz_with_latlonel(&x, &y, &z, marker.lat, marker.lon, marker.ele);
    const float away = (beam.x - x) * beam.ahead_x + (beam.z - z) * beam.ahead_z;
    if (!(away > 0.0f)) return;
    const float half_long = away * tan_deg(half_slope);
    OGL_setcolorINDEX(marker_colour(marker.type), alpha);
    for (const float end : {away - half_long, away + half_long}) send_frame(beam, end, away);
    glBegin(GL_LINES);
    for (const auto& c : corner) {
        send_corner(beam, away - half_long, away, c[0], c[1]);
        send_corner(beam, away + half_long, away, c[0], c[1]);
    }
    glEnd();
}
}  // namespace

void draw_ils_picture() {
    constexpr int green = 44;
    constexpr float step = 500.0f, end = 16000.0f, alpha = 0.5f;  // m
    constexpr size_t short_name = 4;
    const int radio = tuned_radio();
    if (radio < 0) return;
    const beam_struct beam = beam_of(radio);
    if (check_nan(beam.x) || check_nan(beam.y) || check_nan(beam.z) || check_nan(beam.ahead_x)) return;
    OGL_setstate(fog_on, 0, lit_off, al_blend, depth_read, depth_no_write);
    glLineWidth(2.0f);
    OGL_setcolorINDEX(green, alpha);
    for (float away = step; away < end; away += step) send_frame(beam, away, away);
    const std::string& tuned = stl.nav_name[radio];
    if (tuned.size() > short_name) {
        const auto markers = nav_hash.equal_range(marker_frq);
        for (auto entry = markers.first; entry != markers.second; ++entry) {
            const vec_nav_struct& marker = vec_nav[static_cast<size_t>(entry->second)];
            if (is_of_tuned(marker, tuned)) draw_marker_box(beam, marker);
        }
    }
    glLineWidth(1.0f);
}
