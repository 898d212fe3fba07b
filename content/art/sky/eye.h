// How light looks to an eye used to the hour: exposure, night sight, and the bytes of a screen.
// Role: the one place of taste; all sets and both planets go through the same curve.
#pragma once
#include "spectrum.h"

// 0 to 1, encoded for a screen.
struct shade {
    double r, g, b;
};

inline shade blend(const shade& a, const shade& b, double part_of_b) {
    return {a.r + (b.r - a.r) * part_of_b, a.g + (b.g - a.g) * part_of_b, a.b + (b.b - a.b) * part_of_b};
}

inline void add(shade& to, const shade& s, double part) {
    to.r += s.r * part, to.g += s.g * part, to.b += s.b * part;
}

struct eye {
    colour white;       // linear colour of the light that is to look white
    double exposure;    // per cd/m2
    double rods;        // 0 by day to 1 by night
    double liveliness;  // how bright all looks, part of full day
};
// `level` and `full_day` are lux on what stands on the ground, now and at full day; `sky` is the mean
// luminance of the sky, cd/m2. `compared` is what the same hour gives under a clear sky: the eye does not
// wholly make up for less.
eye adapt(const colour& white, double level, double sky, double full_day, double compared);

// What a radiance (cd/m2 and so on) looks like.
constexpr double film_vividness = 0.5;  // what film adds to the colours of all but the brightest
shade show(const eye& e, const spectrum& radiance, double vividness = film_vividness);
// The colour of a light as surfaces show it: at full day 1, at night dim; `part` is how much of the scene's
// light it is, against a full day.
shade show_light(const eye& e, const spectrum& irradiance, double part);
// A disc too bright for the eye: never dark, however little of its light is left.
shade show_disc(const eye& e, const spectrum& light);
