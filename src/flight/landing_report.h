// What is worth knowing of a landing, from touchdown to the end of the roll.
// Role: follows the user's aircraft behind each frame's flight; shown in the picture, written with a flight's
// data.
#pragma once
#include <string>

struct landing_report_struct {
    int number;             // landings of this flight; a report belongs to the last
    int is_open;            // 0 or 1: it still rolls
    int bounces;            // short hops in between
    float sink_fpm;         // ft/min downwards in the last frame before the touch
    float load;             // largest load factor since
    char airport[5];        // empty away from all runways: then no distances either
    char runway[4];         // the end that was landed on
    float from_threshold;   // m behind it
    float from_centreline;  // m to the right of it
    float roll_out;         // m from the touch to the end
    float closed_time;      // totl_time at the end
};
const landing_report_struct& landing_report();

// After each frame of the user's flight. A report opens at the first touch after two seconds in the air, and
// closes below 5 m/s or when the aircraft has been in the air again for as long.
void landing_report_step();
// One line in words, of a closed report.
std::string landing_report_text();
void reset_landing_report();
