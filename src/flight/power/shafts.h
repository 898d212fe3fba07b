// Shafts of the user's aircraft: engine torque in, disc speeds out.
#pragma once

// Every shaft and disc of the user's aircraft for one half step. A step uses the drag torque that the step
// before found.
void do_all_props();

// Torque, N m, that engine en passes to the shaft, which turns at rsc_prop_side (rad/s at the engine), after
// the transmission's loss; steps the engine's speed.
float get_clutch_TRQ(int en, float rsc_prop_side);

// Torque, N m at the engine, that spins up a gyrocopter's rotor.
float get_TRQ_to_gyr_rotor(int en, float system_omega);
