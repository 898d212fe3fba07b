// Rotations and quaternions.
#include "core/math/axes.h"

#include "core/records/env.h"
#include "core/records/flt.h"

void cache_attitude(int p) {
    flt_struct& f = flt[p];
    f.sin_the = sin_deg(f.the);
    f.cos_the = cos_deg(f.the);
    f.sin_psi = sin_deg(f.psi);
    f.cos_psi = cos_deg(f.psi);
    f.sin_phi = sin_deg(f.phi);
    f.cos_phi = cos_deg(f.phi);
}

void veh_to_wrl(float x, float y, float z, float* xo, float* yo, float* zo, int w) {
    const flt_struct& f = flt[w];
    any_to_wrl(x, y, z, xo, yo, zo, f.sin_psi, f.cos_psi, f.sin_the, f.cos_the, f.sin_phi, f.cos_phi);
}

void wrl_to_veh(float x, float y, float z, float* xo, float* yo, float* zo, int w) {
    const flt_struct& f = flt[w];
    wrl_to_any(x, y, z, xo, yo, zo, f.sin_psi, f.cos_psi, f.sin_the, f.cos_the, f.sin_phi, f.cos_phi);
}

void boat_to_wrl(float x, float y, float z, float* xo, float* yo, float* zo, int w) {
    any_to_wrl(x, y, z, xo, yo, zo, sin_deg(env.boat_psi[w]), cos_deg(env.boat_psi[w]),
               sin_deg(env.boat_the[w]), cos_deg(env.boat_the[w]), sin_deg(env.boat_phi[w]),
               cos_deg(env.boat_phi[w]));
}

void disc_to_veh(float xi, float yi, float zi, float* xo, float* yo, float* zo, int p, int en) {
    const flt_engn_struct& e = flt[p].engn[en];
    const float sin_side = sin_deg(e.side_disc_cyclic), cos_side = cos_deg(e.side_disc_cyclic);
    const float sin_vert = sin_deg(e.vert_disc_cyclic), cos_vert = cos_deg(e.vert_disc_cyclic);
    const float xs = xi * cos_side - zi * sin_side;
    const float zs = xi * sin_side + zi * cos_side;
    *xo = xs;
    *yo = yi * cos_vert - zs * sin_vert;
    *zo = yi * sin_vert + zs * cos_vert;
}

void init_quaternion(float psi_deg, float the_deg, float phi_deg, float* q) {
    const float s_psi = sin_deg(0.5f * psi_deg), c_psi = cos_deg(0.5f * psi_deg);
    const float s_the = sin_deg(0.5f * the_deg), c_the = cos_deg(0.5f * the_deg);
    const float s_phi = sin_deg(0.5f * phi_deg), c_phi = cos_deg(0.5f * phi_deg);
    q[0] = s_phi * s_the * s_psi + c_phi * c_the * c_psi;
    q[1] = s_phi * c_the * c_psi - c_phi * s_the * s_psi;
    q[2] = s_phi * c_the * s_psi + c_phi * s_the * c_psi;
    q[3] = c_phi * c_the * s_psi - s_phi * s_the * c_psi;
}

template <class T>
static void multiply(const T* q1, const T* q2, T* q) {
    const T r[4] = {q1[0] * q2[0] - q1[1] * q2[1] - q1[2] * q2[2] - q1[3] * q2[3],
                    q1[0] * q2[1] + q1[1] * q2[0] + q1[2] * q2[3] - q1[3] * q2[2],
                    q1[0] * q2[2] - q1[1] * q2[3] + q1[2] * q2[0] + q1[3] * q2[1],
                    q1[0] * q2[3] + q1[1] * q2[2] - q1[2] * q2[1] + q1[3] * q2[0]};
    for (int i = 0; i < 4; ++i) q[i] = r[i];
}

void mul_quat(const float* q1, const float* q2, float* q) { multiply<float>(q1, q2, q); }
void mul_quat(const double* q1, const double* q2, double* q) { multiply<double>(q1, q2, q); }

void quat_to_euler(float* q, float* psi_deg, float* the_deg, float* phi_deg) {
    // a length off by a rounding would tilt the pitch near the zenith, where the arcsine is steep
    const float by_len = 1.0f / sqrtf(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
    for (int i = 0; i < 4; ++i) q[i] *= by_len;
    const float b11 = q[0] * q[0] + q[1] * q[1] - q[2] * q[2] - q[3] * q[3];
    const float b12 = 2.0f * (q[0] * q[3] + q[1] * q[2]);
    const float b13 = 2.0f * (q[1] * q[3] - q[0] * q[2]);
    const float b23 = 2.0f * (q[0] * q[1] + q[2] * q[3]);
    const float b33 = q[0] * q[0] - q[1] * q[1] - q[2] * q[2] + q[3] * q[3];
    *psi_deg = fltwrap(atan2_deg(b12, b11), 0.0f, 360.0f);
    *the_deg = fltwrap(-asin_deg(b13), -180.0f, 180.0f);
    *phi_deg = fltwrap(atan2_deg(b23, b33), -180.0f, 180.0f);
}

void update_quaternion(float P_rad, float Q_rad, float R_rad, float* psi_deg, float* the_deg, float* phi_deg,
                       float* q) {
    float step[4];
    init_quaternion(R_rad * con.radtodeg, Q_rad * con.radtodeg, P_rad * con.radtodeg, step);
    mul_quat(q, step, q);
    quat_to_euler(q, psi_deg, the_deg, phi_deg);
}

// q p q* with p = (0, -z, x, -y), the mapping of world axes to quaternion axes that the attitude uses.
template <class T>
static void rotate(const T* q, T x1, T y1, T z1, T* x2, T* y2, T* z2) {
    const T p[4] = {0, -z1, x1, -y1};
    const T a[4] = {-q[1] * p[1] - q[2] * p[2] - q[3] * p[3], q[0] * p[1] + q[2] * p[3] - q[3] * p[2],
                    q[0] * p[2] - q[1] * p[3] + q[3] * p[1], q[0] * p[3] + q[1] * p[2] - q[2] * p[1]};
    *z2 = -(-a[0] * q[1] + a[1] * q[0] - a[2] * q[3] + a[3] * q[2]);
    *x2 = -a[0] * q[2] + a[1] * q[3] + a[2] * q[0] - a[3] * q[1];
    *y2 = -(-a[0] * q[3] - a[1] * q[2] + a[2] * q[1] + a[3] * q[0]);
}

void rot_quat(const float* q, float x1, float y1, float z1, float* x2, float* y2, float* z2) {
    rotate<float>(q, x1, y1, z1, x2, y2, z2);
}
void rot_quat(const double* q, double x1, double y1, double z1, double* x2, double* y2, double* z2) {
    rotate<double>(q, x1, y1, z1, x2, y2, z2);
}
