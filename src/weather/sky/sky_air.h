// How far one sees: density at the eye, visibility among the cloud layers, fog and clip distances.
// Role: the first steps of conditions_update; reads ren, atm, env and the aircraft's places, writes skyc and
// atm.
#pragma once
#include "weather/sky/skyc.h"

constexpr int layerDIM = 2;

// Of a cloud layer: sight is full again a buffer above its top and below its base, m above sea level.
struct layer_limits {
    float fullvis_top, zerovis_top, zerovis_bot, fullvis_bot;
};
layer_limits limits_of_layer(int layer);

void find_view_density();
void find_visibility();  // atm.vis_ground, atm.vis_sky; ren.stars_are_vis
void find_fog();
void find_clips(const sky_surroundings& around);
// Distance from the eye to the nearest edge of the region's land, m; 0 outside.
float distance_to_rim();
// Lowest height above sea level at which the planet is drawn below the tiles, m.
float planet_from_height();
