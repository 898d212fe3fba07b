// Levers of throttle, propeller, mixture and pitch.
#pragma once

// Lever setters with their limits; a value that is not finite is refused.
void set_thro(int en, float val);  // throttle ratio
void set_prop(int en, float val);  // propeller speed, rad/s
void set_mixt(int en, float val);  // 0 to 1
void set_ptch(int en, float val);  // blade pitch, degrees; governed blades turn at 45 deg/s at most

// The single handle of a turboprop with beta and reverse: flt_dat from 0 (full reverse) to 1 (full power),
// taken when dragging. Returns where to draw the handle.
float set_thro_prop(float flt_dat, int en, int dragging);

// Engine computer present, and present and working. e 0 to 7; any other is fatal.
int eng_has_fadec(int p, int e);
int fadec_is_running(int p, int e);
