// What has no place on a map and is put somewhere in the region: forest fires and ships.
// Role: on Earth, behind the lists of a region. Draws random numbers; asks the terrain, and so leaves
// env.terrain_* as they come.
#pragma once

// Fires that still lie in the region stay, unless it is a wholly new one (shift_code); else all ten stand on
// the steepest of 100 dry places. Each of the first four ships that is out of the region goes to the last of
// 100 wet places of which each is nearer to the centre than the one before; without one it stays where it
// was.
void place_fires_and_boats(int typeshift);
