// Load, mixture, failed engine, and the rest on the gear.
#include "app/lab/lab_load.h"

#include "aircraft/design/exists.h"
#include "app/lab/lab.h"
#include "core/craft/engn_kinds.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "flight/power/levers.h"

bool lab_set_load(const lab_load& load) {
    const veh_struct& v = veh[0];
    flt_struct& f = flt[0];
    f.cgz_ref_to_default = load.cg_aft;
    if (load.fuel >= 0.0f)
        for (int tank = 0; tank < fuelDIM; ++tank)
            f.m_fuel[tank] = tank < v.num_tanks ? load.fuel * v.m_fuel_tot * v.tank_rat[tank] : 0.0f;
    if (load.failed_engine >= 0) f.fail_stat[fail_engine + load.failed_engine] = fail_active;
    if (load.mass < 0.0f) return true;
    const float payload = load.mass - (lab_mass() - f.m_fixed);
    if (payload < 0.0f) return false;
    f.m_fixed = payload;
    return true;
}

void lab_lean_engines() {
    for (int en = 0; en < veh[0].num_engines; ++en) {
        const flt_engn_struct& e = flt[0].engn[en];
        const float rpm_rat = e.tacrad_ENGN / fltmax2(veh[0].RSC_redline_ENGN, 1.0f);
        if (en_is_recip(0, en)) set_mixt(en, e.sigma - 0.4f + 0.2f * rpm_rat);
    }
}

void lab_set_mixture(float ratio) {
    for (int en = 0; en < veh[0].num_engines; ++en) set_mixt(en, ratio);
}

namespace {
struct bearing {
    float force, moment;  // N up; N m nose up, about the centre of gravity
};

bearing legs_bear(float height, float the) {
    const float s = sin_deg(the), c = cos_deg(the);
    bearing sum{0.0f, 0.0f};
    for (int g = 0; g < gearDIM; ++g) {
        if (!has_this_gear(0, g)) continue;
        const veh_gear_struct& gear = veh[0].gear[g];
        const float y =
            gear.gear_y - gear.leg_len * cos_deg(gear.latE) * cos_deg(gear.lonE) - gear.tire_radius;
        const float z = gear.gear_z + gear.leg_len * cos_deg(gear.latE) * sin_deg(gear.lonE);
        const float depth = fltmax2(-(height + y * c - z * s), 0.0f);
        sum.force += gear.scon * depth;
        sum.moment -= gear.scon * depth * (z * c + y * s);
    }
    return sum;
}

// Where the legs bear the weight at this pitch. Deeper is stiffer, so halving finds it.
float height_at(float the, float weight) {
    float low = -50.0f, high = 50.0f;  // m; no gear is longer
    for (int i = 0; i < 50; ++i) {
        const float middle = 0.5f * (low + high);
        (legs_bear(middle, the).force > weight ? low : high) = middle;
    }
    return 0.5f * (low + high);
}
}  // namespace

lab_rest lab_rest_on_gear() {
    const float weight = lab_mass() * con.g;
    // fuel weighs where its tanks are, all else at the centre of gravity
    float tail_heavy = (lab_mass() * flt[0].cgz_ref_to_default) * con.g;
    for (int tank = 0; tank < fuelDIM; ++tank)
        tail_heavy += flt[0].m_fuel[tank] * con.g * veh[0].tank_xyz[tank][2];
    const auto moment = [&](float the) { return legs_bear(height_at(the, weight), the).moment + tail_heavy; };
    if (!(legs_bear(-50.0f, 0.0f).force > weight)) return {false, 0.0f, 0.0f};
    // A nose that stands higher loads the legs behind, which press it down: there the rest is stable. Far
    // enough up the legs are ahead of the weight, and it falls over.
    constexpr float step = 0.5f, most = 20.0f;  // degrees
    float nose_down = 0.0f;
    while (nose_down > -most && moment(nose_down) < 0.0f) nose_down -= step;
    while (nose_down < most && moment(nose_down + step) > 0.0f) nose_down += step;
    if (nose_down <= -most || nose_down >= most) return {false, 0.0f, 0.0f};
    float nose_up = nose_down + step;
    for (int i = 0; i < 30; ++i) {
        const float middle = 0.5f * (nose_down + nose_up);
        (moment(middle) > 0.0f ? nose_down : nose_up) = middle;
    }
    const float the = 0.5f * (nose_down + nose_up);
    return {true, height_at(the, weight), the};
}
