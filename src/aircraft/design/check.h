// Refuses designs that cannot fly.
// Role: runs behind every successful read, in the units of the file.
#pragma once

// Tests the design in slot p and reports the first fault: 1 sound, 0 faulty. For the user's own
// aircraft a fault is fatal; a stranger's file in another slot is a warning, once per file, and is
// remembered (acf_was_faulty).
int ACF_check(int p, int is_batch);

// Tells of derived or given values that the flight model divides by and that are zero: it goes on with
// the least that works, so a design flies, but not as drawn. Units of the loaded record.
void ACF_warn_of_zeros(int p);

// The least of them: for a value of the file, and for a propeller's inertia (kg m2) and gear.
constexpr float divisor_min = 0.01f;
constexpr float disc_divisor_min = 1e-3f;
