// The clocks, in double behind the floats that mnw publishes.
// Role: stepped by the frame only.
#pragma once
#include "core/records/double_float.h"

struct clocks_struct {
    double_float real;  // wall clock since the first frame; mnw.real_time
    double_float totl;  // simulated seconds; mnw.totl_time
    double_float miss;  // since the flight start; mnw.miss_time
    double_float hobs;  // hour meter; mnw.hobs_time
    double_float zulu;  // seconds of the day; mnw.zulu_time
    double_float timr;  // panel timer; mnw.timr_time
};
extern clocks_struct clocks;
void reset_clocks();
