// Local frame and globe.
#include "core/math/globe.h"

#include <math.h>

#include "core/math/axes.h"
#include "core/program/alert.h"
#include "core/records/env.h"
#include "core/records/flt.h"
#include "core/records/mnw.h"

// 0 or 1; any other planet is fatal, and stands as Earth where that returns.
static int known_planet() {
    if (env.planet == 0 || env.planet == 1) return env.planet;
    MACIBM_alert(mnw.top_win, "Bad planet type!", "Only Earth and Mars supported now!", "", "", alert_fatal);
    return 0;
}

double ref_lat() { return env.lat_sou + lat_secs_os[known_planet()]; }
double ref_lon() { return env.lon_wes + lon_secs_os[known_planet()]; }

void xdob_latlonel_with_xyz(double* lat, double* lon, double* ele, double x, double y, double z) {
    const double R = con.planet_rad;
    const double s = sin(ref_lat() * dob_degtorad), c = cos(ref_lat() * dob_degtorad);
    const double xe = x;
    const double ye = y * c + z * s + R * c;
    const double ze = z * c - y * s - R * s;
    const double rad = sqrt(xe * xe + ye * ye + ze * ze);
    *ele = rad - R;
    const double lat_rad = asin(fmin(fmax(-ze / rad, -1.0), 1.0));  // rounding at the poles
    *lat = lat_rad * dob_radtodeg;
    const double ring = cos(lat_rad) * rad;
    const double lon_rad = ring > 0.0 ? asin(fmin(fmax(xe / ring, -1.0), 1.0)) : 0.0;
    *lon = dobwrap(lon_rad * dob_radtodeg + ref_lon(), -180.0, 180.0);
}

void xdob_xyz_with_latlonel(double* x, double* y, double* z, double lat, double lon, double ele) {
    const double R = con.planet_rad;
    const double ref = ref_lat() * dob_degtorad;
    const double rad = R + ele;
    double dlon = (lon - ref_lon()) * dob_degtorad;
    if (dlon > M_PI) dlon -= 2.0 * M_PI;
    if (dlon < -M_PI) dlon += 2.0 * M_PI;
    const double lat_rad = lat * dob_degtorad;
    const double xe = sin(dlon) * cos(lat_rad) * rad;
    const double ye = cos(dlon) * cos(lat_rad) * rad - R * cos(ref);
    const double ze = -sin(lat_rad) * rad + R * sin(ref);
    *x = xe;
    *y = ye * cos(ref) - ze * sin(ref);
    *z = ze * cos(ref) + ye * sin(ref);
}

void latlonel_with_xyz(float* lat, float* lon, float* ele, float x, float y, float z) {
    double dlat, dlon, dele;
    xdob_latlonel_with_xyz(&dlat, &dlon, &dele, x, y, z);
    *lat = static_cast<float>(dlat);
    *lon = static_cast<float>(dlon);
    *ele = static_cast<float>(dele);
}

void xyz_with_latlonel(float* x, float* y, float* z, double lat, double lon, double ele) {
    double dx, dy, dz;
    xdob_xyz_with_latlonel(&dx, &dy, &dz, lat, lon, ele);
    *x = static_cast<float>(dx);
    *y = static_cast<float>(dy);
    *z = static_cast<float>(dz);
}

float y_with_xhz(float x, float ele, float z) {
    const double rad = static_cast<double>(con.planet_rad) + ele;
    const double up_sqr = rad * rad - static_cast<double>(x) * x - static_cast<double>(z) * z;
    return static_cast<float>(sqrt(fmax(up_sqr, 0.0)) - con.planet_rad);
}

float z_north_os(float lat, float lon) { return (static_cast<float>(ref_lon()) - lon) * sin_deg(lat); }

void find_dis_crs_mag(float lat1, float lon1, float lat2, float lon2, float x1, float z1, float x2, float z2,
                      float* psi, float* dis) {
    *psi = fltwrap(atan2_deg(x2 - x1, z1 - z2), 0.0f, 360.0f) + env.mag_var;
    const float near_nm = pythag(x2 - x1, z2 - z1) * con.mtrstonm;
    // in double and limited: equal points give a cosine just above 1
    const double a = lat1 * dob_degtorad, b = lat2 * dob_degtorad, d = (lon2 - lon1) * dob_degtorad;
    const double cosine = sin(a) * sin(b) + cos(a) * cos(b) * cos(d);
    const float far_nm = static_cast<float>(10800.0 / M_PI * acos(fmin(fmax(cosine, -1.0), 1.0)));
    *dis = interp(10.0f, near_nm, 20.0f, far_nm, 0.5f * (near_nm + far_nm));
}

void frame_shift_quat(double lat1, double lon1, double lat2, double lon2, double q[4]) {
    const double h1 = 0.5 * lat1 * dob_degtorad, h2 = 0.5 * lat2 * dob_degtorad;
    const double hp = 0.5 * dobwrap(lon2 - lon1, -180.0, 180.0) * dob_degtorad;
    const double st1 = sin(h1), ct1 = cos(h1), st2 = sin(h2), ct2 = cos(h2), sp = sin(hp), cp = cos(hp);
    q[0] = st2 * cp * st1 + ct2 * cp * ct1;
    q[1] = st2 * sp * st1 - ct2 * sp * ct1;
    q[2] = st2 * cp * ct1 - ct2 * cp * st1;
    q[3] = st2 * sp * ct1 + ct2 * sp * st1;
}

void axis_shift_to_quat(double dlat, double dlon, double q[4]) {
    frame_shift_quat(ref_lat() - dlat, ref_lon() - dlon, ref_lat(), ref_lon(), q);
}

void shift_xyz_quat(const double q[4], double* x, double* y, double* z, int is_v) {
    const double lift = is_v ? 0.0 : static_cast<double>(con.planet_rad);
    rot_quat(q, *x, *y + lift, *z, x, y, z);
    *y -= lift;
}

void quat_to_local_euler(const float q[4], double lat, double lon, float* psi_deg, float* the_deg,
                         float* phi_deg) {
    double shift[4];
    frame_shift_quat(ref_lat(), ref_lon(), lat, lon, shift);
    const float turn[4] = {static_cast<float>(shift[0]), static_cast<float>(shift[1]),
                           static_cast<float>(shift[2]), static_cast<float>(shift[3])};
    float local[4];
    mul_quat(turn, q, local);
    quat_to_euler(local, psi_deg, the_deg, phi_deg);
}

// Seconds that local time is ahead of zulu by the aircraft's longitude.
static float zone_seconds() { return 3600.0f * intround(static_cast<float>(flt[0].dob_lon) / 15.0f); }

float zulu_from_locl() {
    return fltwrap(mnw.locl_time + 3600.0f * mnw.sys_offset_hours - zone_seconds(), 0.0f, 86400.0f);
}
float locl_from_zulu() {
    return fltwrap(mnw.zulu_time - 3600.0f * mnw.sys_offset_hours + zone_seconds(), 0.0f, 86400.0f);
}
