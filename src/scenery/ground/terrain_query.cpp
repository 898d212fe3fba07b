// Terrain queries over the collision patches of the region.
#include "scenery/ground/terrain_query.h"

#include <math.h>
#include <string.h>

#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/records.h"
#include "scenery/ground/surfaces.h"
#include "scenery/ground/tile.h"

namespace {
// -- is the point in it? Each remembers the triangle it found.

float edge_length(const d3_struct& a, const d3_struct& b) { return pythag(b.x - a.x, b.z - a.z); }

bool inside_cw_reg(const d3_struct& a, const d3_struct& b, float x, float z) {
    return inside_cw_edge(a.x, a.z, b.x, b.z, x, z);
}

// Tiles are cleaned of such triangles while they load; their inside has no meaning.
[[gnu::cold, gnu::noinline]] void zero_side_found(int checker) {
    char text[100];
    snprintf(text, sizeof text, "lat=%8.4f, lon=%8.4f, checker=%2.0f", flt[0].dob_lat, flt[0].dob_lon,
             static_cast<double>(checker));
    MACIBM_alert(0, "RUN-TIME: Zero-side-length triangle in the y-tester!", text, "", "", alert_fatal);
}

bool find_in_tri(const d3_struct* g0, const d3_struct* g1, const d3_struct* g2, float x, float z,
                 int checker) {
    constexpr float least_side = 1.0f;  // metre
    if (!g0 || !g1 || !g2) return false;
    if (!inside_cw_reg(*g0, *g1, x, z) || !inside_cw_reg(*g1, *g2, x, z) || !inside_cw_reg(*g2, *g0, x, z))
        return false;
    if (edge_length(*g0, *g1) < least_side || edge_length(*g1, *g2) < least_side ||
        edge_length(*g2, *g0) < least_side)
        zero_side_found(checker);
    return true;
}

[[gnu::cold, gnu::noinline]] void broken_list() {
    MACIBM_alert(0, "DUH-OH!", "We found points in our y-test polys that are not a multiple of 3!",
                 "We only test for triangles!",
                 "How can we have triangles without vertices that are multiples of 3?", alert_fatal);
}

long triangles_tried = 0;

bool find_in_pol(ytest_pol_struct* pol, float x, float z, int checker) {
    if (!pol) return false;
    triangles_tried += static_cast<long>(pol->geo.size() / 3) + 1;
    if (pol->geo.size() % 3 != 0) broken_list();
    for (size_t i = 0; i + 2 < pol->geo.size(); i += 3) {
        d3_struct* const g = &pol->geo[i];
        if (!find_in_tri(g, g + 1, g + 2, x, z, checker)) continue;
        ren.i_geo0[checker] = g;
        ren.i_geo1[checker] = g + 1;
        ren.i_geo2[checker] = g + 2;
        return true;
    }
    return false;
}

bool is_beside(const box_struct& box, float x, float z) {
    return x < box.min_x || x > box.max_x || z < box.min_z || z > box.max_z;
}

// A patch of a fine tile has thousands of triangles in a few dozen strips.
bool find_in_pat(ytest_patch_struct* patch, float x, float z, int checker) {
    if (!patch || is_beside(*patch, x, z)) return false;
    for (ytest_pol_struct& pol : patch->ytest_pol) {
        if (is_beside(pol, x, z) || !find_in_pol(&pol, x, z, checker)) continue;
        ren.i_patch[checker] = patch;
        ren.i_pol[checker] = &pol;
        ren.is_wet[checker] = patch->patch_is_wet;
        return true;
    }
    return false;
}

bool find_in_deg(int lat, int lon, float x, float z, int checker) {
    const ytest_patch_buckets& buckets = xdeg[lon][lat].ytest_buckets;
    if (buckets.Empty()) return false;
    const bool found = buckets.AtPoint({x, z}, [&](const std::vector<ytest_patch_struct*>& patches) {
        for (ytest_patch_struct* patch : patches)
            if (find_in_pat(patch, x, z, checker)) return true;
        return false;
    });
    if (!found) return false;
    ren.is_set[checker] = 1;
    ren.i_lat[checker] = lat;
    ren.i_lon[checker] = lon;
    return true;
}

bool find_in_reg(float x, float z, int checker) {
    for (int lat = 0; lat < lat_secs[env.planet]; ++lat)
        for (int lon = 0; lon < lon_secs[env.planet]; ++lon)
            if (find_in_deg(lat, lon, x, z, checker)) return true;
    return false;
}

// From what the asker found last.
bool find_close(float x, float z, int c) {
    return find_in_tri(ren.i_geo0[c], ren.i_geo1[c], ren.i_geo2[c], x, z, c) ||
           find_in_pol(ren.i_pol[c], x, z, c) || find_in_pat(ren.i_patch[c], x, z, c);
}

void check_checker(int checker) {
    if (checker < 0 || checker >= checkDIM) MACIBM_fatal("Bad checker type!");
}

bool sees_all(int checker) {
    return checker == checker_user || (checker >= checker_tire_first && checker < checker_part_first);
}

// -- the surface

void set3(float (&to)[3], float x, float y, float z) {
    to[0] = x;
    to[1] = y;
    to[2] = z;
}

float sea_surface(float x, float z) {
    set3(env.terrain_ctr, x, y_with_xhz(x, 0.0f, z), z);
    set3(env.terrain_nrm, 0.0f, 1.0f, 0.0f);
    return env.terrain_ctr[1];
}

// A triangle too small to trust is level at its first corner's height.
float mesh_surface(float x, float z, int checker) {
    constexpr float least_run = 1.0f;  // square metres
    const d3_struct &g1 = *ren.i_geo0[checker], &g2 = *ren.i_geo1[checker], &g3 = *ren.i_geo2[checker];
    const float dx12 = g2.x - g1.x, dz12 = g2.z - g1.z;
    const float dx13 = g3.x - g1.x, dz13 = g3.z - g1.z;
    const float dy12 = g2.y - g1.y, dy13 = g3.y - g1.y;
    const float runx = dx13 * dz12 - dx12 * dz13, runz = dz13 * dx12 - dz12 * dx13;
    set3(env.terrain_ctr, g1.x, g1.y, g1.z);
    set3(env.terrain_nrm, 0.0f, 1.0f, 0.0f);
    if (fabsf(runx) < least_run || fabsf(runz) < least_run) return g1.y;
    const float rise_x = dy13 * dz12 - dy12 * dz13, rise_z = dy13 * dx12 - dy12 * dx13;
    const float nx = -rise_x / runx, nz = -rise_z / runz;
    constexpr float least_up = 0.01f;  // past 45 degrees a unit normal of these slopes would not exist
    set3(env.terrain_nrm, nx, sqrtf(fltmax2(1.0f - nx * nx - nz * nz, least_up)), nz);
    return y_on_surface(x, z);
}
}  // namespace

long terrain_effort() { return triangles_tried; }

int find_terrain_poly(float x, float z, int checker) {
    check_checker(checker);
    if (find_close(x, z, checker)) {
        ++ren.num_fas_finds;
        return 1;
    }
    const bool has_tile = ren.is_set[checker] != 0;
    const bool found = (has_tile && find_in_deg(ren.i_lat[checker], ren.i_lon[checker], x, z, checker)) ||
                       find_in_reg(x, z, checker);
    if (found) ++ren.num_slo_finds;
    return found;
}

static float bare_surface(float x, float z, int checker) {
    return find_terrain_poly(x, z, checker) ? mesh_surface(x, z, checker) : sea_surface(x, z);
}

// The network's plane stays in env for the tyres, who ask again before it is sent anew.
static float bare_surface_beside_network(float x, float z, int checker) {
    float ctr[3], nrm[3];
    memcpy(ctr, env.terrain_ctr, sizeof ctr);
    memcpy(nrm, env.terrain_nrm, sizeof nrm);
    const float y = bare_surface(x, z, checker);
    set3(env.terrain_ctr, ctr[0], ctr[1], ctr[2]);
    set3(env.terrain_nrm, nrm[0], nrm[1], nrm[2]);
    return y;
}

float return_terrain_y(float x, float z, int checker) {
    check_checker(checker);
    if (!isfinite(x) || !isfinite(z) || !ret_xz_inreg_tight(x, z)) return 0.0f;
    set3(env.terrain_vel, 0.0f, 0.0f, 0.0f);
    if (!sees_all(checker))
        return net.getting_terrain ? bare_surface_beside_network(x, z, checker) : bare_surface(x, z, checker);
    if (smooth_surface_at(x, z)) return y_on_surface(x, z);
    if (runway_surface_at(x, z, checker)) return y_on_surface(x, z) + surface_detail(x, z);
    if (!find_terrain_poly(x, z, checker)) return sea_surface(x, z);
    const float y = mesh_surface(x, z, checker);
    // bumps that stand still would heave whatever floats over them
    return ren.is_wet[checker] ? y : y + surface_detail(x, z);
}

int terrain_is_wet(float x, float z, int checker) {
    return !ret_xz_inreg_tight(x, z) || !find_terrain_poly(x, z, checker) || ren.is_wet[checker];
}

int wheels_are_wet() {
    if (env.over_carr || env.over_frig || env.over_obs_last || env.over_rwy_last) return 0;
    return terrain_is_wet(static_cast<float>(flt[0].dob_x), static_cast<float>(flt[0].dob_z), 0);
}

void forget_found_terrain() {
    for (int c = 0; c < checkDIM; ++c) {
        ren.is_set[c] = ren.is_wet[c] = ren.i_lat[c] = ren.i_lon[c] = 0;
        ren.i_patch[c] = nullptr;
        ren.i_pol[c] = nullptr;
        ren.i_geo0[c] = ren.i_geo1[c] = ren.i_geo2[c] = nullptr;
        ren.apt_wrl[c] = ren.rwy_wrl[c] = ren.rwy_geo[c] = ren.rwy_pol[c] = 0;
    }
}
