// A run without window: the real frame with a virtual clock.
#pragma once
#include <string>

#include "core/program/logs.h"

constexpr double headless_pass = 1.0 / 64.0;  // s of virtual clock a pass

// Starts the system on quiet seams with a fixed seed. acf_path: an aircraft file in the platform's
// form, or empty for the default. install_folder: where airfoils and resources lie, with a closing "/".
// The flight begins as start_in_the_air begins one, over survey land (scenery/region/survey_land.h): no
// scenery is read, the ground is dry and level. Private clocks and statics start over, so that equal runs
// repeat bit for bit.
void headless_start(const std::string& install_folder, const std::string& acf_file,
                    log_target logs = log_to_files);

// Starts the flight of slot 0 anew at a custom place: 3,000 m up, northbound, a tenth over the speed at which
// it would land.
void start_in_the_air();
// One pass of MACIBM_event_proc, the virtual clock a step further.
void headless_frame();

// A hash of the flight state of slot 0: position, attitude, velocity, rates, flow at every element.
unsigned long long flight_state_hash();
