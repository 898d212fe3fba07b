// The current scenery region and what is under the aircraft.
#pragma once
#include "core/craft/dims.h"

struct env_struct {
    int planet;             // 0 Earth, 1 Mars
    float lat_sou, lon_wes; // south-west corner of the region, whole degrees
    float reg_x1_mtr, reg_x2_mtr, reg_y1_mtr, reg_y2_mtr, reg_z1_mtr, reg_z2_mtr;  // extent, world frame
    float mag_var;          // added to a true heading gives the magnetic one, degrees
    int surf_tex;           // surface code under the aircraft
    float roughness;
    int over_carr, over_frig, over_obs_this, over_obs_last, over_rwy_this, over_rwy_last;
    float obj_y_top;
    float terrain_ctr[3], terrain_nrm[3], terrain_vel[3];  // ground under the last query
    float boat_x[boatDIM], boat_y[boatDIM], boat_z[boatDIM];
    float boat_the[boatDIM], boat_psi[boatDIM], boat_phi[boatDIM];
    float boat_vthe[boatDIM], boat_vpsi[boatDIM], boat_vphi[boatDIM];
    float jet_vel[3], jet_line[2][3];                      // slung load
    float tow_line[2][3], tow_line_alph, tow_line_beta;
};
extern env_struct env;

// Region size and the offset of its centre from the south-west corner, degrees, by planet.
constexpr int lat_secs[2] = {2, 8};
constexpr int lon_secs[2] = {3, 12};
constexpr double lat_secs_os[2] = {1.0, 4.0};
constexpr double lon_secs_os[2] = {1.5, 6.0};
