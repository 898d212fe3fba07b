// The planet as it is seen from high up: a globe of two pictures, and round the aircraft finer ones of ten
// degrees.
#pragma once

// Draws what the height asks for, with the camera set and light on. Loads and builds when the region has
// moved.
void OGL_manage_planet();
// reset_geo: the globe's points in the region's frame anew.
void lo_res_planet(int reset_geo, int plot_geo);
// The block of ten degrees round the aircraft, counted from 180 west and 90 south. reset_tex: another block.
void hi_res_planet(int lon_REG_1, int lat_REG_1, int reset_tex, int reset_geo, int plot_geo);
// Name of the picture of a square by its south-west corner, degrees: "+30-120.png".
const char* orbit_picture_name(int lat, int lon);
void reset_planet();
