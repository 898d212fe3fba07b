// What lies under a point of the world.
// Role: asked many times a half step. Each regular asker has a place of its own (checker, 0 to 175), from
// which its next search starts. The one writer of env.terrain_ctr, terrain_nrm and terrain_vel.
#pragma once

// Who asks. The first and the tyres see decks, roofs, runways and bumps, all others bare terrain.
enum terrain_checker : int {
    checker_user = 0,  // the user's centre of gravity
    checker_ai = 25,
    checker_scenery = 26,      // scenery being placed
    checker_view = 30,         // the eye, and where views stand
    checker_balloon_first = 64,  // + balloon, to 67
    checker_tire_first = 69,   // + leg, to 78
    checker_part_first = 80,   // + part, to 164: wing tips and bodies
    checker_slot_first = 165,  // + slot, to 174: other aircraft
};

// World y of the surface at (x, z); sets env.terrain_ctr, terrain_nrm, terrain_vel. checker tells who
// asks: 0 and 69 to 79 see decks, roofs and runways, others bare terrain. Outside the region, less 2500 m, it
// is 0 and sets nothing.
float return_terrain_y(float x, float z, int checker);
// Finds the triangle under a point and remembers it for the asker; 0 where no mesh lies.
int find_terrain_poly(float x, float z, int checker);
// Triangles tried by all searches so far.
long terrain_effort();
// 1 over water, and where no mesh lies.
int terrain_is_wet(float x, float z, int checker);
// Whether the user's wheels would meet water.
int wheels_are_wet();
// All askers start anew: the scenery that they remember goes away.
void forget_found_terrain();
