// A left-hand circuit of the trainer, from the brakes to the brakes on one runway.
// Role: flies by what a pilot sees and reads, one call before each frame.
#pragma once

struct phase_struct {
    const char* name;
    void (*fly)(float time);  // s in the phase
    bool (*is_over)(float time);
    float most;     // s after which the flight has gone wrong
    float picture;  // s into the phase, below 0: none
    int view;       // key pressed when it begins, 0 none
};
constexpr int circuit_phases = 9;
extern const phase_struct circuit[circuit_phases];
