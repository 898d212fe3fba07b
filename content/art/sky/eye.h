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

struct eye {
    colour white;       // linear colour of the light that is to look white
    double exposure;    // per cd/m2
    double rods;        // 0 by day to 1 by night
    double liveliness;  // how bright all looks, part of full day
};
struct seen_light {
    double level;  // lux on level ground, of sun and sky
    double sky;    // lux of the sky alone on a square that leans to its brighter side
};
// `compared` is what the same hour gives under a clear sky: the eye does not wholly make up for less.
eye adapt(const colour& white, const seen_light& light, const seen_light& full_day, double compared);

// What a radiance (cd/m2 and so on) looks like.
constexpr double film_vividness = 0.5;  // what film adds to the colours of all but the brightest
shade show(const eye& e, const spectrum& radiance, double vividness = film_vividness);
// The colour of a light as surfaces show it: at full day 1, at night dim; `part` is how much of the scene's
// light it is, against a full day.
shade show_light(const eye& e, const spectrum& irradiance, double part);
// A disc too bright for the eye; `strength` 0 to 1 fades it.
shade show_disc(const eye& e, const spectrum& light, double strength);
