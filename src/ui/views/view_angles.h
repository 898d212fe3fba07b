// Angles of views.
#pragma once

// Attitude, degrees.
struct attitude_struct {
    float psi, the, phi;
};

// Composes three rotations: forward and up of the first set turned through the second and the third, angles
// read back.
void get_euler_from_eulers(float psi1, float psi2, float psi3, float* psi, float the1, float the2, float the3,
                           float* the, float phi1, float phi2, float phi3, float* phi);
// The same attitude with the within 90 degrees: what looks past the pole is folded back over it. psi 0 to
// 360, phi within 180.
attitude_struct folded(attitude_struct a);
// What a view's code adds to the cockpit's heading and pitch, degrees.
attitude_struct turn_of_view(int code);
// That looks from one point to another, level.
attitude_struct direction_to(float dx, float dy, float dz);
