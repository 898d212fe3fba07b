// A flight start on its way: what is asked for, and where it has come to.
#pragma once

#include "core/program/upward.h"

struct start_state {
    int code = start_airport;  // start_code
    int place = place_runway;  // start_place, for start_airport
    // the aircraft, beside its position, which stands in flt[0]: degrees, m/s
    float psi = 0.0f, the = 0.0f, phi = 0.0f;
    float V_msc = 0.0f, vy = 0.0f;
    bool on_ground = false;
    bool running = false;  // engines and electrics
};

inline bool is_final(const start_state& s) {
    return s.code == start_airport && (s.place == place_final_3 || s.place == place_final_10);
}
