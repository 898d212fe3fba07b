// Propellers, rotors, tail rotors and lift fans of the user's aircraft: shafts, blade elements and inflow.
// Role: engine torque in, disc speeds, forces, moments and slipstream out.
#pragma once

// Blade elements of one disc at four positions, with momentum inflow; forces and moments go into the sums
// of slot 0.
void do_a_prop(int en);

// Momentum theory with a lag of 1 s: the new far-field speed, m/s, that a disc or ring of s m2 gives to the
// air flowing through it at vgeo m/s (aft) while it makes t newtons; dv_total_now is the speed so far.
float get_dv_total(float dv_total_now, float t, float s, float vgeo);
