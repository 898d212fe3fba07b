// The order of surface contact: steering, then land or water.
#include "flight/ground/contact.h"

#include <math.h>

#include "aircraft/design/location.h"
#include "core/math/num.h"
#include "core/records/records.h"
#include "flight/ground/contact_point.h"
#include "flight/ground/contact_state.h"
#include "flight/ground/water.h"
#include "flight/ground/wheels.h"
#include "scenery/ground/surfaces.h"
#include "scenery/ground/terrain_query.h"

contact_state_struct contact_state;

void contact_start() {
    constexpr float first_gain = 2.0f;
    contact_state = {};
    for (float& gain : contact_state.gain) gain = first_gain;
    contact_state.time_last_play = -9999.0f;
    weigh_anchor();
}

void reset_contact() { contact_start(); }

int nw_castoring(int p) { return veh[p].nw_steerdeg1 < 0.01f || !stg.nw_steering; }

namespace {
bool has_pedals_or_network() {
    return mnw.eq_ped_nobrk || mnw.eq_ped_wibrk || net.getting_rawjoy || net.getting_astab ||
           net.getting_flightcons || msc.ai_flys;
}

// -- friction

// Water lifts the tyres off. As given, in m/s and Pa.
bool is_hydroplaning() {
    constexpr int very_wet = 2;
    if (atm.rway_fric_code != very_wet || !(veh[0].tire_s_contact > 0.0f)) return false;
    const float tire_pressure = flt[0].m_total * con.lcl_g / veh[0].tire_s_contact;
    return flt[0].V_msc > 0.0116f * sqrtf(tire_pressure);
}

surface_friction_struct friction_of_surface() {
    surface_friction_struct s = {veh[0].roll_co, veh[0].brake_co, 0.4f};
    switch (env.surf_tex) {
        case surface_plain:
        case surface_dirt:
        case surface_pad_dirt:
        case surface_gravel:
            s.rco *= 4.0f, s.bco *= 0.75f, s.mco *= 2.0f;
            break;
        case surface_grass:
        case surface_pad_grass:
            s.rco *= 2.0f, s.bco *= 0.75f, s.mco *= 0.5f;
            break;
        case surface_lakebed:
            s.bco *= 0.75f;
            break;
        default:
            if (is_hydroplaning()) s.rco = s.bco = 0.01f;
    }
    return s;
}

// -- the airframe

// A point without wheels.
void scrape(int en, float x, float y, float z, float mco, float share) {
    float straight = 0.0f;
    handle_contact_point({.en = en,
                          .is_tire = 0,
                          .x_veh = x,
                          .y_veh = y,
                          .z_veh = z,
                          .fco_roll = mco,
                          .fco_stat = mco,
                          .fco_kine = mco,
                          .spr_con = share * veh[0].part[en].scon,
                          .spr_dmp = share * veh[0].part[en].damp,
                          .tire_steer = &straight,
                          .castors = 0});
}

void touch_wing_tips(float mco) {
    for (int en = part_wing_first; en <= part_wing_last; ++en) {
        if (!has_this_wing(0, en)) continue;
        const auto tip = static_cast<float>(veh[0].wing[en].els);
        scrape(en, get_el_base_loc(0, en, tip, 'X'), get_el_base_loc(0, en, tip, 'Y'),
               get_el_base_loc(0, en, tip, 'Z'), mco, 1.0f);
    }
}

// Keel and top of every second station.
void touch_bodies(float mco) {
    constexpr float share = 0.25f;
    for (int en = part_body_first; en <= part_nace_last; ++en) {
        if (!has_this_body(0, en)) continue;
        const veh_part_struct& body = veh[0].part[en];
        for (int s = 0; s < body.s_dim; s += 2)
            for (const int r : {body.r_dim / 2, 0}) {
                const float* at = body.geo_xyz[s][r];
                scrape(en, body.part_x + at[0], body.part_y + at[1], body.part_z + at[2], mco, share);
            }
    }
}

// Skids may stand off the ground on a slope.
void note_ground_contact() {
    flt_struct& f = flt[0];
    for (int en = 0; en < gearDIM; ++en)
        if (contact_state.down[en]) f.onground_any = f.onground_all = 1;
    for (int en = 0; en < gearDIM; ++en)
        if (has_this_gear(0, en) && !contact_state.down[en] && veh[0].gear[en].gear_type != gear_skid)
            f.onground_all = 0;
}

void touch_land() {
    weigh_anchor();
    const surface_friction_struct friction = friction_of_surface();
    touch_wing_tips(friction.mco);
    touch_bodies(friction.mco);
    touch_wheels(friction);
    note_ground_contact();
}

void forget_contact() {
    flt_struct& f = flt[0];
    f.onground_any = f.onground_all = 0;
    for (flt_gear_struct& g : f.gear) g.tire_vrt_def_veh = g.tire_skid_rat = 0.0f;
}
}  // namespace

void steer_nosewheel() {
    flt_struct& f = flt[0];
    const veh_struct& v = veh[0];
    const int leg = intlim(v.gear_steer_EN, 0, gearDIM - 1);
    const bool slow = f.gear[leg].tire_omega < v.nw_cutoff_omega;
    const float command = has_pedals_or_network() ? mnw.YK_hdng : mnw.YK_roll;
    for (int en = 0; en < gearDIM; ++en) {
        f.gear[en].tire_steer = 0.0f;
        if (!v.gear[en].steers) continue;
        if (nw_castoring(0)) {
            f.gear[en].tire_steer = -f.beta;
            continue;
        }
        const bool behind = v.gear[en].z_nodef > 0.0f;
        f.gear[en].tire_steer = (behind ? -command : command) * (slow ? v.nw_steerdeg1 : v.nw_steerdeg2);
    }
}

void touch_surfaces() {
    forget_contact();
    if (wheels_are_wet())
        float_on_water();
    else
        touch_land();
}
