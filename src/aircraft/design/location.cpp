// Places on blades and gear legs.
#include "aircraft/design/location.h"

#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/records/mnw.h"

void no_such_part() {
    MACIBM_fatal("get_el_base_loc for a part we do not have!");
}

float blade_base_loc(int p, int en, float el, char axis) {
    if (axis == 'Y') return 0.0f;
    const veh_wing_struct& wing = veh[p].wing[en];
    const veh_engn_struct& engn = veh[p].engn[en];
    const int last = intmin2(intcut(el), wing.els - 1);
    float along = 0.0f;
    for (int s = 0; s <= last; ++s) {
        const float covered = wing.element_len * fltlim(el - s, 0.0f, 1.0f);
        along += covered * (axis == 'X' ? cos_deg(engn.bladesweep[s]) : sin_deg(engn.bladesweep[s]));
    }
    return along;
}

float ret_gear_x_nodef(int p, int g) {
    const veh_gear_struct& gear = veh[p].gear[g];
    return gear.gear_x + gear.leg_len * sin_deg(gear.latN);
}

float ret_gear_y_nodef(int p, int g) {
    const veh_gear_struct& gear = veh[p].gear[g];
    return gear.gear_y - gear.leg_len * cos_deg(gear.latN) * cos_deg(gear.lonN);
}

float ret_gear_z_nodef(int p, int g) {
    const veh_gear_struct& gear = veh[p].gear[g];
    return gear.gear_z + gear.leg_len * cos_deg(gear.latN) * sin_deg(gear.lonN);
}
