// Survey land: dry and level ground at elevation 0 all over the globe, without files, pictures and places.
// Role: what flies without scenery flies over it: headless runs, and with them the flight lab, tests and
// benchmarks.
#pragma once
#include "scenery/ground/region.h"

// A mesh at elevation 0 with a corner at the region's centre; between its corners, 1.8 km apart on Earth, it
// lies below the sphere by up to 0.1 m, on Mars, 1.9 km, by 0.25 m. It draws no random number, so that a run
// repeats whatever was loaded before it.
extern const region_steps_struct region_of_survey_land;

// Regions are of survey land from now on, and the present one is loaded; where it is the one that is there
// already it stays, for starts follow each other by the hundred.
void stand_on_survey_land();
