// Places on the simulator's sphere. Bearings in degrees true, distances in metres.
#pragma once
#include "nav_world.h"

double wrap_heading(double degrees);         // into 0 to below 360
double wrap_longitude(double degrees);       // into -180 to 180
double heading_between(double a, double b);  // angle from a to b, -180 to 180

nav_place place_from(const nav_globe& globe, nav_place from, double bearing, double metres);
// From a place in a runway's frame: metres ahead along the heading and to its right.
nav_place place_beside(const nav_globe& globe, nav_place from, double heading, double ahead, double right);
double distance_between(const nav_globe& globe, nav_place a, nav_place b);
double bearing_between(const nav_globe& globe, nav_place a, nav_place b);  // at a
nav_place place_between(nav_place a, nav_place b, double part);            // on the great circle

// Degrees that, added to a true heading, give the magnetic one.
double variation_at(const nav_globe& globe, nav_place at);

// End 0 or 1 of a runway: where its pavement without blast pad ends, and the heading of a landing there.
nav_place runway_end(const nav_globe& globe, const nav_runway& runway, int end);
double runway_heading(const nav_runway& runway, int end);
// The number painted for a landing on that true heading: 1 to 36.
int runway_number(const nav_globe& globe, nav_place at, double heading);
// Names of both ends as pilots say them: "14L" and "32R"; "06" and "24"; a helipad's or pavement's alone.
std::string runway_end_name(const nav_runway& runway, int end);
