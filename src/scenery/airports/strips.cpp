// Rows of strips, their places and normals.
#include "scenery/airports/strips.h"

#include <math.h>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "scenery/airports/strip_marks.h"
#include "scenery/ground/runways.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/nav/nav_tables.h"

namespace {
enum corner : int { first_left = 0, first_right = 1, second_left = 2, second_right = 3, corners = 4 };

void lay_out(const vec_rwy_struct& rwy, float ele, float (*corner_xyz)[3]) {
    float x, y, z, blast_m[2];
    split_feet(rwy.blast, blast_m);
    xyz_with_latlonel(&x, &y, &z, rwy.lat, rwy.lon, ele);
    const float psi = rwy.psi_true + z_north_os(rwy.lat, rwy.lon);
    const float sin_psi = sin_deg(psi), cos_psi = cos_deg(psi);
    for (int c = 0; c < corners; ++c) {
        const float across = (c % 2 == 0 ? -0.5f : 0.5f) * rwy.width;
        const float back = c < second_left ? 0.5f * rwy.len + blast_m[0] : -0.5f * rwy.len - blast_m[1];
        corner_xyz[c][0] = x + across * cos_psi - back * sin_psi;
        corner_xyz[c][1] = y;
        corner_xyz[c][2] = z + across * sin_psi + back * cos_psi;
    }
}

// Level across: at the higher of the grounds under its two edges.
void stand_on_ground(vec_rwy_pol_struct& row) {
    float y = -9.9e+09f;
    for (const auto& edge : row.xyz) y = fltmax2(y, return_terrain_y(edge[0], edge[2], checker_scenery));
    row.xyz[0][1] = row.xyz[1][1] = y;
}

void place_rows(const strip_plan_struct& plan, const float (*corner_xyz)[3],
                std::vector<vec_rwy_pol_struct>& rows) {
    float along = 0.0f;  // in full rows
    for (const unsigned short tex : plan.tex) {
        vec_rwy_pol_struct& row = rows.emplace_back();
        row.tex = tex;
        for (int side = 0; side < 2; ++side)
            for (const int axis : {0, 2})
                row.xyz[side][axis] =
                    extrap(0.0f, corner_xyz[first_left + side][axis], static_cast<float>(plan.whole_rows),
                           corner_xyz[second_left + side][axis], along);
        stand_on_ground(row);
        along += row_length(tex);
    }
}

d3_struct edge_point(const vec_rwy_pol_struct& row, int side) {
    return {row.xyz[side][0], row.xyz[side][1], row.xyz[side][2]};
}
Vector3 between(const d3_struct& from, const d3_struct& to) {
    return {to.x - from.x, to.y - from.y, to.z - from.z};
}

// Of the piece that begins at each row; the last row has that of the piece before.
void find_normals(std::vector<vec_rwy_pol_struct>& rows) {
    const int last = static_cast<int>(rows.size()) - 1;
    for (int r = 0; r <= last; ++r) {
        const int s = intlim(r, 0, last - 1), next = intlim(r + 1, 1, last);
        const d3_struct right = edge_point(rows[s], 1);
        Vector3 n = between(right, edge_point(rows[next], 1)).cross(between(right, edge_point(rows[s], 0)));
        if (n.normalize() == 0.0) n = {0.0, 1.0, 0.0};
        rows[r].nrm[0] = static_cast<float>(n.dx);
        rows[r].nrm[1] = static_cast<float>(n.dy);
        rows[r].nrm[2] = static_cast<float>(n.dz);
    }
}

bool has_place(const vec_rwy_struct& rwy, float ele) {
    return isfinite(rwy.lat + rwy.lon + rwy.psi_true + ele) != 0;
}

void build_strip(const vec_rwy_struct& rwy, float ele, vec_rwy_geo_struct& strip) {
    strip.surf_tex = rwy.surf_tex;
    strip.is_taxiway = rwy.num_str[0] == 'x';
    strip.roughness = rwy.roughness;
    if (!has_place(rwy, ele)) return;
    const strip_plan_struct plan = plan_strip(rwy);
    float corner_xyz[corners][3];
    lay_out(rwy, ele, corner_xyz);
    strip.vec_rwy_pol.reserve(plan.tex.size());
    place_rows(plan, corner_xyz, strip.vec_rwy_pol);
    find_normals(strip.vec_rwy_pol);
    for (const vec_rwy_pol_struct& row : strip.vec_rwy_pol)
        for (int side = 0; side < 2; ++side) strip.box.grow(edge_point(row, side));
}
}  // namespace

void build_rwy_layout(int apt_wrl, int rwy_wrl, float (*corner_xyz)[3]) {
    const vec_apt_struct& apt = vec_apt[static_cast<size_t>(apt_wrl)];
    lay_out(apt.rwy[static_cast<size_t>(rwy_wrl)], apt.ele, corner_xyz);
}

void UTIL_build_runways(int apt_wrl) {
    vec_apt_struct& apt = vec_apt[static_cast<size_t>(apt_wrl)];
    airport_strips_struct& strips = claim_strips(apt_wrl, apt.rwy.size());
    for (size_t i = 0; i < apt.rwy.size(); ++i) {
        vec_rwy_geo_struct& strip = vec_rwy_geo[strips.first + i];
        apt.rwy[i].geo_ind = static_cast<int>(strips.first + i);
        strip.apt_wrl = apt_wrl;
        strip.rwy_wrl = static_cast<int>(i);
        build_strip(apt.rwy[i], apt.ele, strip);
        for (const vec_rwy_pol_struct& row : strip.vec_rwy_pol)
            for (int side = 0; side < 2; ++side) strips.box.grow(edge_point(row, side));
    }
}
