// Routines of this folder that do not exist yet: each call stands in its place in the frame and gets its neutral
// answer here. The file shrinks as they are built.
#include "aircraft/draw/geometry.h"
#include "aircraft/file/acf_old.h"
#include "aircraft/file/weapon_file.h"
#include "core/program/upward.h"

// No older files, no outer picture, no weapon files.
int OLD_IO_acf(const std::string&, int) { return 0; }
void load_plane_geo(int, int, int, int) {}
int IO_wpn(int, int, int, const std::string&, const std::string&, int) { return 0; }
void plot_airplanes(int) {}
