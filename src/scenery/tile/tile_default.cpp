// The water tile of a degree without scenery, so that every degree of a region has ground.
#include "scenery/tile/tile_default.h"

#include <math.h>

#include <memory>

#include "core/math/globe.h"
#include "core/records/records.h"
#include "draw/images/tex_refs.h"
#include "scenery/tile/tile_edge.h"
#include "scenery/tile/tile_mesh.h"
#include "scenery/tile/tile_state.h"

namespace {
constexpr int lon_cells = 32, lat_cells = 40, patch_cells = 4;

struct water_vertex {
    d3_struct geo, nrm;
};
struct water_grid {
    water_vertex at[lon_cells + 1][lat_cells + 1];
};

d3_struct sea_level(double lat, double lon) {
    d3_struct at;
    xyz_with_latlonel(&at.x, &at.y, &at.z, lat, lon, 0.0);
    return at;
}

// The planet's own normal, in the frame of the region's centre.
d3_struct sea_normal(double lat, double lon) {
    const double x = sin((lon - ref_lon()) * dob_degtorad), z = sin((ref_lat() - lat) * dob_degtorad);
    return {static_cast<float>(x), static_cast<float>(sqrt(fmax(1.0 - x * x - z * z, 0.0))),
            static_cast<float>(z)};
}

void meet_neighbours(int i, int j, water_vertex* v) {
    const auto handle = [v](int op) { handle_edge(g_lon_os, g_lat_os, &v->geo, &v->nrm, op); };
    if (g_lon_os != lon_secs[env.planet] - 1 && i == lon_cells) handle(edge_keep_right);
    if (g_lat_os != lat_secs[env.planet] - 1 && j == lat_cells) handle(edge_keep_top);
    if (g_lon_os > 0 && i == 0) handle(edge_take_left);
    if (g_lat_os > 0 && j == 0) handle(edge_take_bottom);
}

void make_grid(water_grid* grid) {
    for (int i = 0; i <= lon_cells; ++i)
        for (int j = 0; j <= lat_cells; ++j) {
            const double lon = g_lon_file + static_cast<double>(i) / lon_cells;
            const double lat = g_lat_file + static_cast<double>(j) / lat_cells;
            water_vertex& v = grid->at[i][j];
            v = {sea_level(lat, lon), sea_normal(lat, lon)};
            meet_neighbours(i, j, &v);
        }
}

// West, centre and east of both edges: a parallel bends in the local frame.
void find_bounds(Point2* min, Point2* max) {
    *min = {9.9e+09, 9.9e+09};
    *max = {-9.9e+09, -9.9e+09};
    for (const double lat : {0.0, 1.0})
        for (const double lon : {0.0, 0.5, 1.0}) {
            const d3_struct at = sea_level(g_lat_file + lat, g_lon_file + lon);
            *min = {fmin(min->x, at.x), fmin(min->y, at.z)};
            *max = {fmax(max->x, at.x), fmax(max->y, at.z)};
        }
}

// Two triangles of each cell, clockwise from above.
void add_patch(const water_grid& grid, int i0, int j0, xdeg_struct& degree) {
    scene_patch_struct* const patch = new scene_patch_struct;
    patch->temp = new scene_patch_struct_temp;
    scene_pol_struct& drawn = patch->temp->scene_pol.emplace_back();
    ytest_patch_struct* const stood_on = new ytest_patch_struct;
    stood_on->patch_is_wet = 1;
    ytest_pol_struct& triangles = stood_on->ytest_pol.emplace_back();
    const auto add = [&](const water_vertex& v, int i, int j) {
        drawn.geo.push_back(v.geo);
        drawn.nrm.push_back(v.nrm);
        drawn.color.push_back({{static_cast<float>(i0 - i), static_cast<float>(j0 - j)}});
        patch->temp->grow(v.geo);
    };
    // Meridians meet at the poles: what has no side there is drawn, but not stood on.
    const auto add_triangle = [&](int i1, int j1, int i2, int j2, int i3, int j3) {
        const water_vertex &a = grid.at[i1][j1], &b = grid.at[i2][j2], &c = grid.at[i3][j3];
        add(a, i1, j1), add(b, i2, j2), add(c, i3, j3);
        if (zero_area_tri(a.geo, b.geo, c.geo)) return;
        for (const d3_struct& at : {a.geo, b.geo, c.geo}) {
            triangles.geo.push_back(at);
            triangles.grow(at);
            stood_on->grow(at);
        }
    };
    for (int i = i0; i < i0 + patch_cells; ++i)
        for (int j = j0; j < j0 + patch_cells; ++j) {
            add_triangle(i, j, i, j + 1, i + 1, j + 1);
            add_triangle(i, j, i + 1, j + 1, i + 1, j);
        }
    UTIL_build_DL(&degree.tex_layers[0], patch);
    degree.tex_layers[0].scene_buckets.Insert(patch);
    if (triangles.geo.empty())
        delete stood_on;
    else
        degree.ytest_buckets.Insert(stood_on);
}
}  // namespace

int make_def_env(int lat_file, int lat_os, int lon_file, int lon_os) {
    g_lat_os = lat_os;
    g_lon_os = lon_os;
    g_lat_file = lat_file;
    g_lon_file = lon_file;
    xdeg_struct& degree = xdeg[lon_os][lat_os];
    xlay_struct water;
    water.plane_tex_ref = tex_water;
    water.on_sectional = water.before_airports = water.project_texes = 1;
    Point2 min, max;
    find_bounds(&min, &max);
    water.scene_buckets.Reset(bucket_levels, min, max, buckets_loose);
    degree.ytest_buckets.Reset(bucket_levels, min, max, buckets_strict);
    degree.tex_layers.push_back(std::move(water));
    const auto grid = std::make_unique<water_grid>();
    make_grid(grid.get());
    for (int i = 0; i < lon_cells; i += patch_cells)
        for (int j = 0; j < lat_cells; j += patch_cells) add_patch(*grid, i, j, degree);
    return 1;
}
