// Engines, fuel and throttles of the user's aircraft.
// Role: turns throttle, mixture, air density and speed into torque or thrust, fuel flow and the numbers on
// the gauges, by small curves of each kind of engine. Torque goes to the shafts (propel.h), which own the
// speeds tacrad_ENGN and tacrad_PROP; jets and rockets put their thrust into the propulsive sums.
#pragma once
#include "aircraft/check.h"
#include "core/engn_kinds.h"

// One engine for one force pass; burn_fuel on the first pass of a frame, so that fuel is taken once.
void init_engine_specs(int en, int burn_fuel);
// Pressure ratio, of sea level's, that a turbocharger adds to the thin air: up to ramair_boost (ratio) and
// max_boost_pas (Pa) together.
float turbo_now(float ramair_boost, float max_boost_pas);
// Fuel flow, kg/s, at a power (W) of a propeller engine or a thrust (N) of a jet or rocket.
float fuelburn_kgpersec(float pow_thr, int en);

// Thrust of a jet, less the power tapped for lift fans and pre-rotation, added to the propulsive sums.
void do_a_jet(int en);
// The same for a rocket of the aircraft; a rotor's tip rockets act in do_a_prop.
void do_a_rocket(int en);
float get_rocket_thrust(int en);  // N, with throttle and burning

// Lever setters with their limits; a value that is not finite is refused.
void set_thro(int en, float val);  // throttle ratio
void set_prop(int en, float val);  // propeller speed, rad/s
void set_mixt(int en, float val);  // 0 to 1
void set_ptch(int en, float val);  // blade pitch, degrees; governed blades turn at 45 deg/s at most
// The single handle of a turboprop with beta and reverse: flt_dat from 0 (full reverse) to 1 (full power),
// taken when dragging. Returns where to draw the handle.
float set_thro_prop(float flt_dat, int en, int dragging);

// Engine computer present, and present and working. e 0 to 7; any other is fatal.
int eng_has_fadec(int p, int e);
int fadec_is_running(int p, int e);

// Engine computers, governors, feathering, beta, reverse and afterburners; once a frame behind the flight
// controls.
void control_engines();

// Every engine and disc as it stands on a cold morning: at rest, without fuel, ignition, igniter or heat.
void cold_engines();

enum prop_mode_kind : int { mode_feather = 0, mode_normal = 1, mode_beta = 2, mode_reverse = 3 };
