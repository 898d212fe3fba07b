// Routines of this folder that do not exist yet: each call stands in its place in the frame and gets its
// neutral answer here. The file shrinks as they are built.
#include "aircraft/draw/plane_draw.h"
#include "aircraft/file/acf_old.h"
#include "aircraft/file/weapon_file.h"

// No older files, no weapon files.
int OLD_IO_acf(const std::string&, int) { return 0; }
int IO_wpn(int, int, int, const std::string&, const std::string&, int) { return 0; }

// No aircraft around its own cockpit, no weapons.
void plot_plane_3D(int, int) {}
void plot_weapon(int, int) {}
