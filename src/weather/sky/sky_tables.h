// The pictures that hold the colours of the sky and of its light.
// Role: read when a planet is loaded. Knows no OpenGL.
#pragma once
#include "weather/sky/skyc.h"

// Fills the tables of all sets from the pictures of a planet (env.planet: 0 Earth, 1 Mars). Row 0 is the
// bottom line of each picture.
void read_sky_tables(skyc_class* sky, int planet);
// Grey gradients, as they stand for missing pictures.
void grey_sky_tables(skyc_class* sky);
