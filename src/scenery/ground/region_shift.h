// The world turned into a new local frame: what has a place, a velocity or an attitude in it.
// Role: job of load_region behind a step of the corner by one degree (shift_code). Touches records alone, no
// tile and no list.
#pragma once

// All that moves, about the planet's centre, from the frame before the step to the present one. After a full
// reload only the ships leave, for nothing else has a relation to the old frame; and the ground's pattern
// starts anew. Gives 1.
int shift_region(int typeshift);

// What flies and the eye, from the frame with one reference (degrees) to another.
void move_flight_between(double old_lat, double old_lon, double new_lat, double new_lon);

// A place so far off is none: things that wait to be put somewhere.
bool is_nowhere(double x);
