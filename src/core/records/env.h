// The current scenery region and what is under the aircraft.
#pragma once
#include "core/craft/dims.h"

struct env_struct {
    // the region; paging of regions, start of the flight
    int planet;              // 0 Earth, 1 Mars
    float lat_sou, lon_wes;  // south-west corner, whole degrees
    float reg_x1_mtr, reg_x2_mtr, reg_y1_mtr, reg_y2_mtr, reg_z1_mtr, reg_z2_mtr;  // extent, world frame, m
    float mag_var;           // added to a true heading gives the magnetic one, degrees; frame
    // under the user's aircraft; terrain queries, drawing of what stands there
    int surf_tex;            // surface code, 0 unknown
    float roughness;         // bumps of the runway, 0 smooth
    int over_carr, over_frig;          // 0 or 1: over the carrier's, the frigate's deck
    int over_obs_this, over_obs_last;  // 0 or 1: over a roof in this frame, in the last
    int over_rwy_this, over_rwy_last;  // 0 or 1: over a runway in this frame, in the last
    float obj_y_top;         // height of that roof, world y, m
    // ground of the last query, world frame: a point, the normal, its speed
    float terrain_ctr[3], terrain_nrm[3], terrain_vel[3];  // m; unit; m/s
    // ships: place in the world frame, m; angles, degrees; their rates, degrees/s
    float boat_x[boatDIM], boat_y[boatDIM], boat_z[boatDIM];           // m
    float boat_the[boatDIM], boat_psi[boatDIM], boat_phi[boatDIM];     // degrees
    float boat_vthe[boatDIM], boat_vpsi[boatDIM], boat_vphi[boatDIM];  // degrees/s
    // lines, world frame, from the aircraft to the other end; flight
    float jet_vel[3], jet_line[2][3];  // slung load: velocity, m/s; ends of its line, m
    float tow_line[2][3];              // aero tow or winch: ends of the line, m
    float tow_line_alph, tow_line_beta;  // its angles from the aircraft's axis, degrees
};
extern env_struct env;

// Region size and the offset of its centre from the south-west corner, degrees, by planet.
constexpr int lat_secs[2] = {2, 8};
constexpr int lon_secs[2] = {3, 12};
constexpr double lat_secs_os[2] = {1.0, 4.0};
constexpr double lon_secs_os[2] = {1.5, 6.0};
