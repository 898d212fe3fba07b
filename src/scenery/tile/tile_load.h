// Loading of tiles: a file of the decoder's callbacks becomes layers, patches and objects.
// Role: main thread, one tile at a time, south to north and west to east in each row, since seams rely on it.
#pragma once
#include <string>

// Fills xdeg[lon_os][lat_os] from the first good file of this degree (south-west corner in whole degrees):
// packages in their order, then the default folder. 0 when there is none; the tile is then empty.
int read_new_env(int lat_file, int lat_os, int lon_file, int lon_os);
// The tile from whatever there is: the newest format, an older one, water. Which degrees had no file is
// logged.
void read_env(int lat_file, int lat_os, int lon_file, int lon_os);

// Folder of ten degrees and name of a tile: "+30-120/+34-118" and the ending.
std::string return_latlon_str_ENV(int lat, int lon, const char* ending);
