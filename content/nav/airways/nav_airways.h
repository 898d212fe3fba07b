// Airways and fixes from the net of radio aids.
#pragma once
#include "nav_world.h"

struct airway_rules {
    double low_leg = 160, high_leg = 2700;                 // longest stretch between two aids, nautical miles
    double low_fix = 50, high_fix = 120, ocean_fix = 300;  // longest between two fixes; ocean from 500 on
    double low_spacing = 8, high_spacing = 90;             // least between two aids of a net
    double high_range = 100;                               // reach of an aid that serves it, at least
};

// Adds low and high airways and the fixes along them, and one fix before each landing aid. Aids must be
// final.
void add_airways(nav_world& world, const airway_rules& rules);

// Five letters that can be spoken, all different, in an order that looks like none; 0 to fix_names - 1.
std::string fix_name(int number);
extern const int fix_names;
// Not to be read out on a radio.
bool is_rude(const std::string& name);
