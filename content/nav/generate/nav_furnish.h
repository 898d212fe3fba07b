// What stands around runways: taxiways, apron, ramps, tower, beacon, windsocks and frequencies, by rule.
#pragma once
#include "nav_world.h"

struct nav_furniture {
    int side = -1;  // of the first runway on which the apron lies, seen from its first end: 1 right, -1 left
    int size = 0;   // 0 strip, 1 town, 2 city
    bool lit = true;
};

// Adds each of these that the airport lacks; the first runway must be there. Chance comes from the
// identifier.
void furnish_airport(const nav_globe& globe, nav_airport& airport, const nav_furniture& plan);
// Adds the frequencies that an airport of that size has; seeded likewise.
void add_frequencies(nav_airport& airport, int size);
// A piece of pavement from one place to the next, reaching half its width past both.
nav_runway pavement_between(const nav_globe& globe, nav_place from, nav_place to, double width, int surface,
                            int lights);
// Takes a name to its three characters: "6" and "06" are "06x".
std::string runway_num(const std::string& name);
