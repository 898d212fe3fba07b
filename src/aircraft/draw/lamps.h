// Lamps of an aircraft.
#pragma once

// Those of slot p that burn now, as points of light. The matrix is that of the aircraft's axes; leaves the
// state of util_point_lite_init behind.
void draw_lamps(int p);
