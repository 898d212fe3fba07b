// Weapons on board and in flight.
#pragma once
#include <string>

// Reads (IO_type 0) or writes (1) a weapon file; 1 on success.
int IO_wpn(int IO_type, int p, int en, const std::string& file, const std::string& path, int use_path);
void attach_weapon(int p, int en);
void force_weapons();         // once a half step
void integ_weapons(int p);    // after both half steps
int wpn_is_on_board(int p, int en);
void clear_flying_objects();
