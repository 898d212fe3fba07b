// Smoke, spray and dropped water of one aircraft, forty times a second.
#include "app/slots/plane_puffs.h"

#include "aircraft/design/exists.h"
#include "core/craft/engn_kinds.h"
#include "core/math/axes.h"
#include "core/records/records.h"
#include "scenery/ground/terrain_query.h"
#include "weather/atmosphere.h"
#include "weather/puffs.h"

namespace {
constexpr int prop_mode_reverse = 3;

struct smoke {
    int color = 0;
    float size = 0.0f;  // m
    float alpha = 0.0f;
    bool is_contrail = false;
};

// How much of a rotor's wash blows along the exhaust.
float exhaust_prop_rat(int p, int en) {
    const int type = veh[p].engn[en].prop_type;
    if (type == prop_collective) return 0.2f;
    if (type == prop_governed_rotor || veh[p].wing[en].inc_vect[0]) return 0.4f;
    return 1.0f;
}

smoke exhaust_of_kind(int p, int en, float eff_thro) {
    const veh_struct& v = veh[p];
    const flt_engn_struct& e = flt[p].engn[en];
    const float prop_size = v.wing[en].semilen_SEG * exhaust_prop_rat(p, en);
    const float jet_size = sqrtf(fltmax2(v.face_jet, 0.0f) / con.pi);
    const float strength = eff_thro * con.lcl_sig * v.exhaust_rat;
    smoke s;
    s.color = puff_exhaust;
    if (en_is_recip(p, en)) {
        s.size = prop_size * 0.4f;
        s.alpha = strength * 0.04f;
    } else if (en_is_turbo(p, en)) {
        s.size = prop_size * 0.6f;
        s.alpha = strength * 0.06f;
    } else if (v.engn[en].engn_type == engn_jet_lo) {
        s.size = jet_size;
        s.alpha = strength * 0.12f;
    } else if (v.engn[en].engn_type == engn_jet_hi) {
        s.size = jet_size;
        s.alpha = strength * 0.06f;
    } else {
        s.size = 0.025f * signpow(e.thrust, 0.25f);
        s.alpha = eff_thro * v.exhaust_rat * 10.0f;
        s.color = puff_dark;
    }
    return s;
}

smoke exhaust_of_engine(int p, int en) {
    constexpr float kelvin = 273.0f;
    const flt_struct& f = flt[p];
    const float eff_thro = f.engn[en].burning_fuel * (0.5f + 0.5f * f.engn[en].thro_use);
    smoke s = exhaust_of_kind(p, en, eff_thro);
    if (!en_is_roc(p, en)) {
        const float outside = kelvin + find_temp_cel(static_cast<float>(f.dob_y));
        const float contrail_rat = interp(240.0f, 0.0f, 220.0f, 2.0f, outside) * eff_thro;
        if (contrail_rat > s.alpha) {
            s.color = puff_contrail;
            s.alpha = contrail_rat;
            s.size *= 1.0f + contrail_rat;
            s.is_contrail = true;
        }
    }
    if (f.smoking) {
        s.color = puff_dark;
        s.alpha = eff_thro;
    }
    if (f.fail_stat[fail_engine + en] == fail_active) {
        s.color = puff_exhaust;
        s.alpha = 0.5f;
    }
    return s;
}

bool has_exhaust(int p, int en) {
    const int engn = veh[p].engn[en].engn_type, prop = veh[p].engn[en].prop_type;
    if (engn == engn_electric || engn == engn_tip_rocket) return false;
    if (prop == prop_tail_rotor || prop == prop_lift_fan) return false;
    return flt[p].fail_stat[fail_eng_sep + en] != fail_active;
}

// A puff at a point of aircraft axes, thrown aft at a speed along the disc, born lag seconds behind.
void puff_from(int p, int en, const float at[3], const smoke& s, float lag) {
    const flt_struct& f = flt[p];
    float x, y, z, jx, jy, jz, vx, vy, vz;
    veh_to_wrl(at[0], at[1], at[2], &x, &y, &z, p);
    disc_to_veh(0.0f, 0.0f, f.engn[en].DVinc, &jx, &jy, &jz, p, en);
    veh_to_wrl(jx, jy, jz, &vx, &vy, &vz, p);
    puff.spawn_puff(static_cast<float>(f.dob_x) + x - f.vx * lag,
                    static_cast<float>(f.dob_y) + y - f.vy * lag,
                    static_cast<float>(f.dob_z) + z - f.vz * lag, vx, vy, vz, s.size, s.color, s.alpha);
}

void emit_exhaust(int p) {
    constexpr float contrail_lag = 0.2f;
    for (int en = 0; en < veh[p].num_engines; ++en) {
        if (!has_exhaust(p, en)) continue;
        smoke s = exhaust_of_engine(p, en);
        if (!s.color || !(s.size > 0.01f) || !(s.alpha > 0.001f)) continue;
        if (flt[p].engn[en].prop_mode == prop_mode_reverse) s.color += puff_reverse_shift;
        const veh_part_struct& place = veh[p].part[en];
        const float* offset = veh[p].exhaust_os_xyz;
        const float at[3] = {place.part_x + offset[0], place.part_y + offset[1], place.part_z + offset[2]};
        puff_from(p, en, at, s, s.is_contrail ? contrail_lag : 0.0f);
    }
}

bool over_wet_surface(int p) {
    const flt_struct& f = flt[p];
    constexpr int checker_spray = 10;
    const bool wet_runway = p == 0 && env.over_rwy_last && atm.rway_fric_code > 0;
    return wet_runway ||
           terrain_is_wet(static_cast<float>(f.dob_x), static_cast<float>(f.dob_z), checker_spray);
}

// The wash lifts spray where it reaches the water: decided as within two of its radii of the wet surface,
// since no formula weakens it with height and an aircraft at cruise must not trail spray over the sea.
void emit_spray(int p) {
    const flt_struct& f = flt[p];
    if (veh[p].num_thrustpoints <= 0 || !over_wet_surface(p)) return;
    for (int en = 0; en < veh[p].num_thrustpoints; ++en) {
        const float radius = veh[p].wing[en].semilen_SEG * fltlim(f.engn[en].DVinc / 20.0f, 0.0f, 1.0f);
        if (!(radius > 0.1f) || f.y_agl_mtr > 2.0f * radius) continue;
        smoke s;
        s.color = f.engn[en].prop_mode == prop_mode_reverse ? puff_spray_reverse : puff_spray;
        s.size = radius;
        s.alpha = 0.25f;
        puff_from(p, en, f.engn[en].XYZ, s, 0.0f);
    }
}

void emit_jato_and_water(int p) {
    const flt_struct& f = flt[p];
    float x, y, z;
    if (p == 0 && stg.jato_on) {
        veh_to_wrl(0.0f, veh[0].jato_Y, veh[0].jato_Z, &x, &y, &z, 0);
        puff.spawn_puff(static_cast<float>(f.dob_x) + x, static_cast<float>(f.dob_y) + y,
                        static_cast<float>(f.dob_z) + z, 0.0f, 0.0f, 0.0f, 1.0f, puff_exhaust, 0.5f);
    }
    if (veh[p].jett_is_water && f.is_dumping_water && f.m_jettison > 0.0f) {
        const float* at = veh[p].jett_xyz;
        veh_to_wrl(at[0], at[1], at[2], &x, &y, &z, p);
        puff.spawn_puff(static_cast<float>(f.dob_x) + x, static_cast<float>(f.dob_y) + y,
                        static_cast<float>(f.dob_z) + z, f.vx, f.vy, f.vz, 2.0f, puff_spray, 0.5f);
    }
}
}  // namespace

void emit_puffs(int p) {
    emit_exhaust(p);
    emit_spray(p);
    emit_jato_and_water(p);
}
