// The sections of the half step behind the forces, in their order: masses, loads, gravity, rates.
#pragma once

// The sections that stand in mass_motion.cpp, in their order.
void build_masses();              // m_total, inertias, and the moments of masses off centre
void load_factors();              // g_nrml, g_axil, g_side and world acceleration
void add_gravity_and_buoyancy();
void add_weight_shift();          // moments of shifted weight and of the user's centre of gravity
void angular_acceleration();      // Pdot, Qdot, Rdot with the stability aid and limits
void carried_flight_motion();     // on the carrier: its velocity, no rates
void tow_turbulence();
void arrest_yaw_at_rest();
void integrate_rates();           // semi-implicit Euler
void damp_crash_and_chute();

// Adds a mass off centre at a point of aircraft axes, m and kg, with the moments that last step's load
// factors make on it. comment: name in the trace.
void inc_mass_mi(float x, float y, float z, float m, const char* comment);

void reset_motion();
