// Places on the simulator's sphere.
#include "nav_geo.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "scenery/nav/magnetic.h"

namespace {
constexpr double degtorad = 0.017453292519943295;

struct vect {
    double x, y, z;
};

vect on_sphere(nav_place p) {
    const double c = cos(p.lat * degtorad);
    return {c * cos(p.lon * degtorad), c * sin(p.lon * degtorad), sin(p.lat * degtorad)};
}

nav_place place_of(const vect& v) {
    return {atan2(v.z, sqrt(v.x * v.x + v.y * v.y)) / degtorad, atan2(v.y, v.x) / degtorad};
}

// Half the chord is well conditioned for near places, unlike the angle's cosine.
double arc_between(nav_place a, nav_place b) {
    const vect p = on_sphere(a), q = on_sphere(b);
    const double dx = p.x - q.x, dy = p.y - q.y, dz = p.z - q.z;
    return 2 * asin(std::min(1.0, sqrt(dx * dx + dy * dy + dz * dz) / 2));
}
}  // namespace

double wrap_heading(double degrees) {
    degrees = fmod(degrees, 360);
    return degrees < 0 ? degrees + 360 : degrees;
}

double wrap_longitude(double degrees) {
    while (degrees > 180) degrees -= 360;
    while (degrees < -180) degrees += 360;
    return degrees;
}

double heading_between(double a, double b) {
    const double turn = wrap_heading(b - a);
    return turn > 180 ? turn - 360 : turn;
}

nav_place place_from(const nav_globe& globe, nav_place from, double bearing, double metres) {
    const double arc = metres / globe.radius, lat = from.lat * degtorad, psi = bearing * degtorad;
    const double s = sin(lat) * cos(arc) + cos(lat) * sin(arc) * cos(psi);
    const double lat2 = asin(std::clamp(s, -1.0, 1.0));
    const double east = atan2(sin(psi) * sin(arc) * cos(lat), cos(arc) - sin(lat) * s);
    return {lat2 / degtorad, wrap_longitude(from.lon + east / degtorad)};
}

nav_place place_beside(const nav_globe& globe, nav_place from, double heading, double ahead, double right) {
    const double bearing = heading + atan2(right, ahead) / degtorad;
    return place_from(globe, from, bearing, sqrt(ahead * ahead + right * right));
}

double distance_between(const nav_globe& globe, nav_place a, nav_place b) {
    return globe.radius * arc_between(a, b);
}

double bearing_between(const nav_globe&, nav_place a, nav_place b) {
    const double east = wrap_longitude(b.lon - a.lon) * degtorad, lat1 = a.lat * degtorad,
                 lat2 = b.lat * degtorad;
    // the difference of nearly equal products, rewritten so that near places keep their digits
    const double half = sin(east / 2);
    const double north = sin(lat2 - lat1) + 2 * sin(lat1) * cos(lat2) * half * half;
    return wrap_heading(atan2(sin(east) * cos(lat2), north) / degtorad);
}

nav_place place_between(nav_place a, nav_place b, double part) {
    const vect p = on_sphere(a), q = on_sphere(b);
    const double arc = arc_between(a, b);
    if (arc < 1e-12) return a;
    const double wa = sin((1 - part) * arc) / sin(arc), wb = sin(part * arc) / sin(arc);
    return place_of({wa * p.x + wb * q.x, wa * p.y + wb * q.y, wa * p.z + wb * q.z});
}

nav_place runway_end(const nav_globe& globe, const nav_runway& runway, int end) {
    return place_from(globe, runway.at, runway.psi + (end ? 0 : 180), runway.len * foot / 2);
}

double runway_heading(const nav_runway& runway, int end) {
    return wrap_heading(runway.psi + (end ? 180 : 0));
}

int runway_number(const nav_globe& globe, nav_place at, double heading) {
    const int number = static_cast<int>(lround(wrap_heading(heading + variation_at(globe, at)) / 10)) % 36;
    return number ? number : 36;
}

std::string runway_end_name(const nav_runway& runway, int end) {
    std::string name = runway.num;
    if (!isdigit(static_cast<unsigned char>(name[0]))) {
        if (name.size() == 3 && name[2] == 'x') name.pop_back();
        return name;
    }
    int number = atoi(name.substr(0, 2).c_str());
    char side = name.size() > 2 ? name[2] : 'x';
    if (end) {
        number = (number + 17) % 36 + 1;
        side = side == 'L' ? 'R' : side == 'R' ? 'L' : side;
    }
    char text[16];
    snprintf(text, sizeof text, "%02d%c", number, side);
    if (side == 'x') text[2] = 0;
    return text;
}

double variation_at(const nav_globe& globe, nav_place at) {
    return globe.magnetic ? magnetic_variation(at.lat, at.lon) : 0;
}
