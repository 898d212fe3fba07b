// What covers the Earth's land.
#pragma once
#include "known_places.h"
#include "relief.h"
#include "rivers.h"

// The class of each node of the window, cover_water where the ground is water. Slopes come from the heights.
node_values<unsigned char> land_cover(const relief::ground& ground, const known_places& places,
                                      const rivers& streams);
