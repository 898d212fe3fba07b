// Pilot input of the user's aircraft, once a frame.
#pragma once

// Pilot input of slot 0, then the sum of all controls. Fatal for any other slot.
void update_with_fullsim1(int p);

// One lever for throttle and propeller: the ratios of both from the handle, 0 to 1.
void auto_set_thro_prop(float in_rat, float* thro_rat, float* prop_rat);
void reset_pilot_input();  // forgets what the AI at the controls meant to do
