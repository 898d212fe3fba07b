// Runways by rule for airports of which only the place is known.
#pragma once
#include <vector>

#include "nav_list.h"
#include "nav_world.h"

// Direction that the wind mostly comes from at a latitude: trades, westerlies, polar easterlies; degrees
// true.
double prevailing_wind(double lat);

// Adds each listed airport that the world lacks by identifier, and that does not stand on one it has, with
// runways, furniture and landing aids.
void generate_airports(nav_world& world, const std::vector<listed_airport>& list);
