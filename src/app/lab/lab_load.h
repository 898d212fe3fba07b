// What the user's aircraft carries, and the state of its engines, set for a measurement.
// Role: between the lab's start and its measurements; headless runs only.
#pragma once

struct lab_load {
    float mass = -1.0f;      // kg in all, by the payload; negative: as loaded
    float fuel = -1.0f;      // of full tanks, 0 to 1; negative: as loaded
    float cg_aft = 0.0f;     // m behind the centre of gravity of the file
    int failed_engine = -1;  // index of an engine that does not run; negative: all run
};
// False when the empty aircraft and its fuel are already heavier than the mass.
bool lab_set_load(const lab_load& load);

// Piston engines leaned for power at the density they breathe now, as a pilot does.
void lab_lean_engines();
// All mixture levers, 0 to 1.
void lab_set_mixture(float ratio);

// Rest of the standing aircraft on its legs: each bears scon times the depth of its tyre's lowest point below
// the ground, straight up, as the contact forces have it.
struct lab_rest {
    bool stands;        // false: no legs, or it falls over its nose or tail
    float height, the;  // centre of gravity above the ground, m; pitch, degrees
};
lab_rest lab_rest_on_gear();
