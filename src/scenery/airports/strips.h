// Strips of the runways of an airport on the ground.
// Role: built when a region is finished, from the airport's record and the terrain; then stood on and drawn
// (scenery/ground/runways.h).
#pragma once

// Corners of a runway with its blast pads, world frame, m: left and right at the first end, where a landing
// on its heading begins, then at the second. All at the height of the airport.
void build_rwy_layout(int apt_wrl, int rwy_wrl, float (*corner_xyz)[3]);

// Builds the strips of all runways of an airport (index in vec_apt) and notes them in their geo_ind; the
// terrain has to be there. Again for the same airport it replaces them.
void UTIL_build_runways(int apt_wrl);
