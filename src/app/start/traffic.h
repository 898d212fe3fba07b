// Background aircraft: which one flies in a slot, and where.
#pragma once

// Picks and loads an aircraft for slot p; one that has shown a fault is not picked again. Non-zero on
// success, else the slot is empty and there is nothing to place.
int get_random_plane(int p);

// A place for the background aircraft of slot p.
void init_flt_p_other_ai(int p);

// By the kind of slot p's first engine: 0 pistons, tip rockets, none and unknown ones, 1 turboprops, 2 jets,
// rockets and electric motors.
int cruise_class(int p);
