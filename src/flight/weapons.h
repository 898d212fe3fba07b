// Weapons on board and in flight.
#pragma once

void attach_weapon(int p, int en);
void force_weapons();         // once a half step
void integ_weapons(int p);    // after both half steps
int wpn_is_on_board(int p, int en);
void clear_flying_objects();
