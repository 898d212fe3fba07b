// Strips of airports with any runways: as many rows as their record asks for, one behind the other, finite,
// and what asks for the ground on them gets an answer.
#include "core/math/num.h"
#include "scenery/airports/strips.h"
#include "scenery/ground/runways.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/ground/tile.h"
#include "scenery/nav/nav_tables.h"
#include "support.h"

namespace {
using fuzzing::input;
using fuzzing::must;
using fuzzing::must_be_finite;

// Of a size that occurs, or any bits.
float read_float(input& from, float least, float most) {
    if (from.byte() == 0) return from.value<float>();
    return least + (most - least) * static_cast<float>(from.word()) / 65535.0f;
}

float read_feet(input& from) {
    return from.byte() % 2 ? 0.0f : floorf(read_float(from, 0, 3000)) + read_float(from, 0.0f, 0.3f);
}

vec_rwy_struct read_runway(input& from) {
    vec_rwy_struct rwy;
    rwy.lat = read_float(from, 32.9f, 35.1f);
    rwy.lon = read_float(from, -119.1f, -115.9f);
    rwy.psi_true = read_float(from, 0.0f, 360.0f);
    rwy.len = read_float(from, 1.0f, 4000.0f);
    rwy.width = read_float(from, 1.0f, 300.0f);
    rwy.disp = read_feet(from);
    rwy.blast = read_feet(from);
    rwy.surf_tex = static_cast<unsigned char>(from.byte() % 8 ? 105 + from.byte() % 24 : from.byte());
    rwy.markings = static_cast<unsigned char>(from.byte() % 5);
    for (int c = 0; c < 3; ++c) rwy.num_str[c] = "0123456789LRCxH?"[from.byte() % 16];
    return rwy;
}

// What the airport file's reader lets through; the rest must only do no harm.
bool is_admitted(const vec_rwy_struct& rwy, float ele) {
    constexpr float most_feet = 1e6f, longest = 1e5f;
    return fabsf(rwy.lat) <= 90.0f && fabsf(rwy.lon) <= 180.0f && fabsf(rwy.psi_true) <= 360.0f &&
           fabsf(rwy.disp) <= most_feet && fabsf(rwy.blast) <= most_feet && fabsf(ele) <= 3e4f &&
           rwy.len <= longest && rwy.width <= longest;
}

// From the record alone.
size_t rows_wanted(const vec_rwy_struct& rwy) {
    const float feet = fltlim(rwy.blast, 0.0f, 1.0e6f), whole = floorf(feet);
    const float blast = whole * con.fttomtrs + (feet - whole) * 10000.0f * con.fttomtrs;
    const float rows = roundf((rwy.len + blast) / rwy.width);
    const bool is_piece = rwy.num_str[0] == 'x', is_pad = rwy.num_str[0] == 'H';
    const bool is_soft =
        rwy.surf_tex >= 115 && rwy.surf_tex <= 122 && rwy.surf_tex != 119 && rwy.surf_tex != 120;
    const float least = is_soft || !(is_piece || is_pad) ? 3.0f : 1.0f;
    const bool is_marked = rwy.markings != 0 && rwy.surf_tex <= 114 && !is_piece;
    return static_cast<size_t>(fltlim(rows, least, 1000.0f)) + (is_marked ? 5 : 1);
}

void check_rows(const std::vector<vec_rwy_pol_struct>& rows) {
    const float *const first = rows.front().xyz[0], *const last = rows.back().xyz[0];
    const float dx = last[0] - first[0], dz = last[2] - first[2], length = hypotf(dx, dz);
    float before = 0.0f;
    for (const vec_rwy_pol_struct& row : rows) {
        must_be_finite({row.xyz[0][0], row.xyz[0][1], row.xyz[0][2], row.xyz[1][0], row.xyz[1][1]});
        must(row.xyz[0][1] == row.xyz[1][1]);
        must(fabsf(sqr(row.nrm[0]) + sqr(row.nrm[1]) + sqr(row.nrm[2]) - 1.0f) < 1e-3f);
        const float along = length > 0.0f
                                ? ((row.xyz[0][0] - first[0]) * dx + (row.xyz[0][2] - first[2]) * dz) / length
                                : 0.0f;
        const float rounding = 1e-6f * (fabsf(first[0]) + fabsf(first[2]) + length);
        must(along >= before - rounding);
        before = along;
    }
    const vec_rwy_pol_struct& middle = rows[rows.size() / 2];
    must_be_finite({return_terrain_y(middle.xyz[0][0], middle.xyz[0][2], checker_tire_first)});
}
}  // namespace

void fuzz_strips(input& from) {
    env.lat_sou = 33.0f, env.lon_wes = -119.0f;
    find_region_extents();
    clear_strips();
    vec_apt.assign(1 + from.byte() % 3, {});
    for (size_t a = 0; a < vec_apt.size(); ++a) {
        vec_apt[a].ele = read_float(from, -100.0f, 4000.0f);
        for (size_t n = from.byte() % 6; n > 0; --n) vec_apt[a].rwy.push_back(read_runway(from));
    }
    size_t strips = 0;
    for (int a = 0; a < static_cast<int>(vec_apt.size()); ++a) {
        for (int twice = 0; twice < 2; ++twice) UTIL_build_runways(a);
        const vec_apt_struct& apt = vec_apt[static_cast<size_t>(a)];
        msc.loc_apt_wrl = a;
        strips += apt.rwy.size();
        for (const vec_rwy_struct& rwy : apt.rwy) {
            const auto& rows = vec_rwy_geo.at(static_cast<size_t>(rwy.geo_ind)).vec_rwy_pol;
            if (!is_admitted(rwy, apt.ele)) continue;
            const bool has_rows = rwy.len > 0.0f && rwy.width > 0.0f;
            must(rows.size() == (has_rows ? rows_wanted(rwy) : 0));
            if (has_rows) check_rows(rows);
        }
    }
    must(vec_rwy_geo.size() == strips);
}
