// Colours out of the pictures: by set, by the sun's height, by the way from the sun.
// Role: steps of conditions_update; reads the tables, the view and the air, writes the colours of skyc.
#pragma once
#include "weather/sky/sky_places.h"
#include "weather/sky/skyc.h"

// Of each set, 0 to 1; they sum to 1.
struct set_weights {
    float of[sky_setDIM];
};
set_weights weigh_sets();
void blend_colours(const set_weights& weights, const light_shares& shares);
void blend_dome(const set_weights& weights);
