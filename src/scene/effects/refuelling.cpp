// Refuelling in the air.
#include "scene/effects/refuelling.h"

#include "core/math/axes.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "draw/gl/colours.h"
#include "draw/primitives.h"

namespace {
constexpr float touches = 5.0f, in_sight = 250.0f;  // between the points, m

bool both_can() { return veh[0].has_refuel && veh[1].has_refuel; }

point3 refuel_point(int p) {
    const float(&at)[3] = veh[p].refuel_xyz;
    float x, y, z;
    veh_to_wrl(at[0], at[1], at[2], &x, &y, &z, p);
    return {static_cast<float>(flt[p].dob_x + x), static_cast<float>(flt[p].dob_y + y),
            static_cast<float>(flt[p].dob_z + z)};
}

float apart(const point3& a, const point3& b) { return pythag(a.x - b.x, a.y - b.y, a.z - b.z); }
}  // namespace

void refuelling_step() {
    constexpr float flow_lbs = 122.8333f;  // a second
    if (mnw.paused || mnw.replay_mode || !both_can() || !(apart(refuel_point(0), refuel_point(1)) < touches)) return;
    const float flow = flow_lbs * con.lbstokgs * mnw.prd_FM;
    for (int tank = 0; tank < fuelDIM; ++tank) {
        const float share = veh[0].tank_rat[tank], full = veh[0].m_fuel_tot * share;
        float& fuel = flt[0].m_fuel[tank];
        if (fuel < full) fuel = fltmin2(fuel + flow * share, full);
    }
}

void draw_refuelling() {
    constexpr float faint = 0.25f;
    if (!both_can()) return;
    const point3 mine = refuel_point(0), tanker = refuel_point(1);
    if (apart(mine, tanker) < in_sight) OGL_3dline(col_white, faint, mine, tanker);
}
