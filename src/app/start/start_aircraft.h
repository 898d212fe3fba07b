// The aircraft of the exercises: the shuttle for the user, and a second one in slot 1.
#pragma once

// Loads what a start_code calls for. With other users about, slot 1 is theirs. A file that is not there: the
// default aircraft flies in its place, and that is told once.
void load_aircraft_of(int code);

// Puts the aircraft of slot 1 into the air, over the place where the user is now.
void place_leader(int code);
// And the towplane on the ground, ahead of the user, who heads for psi, degrees.
void place_towplane(float psi);
