// The drawable airframe.
#pragma once

// Builds it for slot p, and its size.
void load_plane_geo(int reset_geo, int plot, int is_wpn, int p);
