// Tests on the kind of engine en of aircraft p.
#pragma once
#include "core/craft/veh.h"

inline int en_is_recip(int p, int en) {
    const int t = veh[p].engn[en].engn_type;
    return t == engn_recip_carb || t == engn_recip_inj;
}
inline int en_is_turbo(int p, int en) {
    const int t = veh[p].engn[en].engn_type;
    return t == engn_turb_free || t == engn_turb_fixed;
}
inline int en_is_turbo_free(int p, int en) { return veh[p].engn[en].engn_type == engn_turb_free; }
inline int en_is_turbo_fixed(int p, int en) { return veh[p].engn[en].engn_type == engn_turb_fixed; }
inline int en_is_elec(int p, int en) { return veh[p].engn[en].engn_type == engn_electric; }
// Drives a propeller through a shaft.
inline int en_is_prop(int p, int en) { return en_is_recip(p, en) || en_is_turbo(p, en) || en_is_elec(p, en); }
inline int en_is_jet(int p, int en) {
    const int t = veh[p].engn[en].engn_type;
    return t == engn_jet_lo || t == engn_jet_hi;
}
// Tip rockets count both as rocket and as tip.
inline int en_is_roc(int p, int en) {
    const int t = veh[p].engn[en].engn_type;
    return t == engn_rocket || t == engn_tip_rocket;
}
inline int en_is_tip(int p, int en) { return veh[p].engn[en].engn_type == engn_tip_rocket; }
inline int is_lift_fan(int p, int en) { return veh[p].engn[en].prop_type == prop_lift_fan; }
// Rotor of a helicopter or gyrocopter, as against propeller, tail rotor and fan.
inline int is_rotor(int p, int en) {
    const int t = veh[p].engn[en].prop_type;
    return t == prop_collective || t == prop_governed_rotor;
}
// One that is spun up before take-off.
inline int is_gyr_rotor(int p, int en) { return veh[p].has_pre_rotate && is_rotor(p, en); }
