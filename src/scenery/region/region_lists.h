// What lies in the region: indexes into the world's tables of navigation.
// Role: built when all tiles of a region are there; read by menus, maps, radios, controllers and drawing.
// Each list holds the first that fit, in the order of its world table; what is over is left out.
#pragma once
#include "core/craft/dims.h"

constexpr int vor_lclDIM = 300, ndb_lclDIM = 300, fix_lclDIM = 1200, loa_lclDIM = 400,
              hia_lclDIM = 200;
extern int apt_lcl_to_wrl[apt_lclDIM], vor_lcl_to_wrl[vor_lclDIM], ndb_lcl_to_wrl[ndb_lclDIM];
extern int fix_lcl_to_wrl[fix_lclDIM], loa_lcl_to_wrl[loa_lclDIM], hia_lcl_to_wrl[hia_lclDIM];
// The last index that is used, -1 in an empty list.
extern int apt_lcl_max, vor_lcl_max, ndb_lcl_max, fix_lcl_max, loa_lcl_max, hia_lcl_max;

// Marks airports and aids of the region (in_reg), whether the lists have room for them or not, and fills the
// lists: airports by their first runway, airways by either end. Then runways, beacons and windsocks of its
// airports on their ground, msc.radio_busy_fac, and the menus.
void finish_region();
// Empties the lists, and the strips of their airports go.
void reset_region_lists();
