// The start of a flight: of the user, and of the other slots.
#pragma once

// Any slot above 0, in level flight: angles in degrees, world position in m, speed in m/s.
void init_flt_p(int p, float the, float psi, float phi, float x, float y, float z, float v_msc, int mode);

// A place for a background aircraft.
void init_flt_p_other_ai(int p);
