// What covers the Earth's land.
#pragma once
#include "known_places.h"
#include "regions.h"
#include "relief.h"

// The class of each node of the window, cover_water where the ground is water.
node_values<unsigned char> land_cover(const relief::ground& ground, const known_places& places,
                                      const regions& outlines);
