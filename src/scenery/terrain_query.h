// What lies under a point of the world.
#pragma once

// World y of the surface at (x, z); sets env.terrain_ctr, terrain_nrm, terrain_vel. checker tells who
// asks: 0 and 69 to 79 see decks, roofs and runways, others bare terrain.
float return_terrain_y(float x, float z, int checker);
// 1 over water, and where no mesh lies.
int terrain_is_wet(float x, float z, int checker);
// Whether the user's wheels would meet water.
int wheels_are_wet();
// World y at which a point of given x and z has elevation ele, m.
float y_with_xhz(float x, float ele, float z);
