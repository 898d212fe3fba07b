// Brakes and tyres of the legs.
#include "flight/ground/wheels.h"

#include <math.h>

#include "aircraft/design/exists.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "flight/ground/contact.h"
#include "flight/ground/contact_point.h"
#include "flight/ground/contact_state.h"

namespace {
int num_braking_wheels() {
    int count = 0;
    for (int en = 0; en < gearDIM; ++en)
        if (has_this_gear(0, en) && !veh[0].gear[en].steers) ++count;
    return count;
}

bool autobrake_is_on() { return stg.parkbrake > 0.99f && veh[0].fbrk_on_td_EQ; }

// Holds the deceleration at what the level asks for; rejected take-offs and hand brakes have none.
void hold_deceleration() {
    constexpr float max_g[] = {0.125f, 0.155f, 0.225f, 0.4f};
    constexpr int first_level = 2, last_level = 5;
    if (!autobrake_is_on() || !intrange(stg.auto_brake_lvl, first_level, last_level)) {
        contact_state.braking_red = 0.0f;
        return;
    }
    const float excess_g = flt[0].g_axil - max_g[stg.auto_brake_lvl - first_level];
    contact_state.braking_red = closer_assymp(contact_state.braking_red, 20.0f * excess_g, mnw.prd_FM);
}

float anti_skid(const flt_gear_struct& wheel, float radius) {
    constexpr float works_above = 8.0f;  // rad/s
    if (!(wheel.tire_omega > works_above)) return 1.0f;
    const float slide_v_msc = (wheel.term_omega - wheel.tire_omega) * radius;
    return fltlim(1.0f - 2.0f * slide_v_msc, 0.25f, 1.0f);
}

// 0 to 1 by the brake lever and automatic, more by the pedals.
float brake_of(int en) {
    constexpr float bearings = 0.001f, beside = 0.05f;  // the second in m from the middle
    const veh_gear_struct& leg = veh[0].gear[en];
    float part_brake = bearings;
    if (!leg.steers) part_brake += stg.parkbrake;
    part_brake *= anti_skid(flt[0].gear[en], leg.tire_radius);
    if (contact_state.braking_red != 0.0f)
        part_brake = fltlim(part_brake - contact_state.braking_red, 0.0f, 1.0f);
    if (leg.x_nodef < -beside) part_brake += stg.l_brake_add;
    if (leg.x_nodef > beside) part_brake += stg.r_brake_add;
    return part_brake;
}

// How much of the leg's rubber a blown tyre takes, by the wheels that share the load.
float blown_share(int gear_type) {
    switch (gear_type) {
        case gear_one:
        case gear_two_long:
            return 1.0f;
        case gear_two_lat:
            return 0.75f;
        case gear_four_2x2:
        case gear_six_2x3:
        case gear_four_lat:
            return 0.5f;
        default:
            return 0.0f;
    }
}

// The rim thumps once a turn: friction more, height less or more.
struct rim_struct {
    float friction = 0.0f, dy = 0.0f;
};
rim_struct run_on_rim(int en) {
    const veh_gear_struct& leg = veh[0].gear[en];
    const float share = part_failed(0, fail_tire + en) ? blown_share(leg.gear_type) : 0.0f;
    if (!(share > 0.0f)) return {};
    float& a = contact_state.wheel_rotation[en];
    a = fltwrap(a + fmodf(flt[0].gear[en].term_omega * mnw.prd_FM, con.pim2), 0.0f, con.pim2);
    const float ran_fac01 = 0.45f + 0.2f * (sinf(a) + cosf(a) + sinf(2.0f * a) + cosf(2.0f * a));
    return {ran_fac01 * share, leg.tire_radius * (0.8f - 0.4f * ran_fac01) * share};
}

void touch_wheel(int en, const surface_friction_struct& friction) {
    constexpr float sliding = 0.7f;  // of the grip
    const veh_gear_struct& leg = veh[0].gear[en];
    const rim_struct rim = run_on_rim(en);
    float this_rco = friction.rco + rim.friction, this_bco = friction.bco + rim.friction;
    if (leg.gear_type == gear_skid) this_rco = this_bco = friction.mco;
    contact_state.down[en] = handle_contact_point({.en = en,
                                                   .is_tire = 1,
                                                   .x_veh = leg.x_nodef,
                                                   .y_veh = leg.y_nodef - leg.tire_radius + rim.dy,
                                                   .z_veh = leg.z_nodef,
                                                   .fco_roll = this_rco,
                                                   .fco_stat = this_bco,
                                                   .fco_kine = sliding * this_bco,
                                                   .spr_con = leg.scon,
                                                   .spr_dmp = leg.damp,
                                                   .tire_steer = &flt[0].gear[en].tire_steer,
                                                   .castors = leg.steers && nw_castoring(0)});
}
}  // namespace

float brake_torque(int en) {
    constexpr float omega_for_full_brakes = 4.0f;  // rad/s
    const auto wheels = static_cast<float>(intmax2(contact_state.braking_wheels, 1));
    const float full = veh[0].m_max * con.g / wheels * veh[0].gear[en].tire_radius;
    return -full * brake_of(en) * fltlim(flt[0].gear[en].tire_omega / omega_for_full_brakes, -1.0f, 1.0f);
}

void touch_wheels(const surface_friction_struct& friction) {
    hold_deceleration();
    contact_state.braking_wheels = num_braking_wheels();
    for (int en = 0; en < gearDIM; ++en) {
        contact_state.down[en] = 0;
        if (!has_this_gear(0, en)) continue;
        flt[0].gear[en].tire_TRQ = brake_torque(en);
        touch_wheel(en, friction);
    }
}
