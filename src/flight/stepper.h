// What moves the aircraft slots, one frame each.
#pragma once

// Pilot input of slot 0, then the sum of all controls. Fatal for any other slot.
void update_with_fullsim1(int p);
// The physics of slot 0: two half steps, what follows from them, and the ground-proximity test. Fatal
// for any other slot.
void update_with_fullsim2(int p);
// Dead reckoning between network messages.
void update_with_net(int p);
// Slot 0 from the recording; moves totl_time by the transport mode.
void update_with_replay();

// One lever for throttle and propeller: the ratios of both from the handle, 0 to 1.
void auto_set_thro_prop(float in_rat, float* thro_rat, float* prop_rat);
// Equivalent airspeed, knots, at the local air.
float kias_with_mach(float mach);

// Velocity and air in aircraft axes, alpha, beta, AV_msc of slot p from its state and cached attitude; the
// air is that of slot 0's wind.
void cache_air(int p);
// Dynamic pressure, Mach and equivalent airspeed from AV_msc.
void cache_speeds(int p);
