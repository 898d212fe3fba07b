// The spine: start-up, the frame and its schedule, shutdown.
#pragma once
#include <string>

#include "core/logs.h"

// Everything before the first frame, from the install folder (its path with a closing separator).
void init_sim(const std::string& install_folder);
// The records, tables, paths and logs that everything else needs; first step of init_sim, and all that
// tools need.
void init_records(const std::string& install_folder, log_target logs = log_to_files);
// Default settings, before the first flight.
void init_gen();

// One frame. Also entered again from inside an alert's loop.
void MACIBM_event_proc();
// The part of the frame that simulates and draws the content of the screen.
void APP_update();
// The part of the simulation that runs in every state, also paused and behind settings windows.
void WORLD_math_all_cases();
// The world's frame, if flying and not in replay.
void WORLD_math_in_flight();
// One slot's frame.
void PLANE_math_in_flight(int p);
void crash_test();
// Warnings of slot 0.
void warn_the_pilot();
void reset_warnings();  // forgets what was heard
// Smoke, spray and JATO of slot p.
void emit_puffs(int p);
// One step of the network heartbeat.
void network_heartbeat();

void MACIBM_finishup(int is_normal_exit);

// Section profile in "Error.out" while mnw.track_cpu is set; is_last adds the frame's total.
void profile_chart(const char* loc, int is_last);

// Puts the private clocks and counters of the frame back to start, so that headless runs repeat.
void reset_frame_statics();

// Whether flight data is recorded and sent now.
int collect_data();

