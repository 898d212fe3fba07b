// Which airports of the region are in view (scn.apt_is_vis).
// Role: some of them a picture, asked of the picture's camera; all of them in the first frame of a flight and
// when the runways of a region are new. Knows no OpenGL.
#pragma once

void airports_in_view_step();
void reset_airports_in_view();
