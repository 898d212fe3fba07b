// Airports, navaids, fixes and airways.
#pragma once

// Reads the tables of the present planet.
void read_planet_nav();
// True heading of the selected runway, degrees.
float runway_heading_true();
// Magnetic variation at a place, degrees, added to true for magnetic.
float magnetic_variation(double lat, double lon);
