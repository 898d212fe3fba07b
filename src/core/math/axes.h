// Rotations between aircraft, disc, ship and world axes, and the attitude quaternion.
// World: x east, y up, z south. Aircraft: x right, y up, z aft. psi clockwise from north, the nose up,
// phi right wing down. From aircraft to world: roll about z, pitch about x, heading about y.
#pragma once

#include "core/math/num.h"

// Aircraft axes to world axes, angles as sines and cosines. Inputs and outputs are guarded.
inline void any_to_wrl(float x_lcl, float y_lcl, float z_lcl, float* x_psi, float* y_psi, float* z_psi,
                       float sin_psi, float cos_psi, float sin_the, float cos_the, float sin_phi, float cos_phi) {
    check_val(x_lcl); check_val(y_lcl); check_val(z_lcl);
    const float x1 = y_lcl * sin_phi + x_lcl * cos_phi;
    const float y1 = y_lcl * cos_phi - x_lcl * sin_phi;
    const float y2 = y1 * cos_the - z_lcl * sin_the;
    const float z2 = y1 * sin_the + z_lcl * cos_the;
    *x_psi = x1 * cos_psi - z2 * sin_psi;
    *y_psi = y2;
    *z_psi = x1 * sin_psi + z2 * cos_psi;
    check_val(*x_psi); check_val(*y_psi); check_val(*z_psi);
}

// World axes to aircraft axes: the inverse of any_to_wrl.
inline void wrl_to_any(float x_wrl, float y_wrl, float z_wrl, float* x_phi, float* y_phi, float* z_phi,
                       float sin_psi, float cos_psi, float sin_the, float cos_the, float sin_phi, float cos_phi) {
    check_val(x_wrl); check_val(y_wrl); check_val(z_wrl);
    const float x1 = z_wrl * sin_psi + x_wrl * cos_psi;
    const float z1 = z_wrl * cos_psi - x_wrl * sin_psi;
    const float y2 = z1 * sin_the + y_wrl * cos_the;
    const float z2 = z1 * cos_the - y_wrl * sin_the;
    *x_phi = x1 * cos_phi - y2 * sin_phi;
    *y_phi = x1 * sin_phi + y2 * cos_phi;
    *z_phi = z2;
    check_val(*x_phi); check_val(*y_phi); check_val(*z_phi);
}

// Sines and cosines of the attitude of slot p from its angles.
void cache_attitude(int p);

// The same with the attitude of flt[w] (its cached sines and cosines).
void veh_to_wrl(float x, float y, float z, float* xo, float* yo, float* zo, int w);
void wrl_to_veh(float x, float y, float z, float* xo, float* yo, float* zo, int w);
// With the attitude of ship w.
void boat_to_wrl(float x, float y, float z, float* xo, float* yo, float* zo, int w);
// Propeller disc axes of engine en of aircraft p to aircraft axes: side tilt, then vertical tilt.
void disc_to_veh(float xi, float yi, float zi, float* xo, float* yo, float* zo, int p, int en);

// Quaternions q[4], scalar first; the vector part lies along forward (-z), right (x) and down (-y), so
// that roll, pitch and yaw are its first, second and third component.
void init_quaternion(float psi_deg, float the_deg, float phi_deg, float* q);
// Hamilton product q1 q2; q may be q1 or q2.
void mul_quat(const float* q1, const float* q2, float* q);
void mul_quat(const double* q1, const double* q2, double* q);
// Angles of q, and q scaled to unit length in place. psi 0 to 360, the and phi -180 to 180.
void quat_to_euler(float* q, float* psi_deg, float* the_deg, float* phi_deg);
// Turns q by angle increments of this step, radians (rate times step), and gives the new angles.
void update_quaternion(float P_rad, float Q_rad, float R_rad, float* psi_deg, float* the_deg, float* phi_deg,
                       float* q);
// Rotates a vector of the world frame by q. Outputs may be the inputs' variables.
void rot_quat(const float* q, float x1, float y1, float z1, float* x2, float* y2, float* z2);
void rot_quat(const double* q, double x1, double y1, double z1, double* x2, double* y2, double* z2);
