// Dry, level ground.
#include "scenery/region/survey_land.h"

#include <vector>

#include "core/math/globe.h"
#include "core/records/records.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/ground/tile.h"
#include "scenery/tile/tile_mesh.h"

namespace {
constexpr int cells[2] = {64, 32};  // along each side of a tile, by planet
constexpr int patch_cells = 8;

// Columns of vertices, each from the south.
std::vector<d3_struct> make_vertices(int lat_file, int lon_file, int n) {
    std::vector<d3_struct> at;
    at.reserve(static_cast<size_t>(n + 1) * static_cast<size_t>(n + 1));
    for (int i = 0; i <= n; ++i)
        for (int j = 0; j <= n; ++j) {
            d3_struct& v = at.emplace_back();
            xyz_with_latlonel(&v.x, &v.y, &v.z, lat_file + static_cast<double>(j) / n,
                              lon_file + static_cast<double>(i) / n, 0.0);
        }
    return at;
}

ytest_patch_struct* make_patch(const std::vector<d3_struct>& at, int n, int i0, int j0) {
    auto* const patch = new ytest_patch_struct;
    ytest_pol_struct& triangles = patch->ytest_pol.emplace_back();
    triangles.geo.reserve(6 * patch_cells * patch_cells);
    const auto add = [&](const d3_struct& a, const d3_struct& b, const d3_struct& c) {
        if (zero_area_tri(a, b, c)) return;  // at a pole
        triangles.geo.insert(triangles.geo.end(), {a, b, c});
    };
    for (int i = i0; i < i0 + patch_cells; ++i)
        for (int j = j0; j < j0 + patch_cells; ++j) {
            const d3_struct* const west =
                &at[static_cast<size_t>(i) * static_cast<size_t>(n + 1) + static_cast<size_t>(j)];
            const d3_struct* const east = west + n + 1;
            add(west[0], west[1], east[1]);
            add(west[0], east[1], east[0]);
        }
    for (const d3_struct& v : triangles.geo) triangles.grow(v);
    for (const d3_struct& v : triangles.geo) patch->grow(v);
    return patch;
}

void fill_survey_tile(int, int lat_file, int lat_os, int lon_file, int lon_os) {
    const int n = cells[env.planet];
    const std::vector<d3_struct> at = make_vertices(lat_file, lon_file, n);
    box_struct box;
    for (const d3_struct& v : at) box.grow(v);
    xdeg_struct& degree = xdeg[lon_os][lat_os];
    degree.ytest_buckets.Reset(bucket_levels, {box.min_x, box.min_z}, {box.max_x, box.max_z}, buckets_strict);
    for (int i = 0; i < n; i += patch_cells)
        for (int j = 0; j < n; j += patch_cells) {
            ytest_patch_struct* const patch = make_patch(at, n, i, j);
            if (patch->ytest_pol[0].geo.empty())
                delete patch;
            else
                degree.ytest_buckets.Insert(patch);
        }
}

// -- what is there

struct region_name {
    int planet = -1;
    float lat_sou = 0, lon_wes = 0, planet_rad = 0;
    bool operator==(const region_name&) const = default;
};
region_name loaded;

region_name present_region() { return {env.planet, env.lat_sou, env.lon_wes, con.planet_rad}; }

// Tiles of survey land are the only ones that are stood on and not drawn.
bool still_stands() {
    if (!(loaded == present_region())) return false;
    for (int lon = 0; lon < lon_secs[env.planet]; ++lon)
        for (int lat = 0; lat < lat_secs[env.planet]; ++lat)
            if (xdeg[lon][lat].ytest_buckets.Empty() || !xdeg[lon][lat].tex_layers.empty()) return false;
    return true;
}
}  // namespace

const region_steps_struct region_of_survey_land = {
    [] {},
    fill_survey_tile,
    [] { loaded = present_region(); },
    [](int) {},
};

void stand_on_survey_land() {
    region_steps = region_of_survey_land;
    if (!still_stands()) return load_region(shift_full_reload);
    find_region_extents();
    forget_found_terrain();
}
