// Spheres around the buckets of a tile; finish_degree (tile.h) makes them.
#pragma once
#include "scenery/ground/tile.h"

// Grows the first to the smallest sphere around both. One without a radius holds nothing, and one that is no
// number is left out, or its whole branch would never be seen.
void ExtendBoundingSphereToSphere(Sphere3& s, const Sphere3& other);
