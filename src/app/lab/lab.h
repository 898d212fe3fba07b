// Measurements on the user's aircraft: held in still air as in a tunnel, trimmed, or flown.
// Role: shared by the flight lab, tests and benchmarks; needs headless_start before.
// Coefficients refer to the plan area and mean chord of the wings, moments to the centre of gravity:
// Cm nose up, Cl right wing down, Cn nose right.
#pragma once

#include "core/craft/dims.h"

// No wind, gusts, turbulence, thermals or bursts, now and in the frames to come.
void lab_still_air();

// Where and how the aircraft flies. Angles in degrees.
struct lab_flight {
    float speed = 30.0f;      // true airspeed, m/s
    float altitude = 1000.0f; // m above the sphere
    float alpha = 0.0f, beta = 0.0f;
    float gamma = 0.0f;       // flight-path angle, up
    float phi = 0.0f, psi = 0.0f;
    float track = 0.0f;       // true course of the motion of lab_place_moving; psi counts from it
};
// Puts slot 0 there over the region's centre, rates zero, caches and local air to match.
void lab_place(const lab_flight& at);

// The same by the attitude: the nose at the and phi and psi, moving on its track along gamma, turning as a steady
// turn of turn_rate (deg/s, right) does. alpha and beta of the order are not read.
void lab_place_moving(const lab_flight& at, float the, float turn_rate);

struct lab_coeffs {
    float CL, CD, CY, Cl, Cm, Cn;
    float lift, drag;          // N, path axes
};
// The coefficients of the held aircraft, controls as they stand.
lab_coeffs lab_tunnel(const lab_flight& at);

// Span loading of the last tunnel call: middle of each element from the centre line (m), its lift per
// metre of span over dynamic pressure and mean chord.
struct lab_span_point {
    int part, element;
    float y, ccl;
};
int lab_span_load(lab_span_point* points, int max_points);

// Steady flight at a speed: angle of attack, elevator and path, found by Newton steps on the forces.
struct lab_trim {
    bool found;
    float speed, alpha, gamma, elevator;  // elevator: FC_ptch
    float CL, CD, sink;                   // sink in m/s
};
lab_trim lab_trim_glide(float speed, float altitude);
// Leaves the aircraft flying in that trim, the yoke holding the elevator.
void lab_fly_trim(const lab_trim& trim, float altitude);

// Slopes at an angle of attack, by differences of half a degree.
struct lab_stability {
    float CL_alpha, Cm_alpha;      // per degree
    float Cn_beta, Cl_beta;        // per degree
    float static_margin;           // chords
    float z_neutral;               // m aft of the file's centre of gravity
};
lab_stability lab_slopes(const lab_flight& at);

struct lab_polar {
    float CL_max, alpha_max;
    float stall_speed;             // m/s at the present mass, 1 g
    lab_trim best_glide, min_sink;
};
// Elevator neutral for the largest lift, flaps and brakes as they stand.
lab_polar lab_performance(float altitude);

float lab_mass();  // kg, with fuel and load

// While it lives, the lab leaves the aircraft where it is, moves it by flight steps alone, and touches neither clock
// nor frame: for use inside a frame of the program.
class lab_in_place {
public:
    lab_in_place();
    ~lab_in_place();
    lab_in_place(const lab_in_place&) = delete;
    lab_in_place& operator=(const lab_in_place&) = delete;

private:
    float prd_FM_;
};

// One frame of given length, s, the virtual clock in step with it.
void lab_frame(float dt);
