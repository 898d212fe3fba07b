// Systems and failures of the user's aircraft.
#pragma once

// Once a frame.
void failure_clocks();           // random and timed failures
void system_ice();               // at puff1
void system_transponder();
void system_fuel_flow();         // dumping and transfer
void system_hydraulics();
void system_vacuum();
void system_cabin_pressure();
void system_annunciators();
void system_tow_and_jett_lines();  // lines for drawing and for the next step

// Once a half step.
void system_electrical_load();
void system_tow_or_winch_line();
void system_slung_load();
void system_water_bomber();
void system_arresting_wire();
void system_catapult();

// One gyro: 0 vacuum, 1 electric.
void manage_gyro(int gyro_sys);
