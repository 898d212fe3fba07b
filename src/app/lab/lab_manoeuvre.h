// Stalls and spins flown as a pilot's handbook tells it, and what they were.
// Role: for the flight lab and the tests of flight; needs headless_start and still air. No helicopters.
#pragma once
#include "app/lab/lab.h"

// Airspeeds equivalent, in knots; heights in m.
struct lab_stall_sum {
    bool flown;         // false: no steady flight to begin with
    float speed;        // least of the speed over the root of the load: the stall at 1 g
    float warned;       // speed when the warning began; 0 without one
    float alpha, ptch;  // angle of attack there, degrees; elevator then, 1 is full back
    float bank;         // largest on the way, degrees: a wing that drops
    float height_lost;  // from there to level flight
};
// From 1.3 of the stall speed of lab_performance, engines idle, one knot a second slower with the wings held
// level; then the stick eased forward, full power. Flaps as they stand.
lab_stall_sum lab_fly_stall(const lab_polar& polar, float altitude);

struct lab_spin_sum {
    bool flown;
    float load, speed;               // means over the last ten seconds with controls held
    float least_load, largest_load;  // of the means over a second
    float turns;                     // in those ten seconds, towards the rudder
    float seconds_to_stop;           // from opposite rudder to an end of the rotation; 99 when it goes on
    float height_lost;               // from opposite rudder to level flight
    float fastest, heaviest;         // on the way out
};
// Engines idle, the stick eased back past the stall, all pedal to one side (1 right, -1 left) as it comes,
// held for 25 s in all; then opposite rudder.
lab_spin_sum lab_fly_spin(float side, float altitude);
