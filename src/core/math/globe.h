// The local frame of the region and the globe: a sphere of radius con.planet_rad, no ellipsoid.
// World x, y, z in metres lie on the tangent plane at the region's centre; y is height above that
// plane, not elevation. Latitudes and longitudes in degrees, north and east positive.
#pragma once

constexpr double dob_degtorad = 0.017453292519943295;
constexpr double dob_radtodeg = 57.29577951308232;

double ref_lat();  // centre of the current region, degrees
double ref_lon();

// World position to place and elevation, valid within 90 degrees of longitude of the reference, and
// back. An unknown planet is fatal.
void xdob_latlonel_with_xyz(double* lat, double* lon, double* ele, double x, double y, double z);
void xdob_xyz_with_latlonel(double* x, double* y, double* z, double lat, double lon, double ele);
void latlonel_with_xyz(float* lat, float* lon, float* ele, float x, float y, float z);
void xyz_with_latlonel(float* x, float* y, float* z, double lat, double lon, double ele);

// World y at which a point of given x and z has elevation ele, m.
float y_with_xhz(float x, float ele, float z);

// Angle by which true north at a place leans away from the local -z axis, degrees.
float z_north_os(float lat, float lon);

// Magnetic course (degrees) and distance (nautical miles) from 1 to 2: flat below 10 miles, great
// circle above 20, blended between.
void find_dis_crs_mag(float lat1, float lon1, float lat2, float lon2, float x1, float z1, float x2, float z2,
                      float* psi, float* dis);

// Rotation from the local frame at (lat1, lon1) to that at (lat2, lon2), degrees; in double, so that a
// parked aircraft does not jump when the region moves.
void frame_shift_quat(double lat1, double lon1, double lat2, double lon2, double q[4]);
// The same when the reference moves by dlat and dlon to the present one.
void axis_shift_to_quat(double dlat, double dlon, double q[4]);
// Rotates in place. A point (is_v 0) turns about the planet's centre, a velocity about the origin.
void shift_xyz_quat(const double q[4], double* x, double* y, double* z, int is_v);
// Attitude against the true local vertical and north at a place, from an attitude in the world frame.
void quat_to_local_euler(const float q[4], double lat, double lon, float* psi_deg, float* the_deg,
                         float* phi_deg);

// Seconds of the day; the time zone follows the aircraft's longitude in steps of one hour.
float zulu_from_locl();
float locl_from_zulu();
