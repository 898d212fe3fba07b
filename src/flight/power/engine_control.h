// Engine computers, governors, feathering, beta, reverse and afterburners.
#pragma once

// Engine computers, governors, feathering, beta, reverse and afterburners; once a frame behind the flight
// controls.
void control_engines();

// Every engine and disc as it stands on a cold morning: at rest, without fuel, ignition, igniter or heat.
void cold_engines();
enum prop_mode_kind : int { mode_feather = 0, mode_normal = 1, mode_beta = 2, mode_reverse = 3 };
