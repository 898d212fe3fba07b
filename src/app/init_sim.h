// Start-up: everything before the first frame, and the end of the program.
#pragma once
#include <string>

#include "core/program/logs.h"

// Everything before the first frame, from the install folder (its path with a closing separator). A tool's own
// settings are made behind the defaults, before anything is loaded.
void init_sim(const std::string& install_folder, void (*own_settings)() = nullptr);

// The records, tables, paths and logs that everything else needs; first step of init_sim, and all that
// tools need.
void init_records(const std::string& install_folder, log_target logs = log_to_files);

// Default settings, before the first flight.
void init_gen();
void MACIBM_finishup(int is_normal_exit);
