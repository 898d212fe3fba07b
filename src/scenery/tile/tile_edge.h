// The seams between tiles: what lies on a tile's eastern and northern edge is kept for its neighbours, whose
// vertices on the common edge take its place, so that no crack shows. Role: tiles of a region load south to
// north, and west to east in each row. One load at a time.
#pragma once
#include "scenery/ground/tile.h"

enum edge_op : int {
    edge_clear = 0,  // the whole table, when a region reloads
    edge_keep_right = 1,
    edge_keep_top = 2,
    edge_take_left = 3,
    edge_take_bottom = 4,  // from the western and the southern neighbour
};
void handle_edge(int lon_os, int lat_os, d3_struct* geo, d3_struct* nrm, int type_op);
// Forgets what this tile has kept, when another candidate for it is tried.
void forget_edges_of(int lon_os, int lat_os);
