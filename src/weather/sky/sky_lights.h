// Flashes in the sky, the light on what OpenGL does not light, and who has lamps on.
// Role: the last steps of conditions_update, in this order.
#pragma once
#include "weather/sky/skyc.h"

void add_flashes();
void find_manual_lighting();
void split_light();
void switch_lights(const sky_surroundings& around);
