// The aerodynamic sections of one half step of slot 0, in the order in which set_vel_flight runs them.
// Role: each adds to the aero sums. Downwash and spanwise load are for the next half step: a lag of one
// step is part of the model.
#pragma once

void aero_ground_effect();    // factors per part
void aero_elements();         // wings, stabilisers, fins, pylons
void aero_downwash();         // what each element will meet
void aero_spanwise_load();    // Q_centroid_loc of every wing and blade

// Height of a part above the ground for ground effect, m; 0 if it has none.
float ret_ge_hgt_mtrs(int en);
