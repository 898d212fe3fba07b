// Jets and rockets: what pushes at once.
#pragma once

// Thrust of a jet, less the power tapped for lift fans and pre-rotation, added to the propulsive sums.
void do_a_jet(int en);

// The same for a rocket of the aircraft; a rotor's tip rockets act in do_a_prop.
void do_a_rocket(int en);
float get_rocket_thrust(int en);  // N, with throttle and burning
