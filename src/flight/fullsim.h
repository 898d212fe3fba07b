// The user's aircraft, one frame: two half steps and what follows from them.
#pragma once

// The physics of slot 0: two half steps, what follows from them, and the ground-proximity test. Fatal
// for any other slot.
void update_with_fullsim2(int p);

// Equivalent airspeed, knots, at the local air.
float kias_with_mach(float mach);

// Velocity and air in aircraft axes, alpha, beta, AV_msc of slot p from its state and cached attitude; the
// air is that of slot 0's wind.
void cache_air(int p);

// Dynamic pressure, Mach and equivalent airspeed from AV_msc.
void cache_speeds(int p);
