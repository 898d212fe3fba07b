// Collision meshes of any triangles, as the loader cleans them, against a walk over all of them. Corners are
// whole metres, so that both sides calculate exactly.

#include "scenery/ground/terrain_query.h"
#include "scenery/tile/tile_mesh.h"
#include "scenery/tile/tile_state.h"
#include "support.h"

namespace {
using fuzzing::input;
using fuzzing::must;

struct corner {
    long x, y, z;
};
struct triangle {
    corner at[3];
    bool wet;
};

corner read_corner(input& from) {
    const auto axis = [&] {
        const unsigned b = from.byte();
        return b < 240 ? static_cast<long>(b % 24) * 20 : static_cast<long>(b - 240);
    };
    const long x = axis(), z = axis();
    return {x, static_cast<long>(from.byte()), z};
}

d3_struct place(const corner& c) {
    return {static_cast<float>(c.x), static_cast<float>(c.y), static_cast<float>(c.z)};
}

bool is_short(const corner& a, const corner& b) { return a.x == b.x && a.z == b.z; }

bool holds(const triangle& t, long x, long z) {
    for (int i = 0; i < 3; ++i) {
        const corner &a = t.at[i], &b = t.at[(i + 1) % 3];
        if ((x - a.x) * (b.z - a.z) - (z - a.z) * (b.x - a.x) > 0) return false;
    }
    return true;
}
// Three corners in a line hold the whole line by their sides.
bool holds_in_box(const triangle& t, long x, long z) {
    const auto between = [](long v, long a, long b, long c) {
        return v >= std::min({a, b, c}) && v <= std::max({a, b, c});
    };
    return holds(t, x, z) && between(x, t.at[0].x, t.at[1].x, t.at[2].x) &&
           between(z, t.at[0].z, t.at[1].z, t.at[2].z);
}

// Of one primitive, in the order of its corners.
void add_triangles(const std::vector<corner>& v, int type, bool wet, std::vector<triangle>& to) {
    const size_t step = type == pol_triangles ? 3 : 1;
    for (size_t i = 2; i < v.size(); i += step) {
        triangle t{{v[i - 2], v[i - 1], v[i]}, wet};
        if (type == pol_fan) t.at[0] = v[0];
        if (type == pol_strip && i % 2 == 1) std::swap(t.at[1], t.at[2]);
        if (is_short(t.at[0], t.at[1]) || is_short(t.at[1], t.at[2]) || is_short(t.at[2], t.at[0])) continue;
        to.push_back(t);
    }
}

// Through the callbacks' own steps, since those are what cleans a tile.
void add_primitive(input& from, DSF_LoadState& state, std::vector<triangle>& all) {
    const int type = pol_triangles + static_cast<int>(from.byte() % 3);
    const size_t count = from.byte() % 12;
    std::vector<corner> corners;
    ytest_pol_struct& pol = state.ytest_cur_patch->ytest_pol.emplace_back();
    state.ytest_cur_poly = &pol;
    state.ytest_cur_pol_type = type;
    for (size_t i = 0; i < count; ++i) {
        corners.push_back(read_corner(from));
        pol.geo.push_back(place(corners.back()));
        state.ytest_cur_patch->grow(pol.geo.back());
    }
    DSF_EndPrimitive(&state);
    add_triangles(corners, type, state.ytest_cur_patch->patch_is_wet, all);
}

void ask(long x, long z, int checker, const std::vector<triangle>& all) {
    const float fx = static_cast<float>(x), fz = static_cast<float>(z);
    const int found = find_terrain_poly(fx, fz, checker);
    bool may = false, must_be = false, fits = false;
    for (const triangle& t : all) {
        const bool in = holds(t, x, z);
        may |= in;
        must_be |= holds_in_box(t, x, z);
        if (!found || !in) continue;
        const d3_struct* const g[3] = {ren.i_geo0[checker], ren.i_geo1[checker], ren.i_geo2[checker]};
        bool same = t.wet == (ren.is_wet[checker] != 0);
        for (int i = 0; i < 3; ++i)
            for (int axis = 0; axis < 3; ++axis) same &= g[i]->at(axis) == place(t.at[i]).at(axis);
        fits |= same;
    }
    must(found ? may && fits : !must_be);
    must(std::isfinite(return_terrain_y(fx, fz, checker)));
}
}  // namespace

void fuzz_mesh(input& from) {
    if (from.size() < 20 || from.size() > 3000) return;
    env.reg_x2_mtr = 0.0f;
    xdeg_struct* const degree = &xdeg[1][1];
    forget_found_terrain();
    std::vector<triangle> all;
    const double room = 100.0, side = 500.0;
    degree->ytest_buckets.Reset(bucket_levels, {-room, -room}, {side + room, side + room}, buckets_strict);
    DSF_LoadState state(degree);
    for (size_t patches = 1 + from.byte() % 6; patches > 0; --patches) {
        state.ytest_cur_patch = new ytest_patch_struct;
        state.ytest_patches.push_back({state.ytest_cur_patch});
        state.ytest_cur_patch->patch_is_wet = from.byte() & 1;
        for (size_t pols = 1 + from.byte() % 5; pols > 0; --pols) add_primitive(from, state, all);
    }
    for (const ytest_DSF_PatchInfo& info : state.ytest_patches) degree->ytest_buckets.Insert(info.patch);
    state.ytest_patches.clear();
    for (long x = -20; x <= 500; x += 26)
        for (long z = -20; z <= 500; z += 20) ask(x, z, 30 + static_cast<int>(x & 1), all);
    for (const triangle& t : all) ask(t.at[0].x, t.at[0].z, 30, all);
    while (!from.done()) {
        const corner c = read_corner(from);
        ask(c.x, c.z, 31, all);
    }
    clear_degree(degree);
}
