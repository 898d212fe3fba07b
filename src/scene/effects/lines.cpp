// Tow line, winch line, slung load.
#include "scene/effects/lines.h"

#include "core/math/num.h"
#include "core/records/records.h"
#include "draw/gl/colours.h"
#include "draw/images/tex_refs.h"
#include "draw/primitives.h"

namespace {
constexpr int line_colour = 9;  // dark grey

bool is_place(const float (&at)[3]) { return !check_nan(at[0]) && !check_nan(at[1]) && !check_nan(at[2]); }

void draw_line(const float (&ends)[2][3]) {
    if (!is_place(ends[0]) || !is_place(ends[1])) return;
    OGL_3dline(line_colour, 1.0f, {ends[0][0], ends[0][1], ends[0][2]}, {ends[1][0], ends[1][1], ends[1][2]});
}

// Each face bears the side of a crate.
void draw_crate(const float (&at)[3], float side) {
    constexpr float st[4][2] = {{0.0f, 0.25f}, {0.0f, 1.0f}, {0.5f, 1.0f}, {0.5f, 0.25f}};
    const float h = 0.5f * fltlim(side, 0.0f, 100.0f);
    const auto corner = [&](float x, float y, float z) { return point3{at[0] + x * h, at[1] + y * h, at[2] + z * h}; };
    const auto face = [&](const point3& ll, const point3& ul, const point3& ur, const point3& lr) {
        OGL_3dquad_st(tex_building, col_white, 1.0f, {ll, ul, ur, lr}, st);
    };
    face(corner(-1, -1, 1), corner(-1, 1, 1), corner(1, 1, 1), corner(1, -1, 1));
    face(corner(1, -1, -1), corner(1, 1, -1), corner(-1, 1, -1), corner(-1, -1, -1));
    face(corner(1, -1, 1), corner(1, 1, 1), corner(1, 1, -1), corner(1, -1, -1));
    face(corner(-1, -1, -1), corner(-1, 1, -1), corner(-1, 1, 1), corner(-1, -1, 1));
    face(corner(-1, 1, 1), corner(-1, 1, -1), corner(1, 1, -1), corner(1, 1, 1));
    face(corner(-1, -1, -1), corner(-1, -1, 1), corner(1, -1, 1), corner(1, -1, -1));
}
}  // namespace

void draw_lines() {
    if (stg.tow_waiting || stg.tow_inprog || stg.win_waiting || stg.win_inprog) draw_line(env.tow_line);
    if (!veh[0].jett_is_slung || !(flt[0].m_jettison > 0.0f)) return;
    draw_line(env.jet_line);
    if (is_place(env.jet_line[1])) draw_crate(env.jet_line[1], flt[0].jett_size);
}
