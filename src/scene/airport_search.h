// Which airport is nearest.
// Role: some airports of the region a frame, so that a frame costs the same however many there are; the
// airport found at the end of a cycle becomes the selected one. Knows no OpenGL.
#pragma once

// One frame's share; at the first frame of a flight all of them at once. Where the region has none, or none
// that counts, all stays as it was.
void nearest_airport_step();
void reset_airport_search();
