// Where things on the aircraft are: places along a wing or blade, and wheels of undeflected legs.
// Role: the wing branch runs for every element in every half step and is inline.
#pragma once
#include "aircraft/design/exists.h"

// Place along a blade in the frame of its disc, metres from the hub: x along the swept blade, z aft.
float blade_base_loc(int p, int en, float el, char axis);
[[gnu::cold, gnu::noinline]] void no_such_part();

// Quarter chord of part en at position el, which counts elements from the root in fractions (el + 0.5
// is the middle of element el). axis 'X', 'Y' or 'Z'. Wings: aircraft axes, metres from the centre of
// gravity, at the sweep and dihedral of this moment. Discs (0 to 7): see blade_base_loc.
// A part that does not exist is fatal.
inline float get_el_base_loc(int p, int en, float el, const char& axis) {
    if (!has_this_wing(p, en)) [[unlikely]] {
        no_such_part();
        return 0.0f;
    }
    if (en <= part_thru_last) return blade_base_loc(p, en, el, axis);
    const veh_wing_struct& wing = veh[p].wing[en];
    const veh_part_struct& part = veh[p].part[en];
    const flt_wing_struct& now = flt[p].wing[en];
    const float arm = wing.element_len * el;
    if (axis == 'X') return part.part_x + arm * now.cos_act_sweep * now.cos_act_dihed * wing.lat_sign;
    if (axis == 'Y') return part.part_y + arm * now.cos_act_sweep * now.sin_act_dihed;
    return part.part_z + arm * now.sin_act_sweep;
}

// Wheel of gear g with the strut unloaded, at the leg angles of this moment (latN outwards to the
// right, lonN aft), in the unit and frame of the record.
float ret_gear_x_nodef(int p, int g);
float ret_gear_y_nodef(int p, int g);
float ret_gear_z_nodef(int p, int g);
