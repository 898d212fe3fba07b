// Routines of this folder that do not exist yet: each call stands in its place in the frame and gets its neutral
// answer here. The file shrinks as they are built.
#include "flight/ai_pilot.h"
#include "flight/recording.h"
#include "flight/systems.h"
#include "flight/weapons/weapons.h"

// No wheels, systems, other pilots, recording, weapons.
void failure_clocks() {}
void system_ice() {}
void system_transponder() {}
void system_fuel_flow() {}
void system_hydraulics() {}
void system_vacuum() {}
void system_cabin_pressure() {}
void system_annunciators() {}
void system_tow_and_jett_lines() {}
void system_electrical_load() {}
void system_tow_or_winch_line() {}
void system_slung_load() {}
void system_water_bomber() {}
void system_arresting_wire() {}
void system_catapult() {}
void manage_gyro(int) {}
void update_with_AI(int) {}
void zero_path() {}
void snap_save(snap_struct*, int) {}
void snap_recall(snap_struct, snap_struct, float) {}
int load_situation(const std::string&, int) { return 0; }
void attach_weapon(int, int) {}
void force_weapons() {}
void integ_weapons(int) {}
void clear_flying_objects() {}
