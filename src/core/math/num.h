// The arithmetic vocabulary of the system: limits, wraps, two-point interpolation, first-order
// chasing, angles in degrees, and the numeric guard. Plain functions, no state.
// The math library is called by its C names only, so that no compiler folds or vectorises a call and
// a flight repeats bit for bit whatever built it.
#pragma once
#include <math.h>

#include "core/records/con.h"

// -- limits and tests
inline float fltlim(float in, float min, float max) { return in < min ? min : in > max ? max : in; }
inline int intlim(int in, int min, int max) { return in < min ? min : in > max ? max : in; }
inline float fltmax2(float x1, float x2) { return x1 > x2 ? x1 : x2; }
inline float fltmin2(float x1, float x2) { return x1 < x2 ? x1 : x2; }
inline int intmax2(int x1, int x2) { return x1 > x2 ? x1 : x2; }
inline int intmin2(int x1, int x2) { return x1 < x2 ? x1 : x2; }
inline int intrange(int x, int x1, int x2) { return x1 <= x && x <= x2; }        // ends inclusive
inline int fltrange(float x, float x1, float x2) { return x1 <= x && x <= x2; }  // ends inclusive
inline int flt_box(float x, float y, float x1, float y1, float x2, float y2) {
    return x1 <= x && x <= x2 && y1 <= y && y <= y2;
}
// Keeps a value, mostly a divisor, out of the band lo to hi: inside it the value becomes lo below the
// middle, else hi.
inline float fallout(float in, float lo, float hi) {
    if (in < lo || in > hi) return in;
    return in < 0.5f * (lo + hi) ? lo : hi;
}
inline float flt_abs(float in) { return fabsf(in); }
inline float sign(float in) { return in < 0.0f ? -1.0f : 1.0f; }  // 1 for zero
inline float sqr(float in) { return in * in; }
inline float signsqr(float in) { return in < 0.0f ? -in * in : in * in; }
inline float signsqrt(float in) { return sign(in) * sqrtf(fabsf(in)); }
inline float signpow(float in, float power) { return sign(in) * powf(fabsf(in), power); }
inline float pythag(float p, float q) { return sqrtf(p * p + q * q); }
inline float pythag(float p, float q, float r) { return sqrtf(p * p + q * q + r * r); }
// Nearest integer, half away from zero; out-of-range values and NaN saturate.
int intround(float in);
// Integer part towards zero, saturating likewise.
int intcut(float in);

// -- wraps: adds or takes away max - min until in lies between them, both ends kept as they are.
// min equal to max gives back the input; NaN and infinities come back unchanged.
float fltwrap(float in, float min, float max);
double dobwrap(double in, double min, double max);
// The same for whole numbers with a span of max - min + 1, both ends valid values.
int intwrap(int in, int min, int max);

// -- interpolation: straight line through (x1, y1) and (x2, y2) at x; x1 equal to x2 gives the mean.
inline float extrap(float x1, float y1, float x2, float y2, float x) {
    if (x1 == x2) return 0.5f * (y1 + y2);
    return y1 + (y2 - y1) * (x - x1) / (x2 - x1);
}
inline double xdob_extrap(double x1, double y1, double x2, double y2, double x) {
    if (x1 == x2) return 0.5 * (y1 + y2);
    return y1 + (y2 - y1) * (x - x1) / (x2 - x1);
}
// extrap with the result held between y1 and y2; x1 may exceed x2.
inline float interp(float x1, float y1, float x2, float y2, float x) {
    const float y = extrap(x1, y1, x2, y2, x);
    return y1 < y2 ? fltlim(y, y1, y2) : fltlim(y, y2, y1);
}
// First-order lag; speedrat is a multiple of the time step.
inline float closer_assymp(float nowval, float termval, float speedrat) {
    return nowval * (1.0f - speedrat) + termval * speedrat;
}
float pulse(float offset);  // 0 to 1, the beacon: 0.5 + 0.5 sin(4 (totl_time + offset))

// -- angles in degrees
inline float sin_deg(float deg) { return sinf(deg * con.degtorad); }
inline float cos_deg(float deg) { return cosf(deg * con.degtorad); }
inline float tan_deg(float deg) { return tanf(deg * con.degtorad); }
inline float asin_deg(float x) { return asinf(fltlim(x, -1.0f, 1.0f)) * con.radtodeg; }
inline float acos_deg(float x) { return acosf(fltlim(x, -1.0f, 1.0f)) * con.radtodeg; }
inline float atan_deg(float x) { return atanf(x) * con.radtodeg; }
inline float atan2_deg(float y, float x) { return atan2f(y, x) * con.radtodeg; }

// -- numeric guard
// 1 unless -1e10 < val < 1e10; written so that a NaN fails the test.
inline int check_nan(float val) {
    constexpr float min_val = -1e10f, max_val = 1e10f;
    return !(val > min_val && val < max_val);
}
[[gnu::cold, gnu::noinline]] void check_val_failed();
// Fatal for a NaN, an infinity or a magnitude of 1e10 or more.
inline void check_val(float val) {
    if (check_nan(val)) [[unlikely]] check_val_failed();
}
inline void check_force(float val) { check_val(val); }
