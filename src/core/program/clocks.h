// The clocks, in double inside: a float clock stands still at high frame rates (at 57600 s a step of
// 0.001 s adds nothing). Each clock publishes a float of mnw.
// Role: stepped by the frame only. Whoever writes a published float is followed: a step first takes
// over a float that no longer matches.
#pragma once

struct clock_struct {
    double now = 0.0;   // s
    float seen = 0.0f;  // what was published last

    // Takes over a float written from outside, advances by dt, wraps at span (0: never), publishes.
    void step(float& published, double dt, double span);
    // Sets both.
    void set(float& published, double value);
};

struct clocks_struct {
    clock_struct real;  // wall clock since the first frame; mnw.real_time
    clock_struct totl;  // simulated seconds; mnw.totl_time
    clock_struct miss;  // since the flight start; mnw.miss_time
    clock_struct hobs;  // hour meter; mnw.hobs_time
    clock_struct zulu;  // seconds of the day; mnw.zulu_time
    clock_struct timr;  // panel timer; mnw.timr_time
};
extern clocks_struct clocks;
