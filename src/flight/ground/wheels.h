// The legs: brakes, blown tyres, and their contact.
#pragma once

// Friction coefficients of the present surface.
struct surface_friction_struct {
    float rco, bco, mco;  // rolling; braking; of metal
};

// All legs of the user's aircraft on dry land.
void touch_wheels(const surface_friction_struct& friction);

// Of a leg's brakes at the present speed of its wheel, N m: against its turn, fading near a stop.
float brake_torque(int en);
