// Refuses designs that cannot fly.
// Role: runs behind every successful read, in the units of the file.
#pragma once
#include "core/craft/veh.h"

// Tests the design in slot p and reports the first fault: 1 sound, 0 faulty. For the user's own
// aircraft a fault is fatal; a stranger's file in another slot is a warning, once per file, and is
// remembered (acf_was_faulty).
int ACF_check(int p, int is_batch);

// Tells of derived or given values that the flight model divides by and that are zero: it goes on with
// the least that works, so a design flies, but not as drawn. Units of the loaded record.
void ACF_warn_of_zeros(int p);

// The least of them: for a value of the file, and for a propeller's inertia (kg m2).
constexpr float divisor_min = 0.01f;
constexpr float disc_divisor_min = 1e-3f;

// Engine speed over propeller speed; a file that leaves it at zero has no gearing.
inline float prop_gear_of(const veh_engn_struct& engn) {
    return engn.prop_gear_rat < divisor_min ? 1.0f : engn.prop_gear_rat;
}

// Multiplier of an engine's inertia. In place of zero stands the least that steps of 1/64 s can follow: the
// clutch is a spring of ten times the greatest torque over the redline speed, the inertia 0.4 of that
// quotient, and half the spring's rate times the step is 0.2 of it.
inline float inertia_rat_of(const veh_struct& v) {
    constexpr float least_followed = 0.2f;
    return v.inertia_rat_prop < divisor_min ? least_followed : v.inertia_rat_prop;
}
