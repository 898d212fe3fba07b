// Which lamps burn, where and in which colour.
#include "aircraft/draw/lamps.h"

#include <math.h>

#include <initializer_list>

#include "aircraft/design/exists.h"
#include "aircraft/design/location.h"
#include "aircraft/systems/electrics.h"
#include "core/math/num.h"
#include "core/records/stg.h"
#include "weather/draw/point_lights.h"

namespace {
struct colour_struct {
    float r, g, b;
};
constexpr colour_struct white = {1.0f, 1.0f, 1.0f}, red = {1.0f, 0.0f, 0.0f}, green = {0.0f, 1.0f, 0.0f};

// One run of lamps; each has its own seed of brightness.
struct lamps_struct {
    int p, seed;
    void put(const float* xyz, const colour_struct& c, float alpha, float size) {
        util_point_lite_draw(xyz, c.r, c.g, c.b, alpha, size, -1, seed++, lite_plain);
    }
};

// At this share of the span from the root.
void tip_of(int p, int en, float share, float (&xyz)[3]) {
    const float at = share * static_cast<float>(veh[p].wing[en].els);
    for (int axis = 0; axis < 3; ++axis) xyz[axis] = get_el_base_loc(p, en, at, "XYZ"[axis]);
}

void put_landing_lamps(lamps_struct& lamps) {
    constexpr float size = 4.0f;
    const veh_struct& v = veh[lamps.p];
    const flt_struct& f = flt[lamps.p];
    if (f.lan_lite && v.has_lanlite1) lamps.put(v.lanlite1_xyz, white, 1.0f, size);
    if (f.lan_lite && v.has_lanlite2) lamps.put(v.lanlite2_xyz, white, 1.0f, size);
    if (f.tax_lite && v.has_taxilite) lamps.put(v.taxilite_xyz, white, 1.0f, size);
}

void put_body_lamps(lamps_struct& lamps) {
    constexpr float beacon_size = 2.0f, tail_size = 1.5f;
    const veh_struct& v = veh[lamps.p];
    const flt_struct& f = flt[lamps.p];
    const float alpha = pulse(1.5f * static_cast<float>(lamps.p));
    if (f.bea_lite && v.has_fuserb1) lamps.put(v.fuserb1_xyz, red, alpha, beacon_size);
    if (f.bea_lite && v.has_fuserb2) lamps.put(v.fuserb2_xyz, red, alpha, beacon_size);
    if (f.nav_lite && v.has_taillite) lamps.put(v.taillite_xyz, white, 1.0f, tail_size);
}

// The wing that reaches farthest out on the side of its first one; -1 for none. One that has come off takes
// its lamp with it.
int widest_wing(int p, int first) {
    int widest = -1;
    float reach = 0.0f;
    for (int en = first; en <= part_main_last; en += 2) {
        if (!has_this_wing(p, en)) {
            if (veh[p].part[en].part_eq) return -1;
            continue;
        }
        float xyz[3];
        tip_of(p, en, 1.0f, xyz);
        if (widest >= 0 && fabsf(xyz[0]) <= reach) continue;
        widest = en, reach = fabsf(xyz[0]);
    }
    return widest;
}

void put_wing_lamps(lamps_struct& lamps) {
    constexpr float beyond = 1.01f, size = 1.5f, flash_size = 4.0f;
    const flt_struct& f = flt[lamps.p];
    if (!veh[lamps.p].has_navlites || !(f.nav_lite || f.str_inflash)) return;
    for (const int first : {static_cast<int>(part_wing_first), part_wing_first + 1}) {
        const int en = widest_wing(lamps.p, first);
        if (en < 0) continue;
        float xyz[3];
        tip_of(lamps.p, en, beyond, xyz);
        if (f.str_inflash)
            lamps.put(xyz, white, 1.0f, flash_size);
        else
            lamps.put(xyz, first == part_wing_first ? red : green, 1.0f, size);
    }
}

// On the higher fin, on both when they are twins.
void put_fin_lamps(lamps_struct& lamps) {
    constexpr float size = 2.5f, beyond = 1.01f, same = 0.01f;  // m
    const flt_struct& f = flt[lamps.p];
    if (!f.bea_lite) return;
    constexpr float none = -9.9e9f;
    float tips[2][3], heights[2] = {none, none};
    for (int i = 0; i < 2; ++i) {
        const int en = part_vstb_first + i;
        if (!has_this_wing(lamps.p, en)) continue;
        tip_of(lamps.p, en, beyond, tips[i]);
        heights[i] = tips[i][1];
    }
    const float highest = fltmax2(heights[0], heights[1]);
    for (int i = 0; i < 2; ++i)
        if (heights[i] > none && heights[i] > highest - same) lamps.put(tips[i], red, f.bea_alpha, size);
}
}  // namespace

void draw_lamps(int p) {
    if (!esys_working()) return;
    constexpr int seeds_apart = 16;  // more lamps than an aircraft has
    lamps_struct lamps = {p, p * seeds_apart};
    const flt_struct& f = flt[p];
    util_point_lite_init(0);
    util_point_lite_setref(static_cast<float>(f.dob_x), static_cast<float>(f.dob_y),
                           static_cast<float>(f.dob_z), f.the, f.psi, f.phi);
    put_landing_lamps(lamps);
    put_body_lamps(lamps);
    put_wing_lamps(lamps);
    put_fin_lamps(lamps);
    util_point_lite_close();
}
