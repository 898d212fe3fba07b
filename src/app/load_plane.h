// Loading of an aircraft with all it brings, and the start of a flight.
#pragma once

// Reads veh[p].path into slot p and derives its flight model; a missing aircraft is replaced by the
// default. Non-zero on success; a faulty aircraft leaves a slot above 0 empty.
int load_plane(int p);

// Any slot above 0, in level flight: angles in degrees, world position in m, speed in m/s.
void init_flt_p(int p, float the, float psi, float phi, float x, float y, float z, float v_msc, int mode);
// A place for a background aircraft.
void init_flt_p_other_ai(int p);
// Picks and loads an aircraft for slot p; one that has shown a fault is not picked again. Non-zero on
// success, else the slot is empty and there is nothing to place.
int get_random_plane(int p);
