// Airports on the ground.
#pragma once

// Those of the region that are seen; all on a map; in the pick render those that it shows.
void plot_airports(int is_map, int is_hits);
