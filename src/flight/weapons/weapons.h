// Weapons on board and in flight.
#pragma once
#include "core/craft/veh.h"

inline int wpn_can_exist(int p, int en) { return en >= 0 && en < wattDIM && veh[p].wpn[en].type != 0; }
// On its station: a store that never leaves it, or one not yet released.
inline int wpn_is_on_board(int p, int en) {
    return wpn_can_exist(p, en) && (!veh[p].wpn[en].free_flyer || veh[p].wpn[en].action_mode == 0);
}

void attach_weapon(int p, int en);
void force_weapons();         // once a half step
void integ_weapons(int p);    // after both half steps
void clear_flying_objects();
