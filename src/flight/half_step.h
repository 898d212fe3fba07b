// One half step of the user's aircraft: forces, then rates and velocity.
#pragma once

// Runs all sections of the step for slot 0; iter 0 or 1 within the frame, passed on to the engines.
// mnw.prd_FM is the half step.
void set_vel_flight(int iter);

// The forces of the air alone on a held aircraft: nothing is integrated, no mass weighs in. Downwash and
// spanwise load settle over a few calls.
void tunnel_step();
