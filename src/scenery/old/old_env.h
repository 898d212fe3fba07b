// Tiles of the older kind: a grid of elevations with land uses.
#pragma once
#include <vector>

// Fills xdeg[lon_os][lat_os]; 0 when there is no such file.
int read_old_env(int lat_file, int lat_os, int lon_file, int lon_os);
// Textures that such tiles have loaded for themselves; they go with the region.
extern std::vector<int> old_cus_texes;
