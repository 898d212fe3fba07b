// What stands and drifts in the scene beside aircraft and terrain: forest fires and the wakes of ships.
// Role: placed and moved by the region, drawn by the scene. Positions are metres in the world frame.
#pragma once
#include "core/craft/dims.h"

constexpr int fireDIM = 10, wakeDIM = 30;  // fires; rows of a wake

struct scn_struct {
    // forest fires; region
    float firexyz[fireDIM][3];  // places, m
    int fire_on[fireDIM];       // 0 or 1: it burns; water puts it out
    int fire_avail;             // 0 or 1: there are fires in the region
    int vis_math_level;         // drawing of the model's forces, 0 none to 4: wind from 3 on; commands
    int apt_is_vis[apt_lclDIM];  // 0 or 1: a runway of that airport of the region is in view; frame
    // wakes, by ship; ships
    float cp[boatDIM][wakeDIM][3][7];  // rows, three points across: x, z, m; drift, m/s; half width, m; age, s
    int connect[boatDIM][wakeDIM];         // 0 or 1: the row goes on from the one before
    int e_base[boatDIM];                   // newest row, 0 to 29
    float xlast[boatDIM], zlast[boatDIM];  // where the last row was left, m
};
extern scn_struct scn;
