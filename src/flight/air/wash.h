// The slipstreams of this half step: the discs that add speed to the air behind them. Slot 0.
#pragma once

#include "core/craft/dims.h"

struct wash_struct {
    int en;             // the disc
    float was_inc[3];   // speed the disc adds, aircraft axes, m/s
    float was_vec[3];   // direction the wash goes: air on the aircraft plus was_inc
    float was_len;
    float rad;          // radius of the wash, m
    bool is_rotor;      // lifts; bodies stay out of its wash
};
struct wash_list {
    wash_struct wash[engnDIM];
    int count;
};

// Collects them once a half step.
wash_list find_washes();

// Adds the wash to the flow at a wing element: axilv along the chord, normv across it, m/s.
void add_wash_to_element(const wash_list& washes, int en, const float place[3], float* axilv, float* normv);
// Adds the wash to the air that a body meets: all in or all out.
void add_wash_to_body(const wash_list& washes, int en, float vel[3]);
