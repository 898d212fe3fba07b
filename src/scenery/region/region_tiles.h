// The tiles of a region from scenery, and what goes when the region goes.
#pragma once
#include "scenery/ground/region.h"

// Fills xdeg[lon_os][lat_os] with the degree whose south-west corner that is. Latitudes past a pole become
// the pole's, longitudes wrap. From 100,000 feet above ground on it is the default tile, whatever files there
// are. IO_type: 0 reads; anything else is refused with a message, and the tile stays.
void IO_env(int IO_type, int lat_file, int lat_os, int lon_file, int lon_os);

// The present region has only default tiles because it was loaded from that high.
bool region_left_out_files();

// Gives up what belongs to the region: textures of its own, runway strips, seams, menus.
void clear_region();

// Tiles of scenery, lists of what is near, ships and fires.
extern const region_steps_struct region_of_scenery;
