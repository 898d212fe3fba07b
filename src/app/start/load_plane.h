// Loading of an aircraft with all it brings, and the start of a flight.
#pragma once

// Reads veh[p].path into slot p and derives its flight model; a missing aircraft is replaced by the
// default. Non-zero on success; a faulty aircraft leaves a slot above 0 empty.
int load_plane(int p);

// Picks and loads an aircraft for slot p; one that has shown a fault is not picked again. Non-zero on
// success, else the slot is empty and there is nothing to place.
int get_random_plane(int p);
