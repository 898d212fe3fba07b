// The spine: start-up, the frame and its schedule, shutdown.
#pragma once
#include <string>

#include "core/program/logs.h"

// One frame. Also entered again from inside an alert's loop.
void MACIBM_event_proc();

// Section profile in "Error.out" while mnw.track_cpu is set; is_last adds the frame's total.
void profile_chart(const char* loc, int is_last);

void reset_frame();  // its timers, counters and marks
