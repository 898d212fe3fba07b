// Places on the planet's sphere: distances, bearings, a flat map around a place, and how places are written.
#pragma once
#include <string>

struct place {
    double lat = 0.0, lon = 0.0;  // degrees, north and east positive
};

constexpr double feet_per_metre = 1.0 / 0.3048;
constexpr double metres_per_mile = 1852.0;  // nautical

double distance_m(const place& a, const place& b);
// At a, degrees true, 0 to below 360.
double bearing_true(const place& a, const place& b);

// Metres east and north of a middle; good for an airport's extent.
struct flat_point {
    double east, north;
};
class flat_map {
public:
    explicit flat_map(const place& middle) : middle_(middle) {}
    flat_point at(const place& p) const;

private:
    place middle_;
};
// From a point along a heading, and to the right of it.
flat_point beside(const flat_point& from, double heading, double ahead, double right);

// Degrees that, added to a true heading, give the magnetic one; none on Mars.
double variation_at(const place& p);
double magnetic(double heading_true, const place& p);

double wrap_degrees(double degrees);         // 0 to below 360
std::string heading_text(double degrees);    // "072", "360" for north
std::string place_text(const place& p);      // "34.09540 N 117.23490 W"
std::string variation_text(const place& p);  // "11.3 E"; "none" on Mars
