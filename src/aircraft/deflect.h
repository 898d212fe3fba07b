// From the pilot's normalised controls to what each surface and mechanism is doing now.
// Role: once per frame for every aircraft, with the whole step, before the forces; also at flight start
// and where an aircraft is shown outside flight. Everything with a travel time moves here by
// mnw.prd_FM. Keeps no state of its own: all is in veh[p] and flt[p].
#pragma once

// p 0 to 9. The deflections of all-moving surfaces reach the incidence one pass late.
void update_def_angles(int p);

// The flap handle: dir -1 or 1 moves the request one detent; 0 runs one step of the mechanism.
void update_flap_slat_rqst_with_hand(int p, int dir);
