// The water tile that stands where no file does.
#pragma once

// The water tile that stands where no file does.
int make_def_env(int lat_file, int lat_os, int lon_file, int lon_os);
