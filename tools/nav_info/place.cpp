// Places on the planet's sphere.
#include "place.h"

#include <math.h>
#include <stdio.h>

#include "core/records/con.h"
#include "core/records/env.h"
#include "scenery/nav/magnetic.h"

namespace {
constexpr double rad = M_PI / 180.0;
double east_of(const place& a, const place& b) { return remainder(b.lon - a.lon, 360.0); }
}  // namespace

// By half the chord, which is well conditioned for near places.
double distance_m(const place& a, const place& b) {
    const double north = sin(0.5 * (b.lat - a.lat) * rad), east = sin(0.5 * east_of(a, b) * rad);
    const double chord = north * north + cos(a.lat * rad) * cos(b.lat * rad) * east * east;
    return 2.0 * con.planet_rad * asin(sqrt(fmin(chord, 1.0)));
}

double bearing_true(const place& a, const place& b) {
    const double turn = east_of(a, b) * rad;
    const double east = sin(turn) * cos(b.lat * rad);
    const double north =
        cos(a.lat * rad) * sin(b.lat * rad) - sin(a.lat * rad) * cos(b.lat * rad) * cos(turn);
    return wrap_degrees(atan2(east, north) / rad);
}

flat_point flat_map::at(const place& p) const {
    return {con.planet_rad * cos(middle_.lat * rad) * east_of(middle_, p) * rad,
            con.planet_rad * (p.lat - middle_.lat) * rad};
}

flat_point beside(const flat_point& from, double heading, double ahead, double right) {
    const double s = sin(heading * rad), c = cos(heading * rad);
    return {from.east + ahead * s + right * c, from.north + ahead * c - right * s};
}

double variation_at(const place& p) { return env.planet ? 0.0 : magnetic_variation(p.lat, p.lon); }
double magnetic(double heading_true, const place& p) { return wrap_degrees(heading_true + variation_at(p)); }

double wrap_degrees(double degrees) {
    const double wrapped = fmod(degrees, 360.0);
    return wrapped < 0.0 ? wrapped + 360.0 : wrapped;
}

std::string heading_text(double degrees) {
    const int whole = static_cast<int>(lround(wrap_degrees(degrees))) % 360;
    char text[8];
    snprintf(text, sizeof text, "%03d", whole ? whole : 360);
    return text;
}

std::string place_text(const place& p) {
    char text[64];
    snprintf(text, sizeof text, "%.5f %c %.5f %c", fabs(p.lat), p.lat < 0.0 ? 'S' : 'N', fabs(p.lon),
             p.lon < 0.0 ? 'W' : 'E');
    return text;
}

std::string variation_text(const place& p) {
    if (env.planet) return "none";
    const double variation = variation_at(p);
    char text[32];
    snprintf(text, sizeof text, "%.1f %c", fabs(variation), variation < 0.0 ? 'E' : 'W');
    return text;
}
