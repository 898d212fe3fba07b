// What surface contact keeps between half steps.
#pragma once
#include "core/craft/dims.h"

struct contact_state_struct {
    // by leg
    float gain[gearDIM];               // of slide speed to friction; small while the tyre flutters
    float o_slide_x_vel_tir[gearDIM];  // slide speeds of the last half step, m/s
    float o_slide_z_vel_tir[gearDIM];
    float wheel_rotation[gearDIM];  // of a blown tyre, rad
    int down[gearDIM];              // 0 or 1: it bore in this half step
    int braking_wheels;             // legs that do not steer
    float braking_red;              // taken off the brakes by the automatic ones
    double anchor_x, anchor_z;      // world frame, m
    float time_last_play;           // totl_time of the last splash
};
extern contact_state_struct contact_state;
