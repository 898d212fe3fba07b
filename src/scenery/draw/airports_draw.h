// Airports on the ground.
// Role: for now each strip in the colour of its surface, with plain marks.
#pragma once

// Those of the region that are seen; all on a map; none in the pick render.
void plot_airports(int is_map, int is_hits);
// Lists of a window that has gone are forgotten.
void reset_airports_draw();
