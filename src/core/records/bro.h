// Bullets and rocket rounds in flight.
// Role: fired and flown by weapons, moved by the region; entries are used again, and the list only grows.
#pragma once
#include <vector>

struct vec_bro_struct {
    int type;                // kind of weapon, 0 a free entry
    float S, mass;           // frontal area, m2; kg
    float burn_duration[3];  // of the motor's stages, s
    float burn_thrust[3];    // N
    float ratx, raty, ratz;  // unit vector of the motor, world frame
    float vx, vy, vz;        // m/s, world frame
    float x, y, z;           // m, world frame
};
static_assert(sizeof(vec_bro_struct) == 72);
extern std::vector<vec_bro_struct> vec_bro;
