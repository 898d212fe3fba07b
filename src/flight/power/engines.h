// Engines, fuel and throttles of the user's aircraft.
// Role: turns throttle, mixture, air density and speed into torque or thrust, fuel flow and the numbers on
// the gauges, by small curves of each kind of engine. Torque goes to the shafts (shafts.h), which own the
// speeds tacrad_ENGN and tacrad_PROP; jets and rockets put their thrust into the propulsive sums.
#pragma once
#include "aircraft/design/check.h"
#include "core/craft/engn_kinds.h"

// One engine for one force pass; burn_fuel on the first pass of a frame, so that fuel is taken once.
void init_engine_specs(int en, int burn_fuel);
// Pressure ratio, of sea level's, that a turbocharger adds to the thin air: up to ramair_boost (ratio) and
// max_boost_pas (Pa) together.
float turbo_now(float ramair_boost, float max_boost_pas);
// Fuel flow, kg/s, at a power (W) of a propeller engine or a thrust (N) of a jet or rocket.
float fuelburn_kgpersec(float pow_thr, int en);
