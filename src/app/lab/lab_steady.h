// Steady flights found, and the controls and engines of the user's aircraft set for them.
#pragma once
#include <string>

#include "app/lab/lab.h"

// Sets the yoke and pedals so that the commands FC_ptch, FC_roll, FC_hdng come out as given, -1 to 1.
void lab_command(float ptch, float roll, float hdng);

// The one power lever, 0 to 1: collective of a helicopter, throttle of all others.
void lab_set_power(float ratio);

// The aircraft held in its present place, motion and attitude for a time in seconds, as on a stand: all
// else runs as in flight.
void lab_hold(float seconds, float dt = 1.0f / 64.0f);

// The hand of one who starts the engines, once a frame until all run: mixture, ignition, igniters, battery,
// and the starters until idle is reached. True once every engine burns and turns at idle or above.
bool lab_start_engines();

// A steady flight to be found, level or climbing, straight or turning, or a hover.
struct lab_steady_order {
    float speed = 50.0f;      // true airspeed, m/s; below 8 the nose keeps to the track in place of the air
    float altitude = 1000.0f; // m above the sphere
    float track = 0.0f;       // true course of the motion over the ground, degrees
    float gamma = 0.0f;       // flight-path angle, degrees; the first guess when the power is given
    float turn_rate = 0.0f;   // degrees per second, right
    float power = -1.0f;      // power lever, 0 to 1; negative: to be found
    bool by_trims = false;    // yoke and pedals rest, the three trims hold the controls
    bool lean = false;        // piston engines leaned for power
};
struct lab_steady {
    bool found;
    lab_flight at;            // with gamma and attitude found; psi is the nose, counted from the track
    float the;                // degrees
    float ptch, roll, hdng;   // commands FC_*, or the trims
    bool by_trims;
    float power, turn_rate;
    bool power_given;         // by the order, not found
    float worst;              // largest residual, in tolerances
    // What is left of the accelerations, forward, up, right in g, about pitch, roll, yaw in deg/s2, and of the
    // sideslip in degrees.
    float left[7];
};

// In words what keeps a state from being steady and by how much: controls at their stops, what is left most. Empty
// for one that is.
std::string lab_why_unsteady(const lab_steady& state);

// By Newton steps on the forces of the whole aircraft, engines and discs settled in each state.
lab_steady lab_find_steady(const lab_steady_order& order);

// Leaves the aircraft flying so, yoke and levers holding the controls.
void lab_fly_steady(const lab_steady& state);
