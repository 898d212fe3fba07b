// Engines, fuel and throttles of the user's aircraft.
#pragma once

// One engine for one force pass; burn_fuel on the first pass of a frame, so that fuel is taken once.
void init_engine_specs(int en, int burn_fuel);
// Thrust of a jet, added to the propulsive sums.
void do_a_jet(int en);
void do_a_rocket(int en);  // the same for a rocket
float get_rocket_thrust(int en);  // N

// Lever setters with their limits.
void set_thro(int en, float val);
void set_prop(int en, float val);
void set_mixt(int en, float val);
void set_ptch(int en, float val);
int eng_has_fadec(int p, int en);
int fadec_is_running(int en);
