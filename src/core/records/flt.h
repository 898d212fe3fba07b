// Flight state of the ten aircraft slots.
// Role: everything that moves. Slot 0 is integrated by forces, the others by simple means.
// Axes: world x east, y up, z south, metres from the region's centre; aircraft x right, y up, z aft.
// L, M, N are the moments about aircraft z, x, y in that order, N m.
#pragma once
#include "core/craft/dims.h"

// One wing-like part (blade, surface, pylon).
struct flt_wing_struct {
    float v_el[elDIM][bladDIM];        // flow speed at element and blade, m/s
    float alpha_el[elDIM][bladDIM];    // angle of attack there, degrees
    float downwash_deg[elDIM];         // downwash met, from the step before, degrees
    float del_dir[elDIM][bladDIM];     // turn of the local flow from the free stream, degrees
    float CL_grndeffect, CD_grndeffect;  // factors on lift and on induced drag
    float Q_centroid_loc[bladDIM];     // load factor of an uneven dynamic pressure, 1 even to 0
    float Q_centroid_MULT[bladDIM];    // the same value, for readers of the record
    int stalled;                       // of the last element evaluated
    float nrml_force_path, axil_force_path;  // sum of element lift and drag of this step, N
    float force_XYZ[elDIM][3];         // last force of each element: side, normal, axial, N (path axes)
    // present deflections, degrees
    float ail1_def, ail2_def, spo1_def, spo2_def, yawb_def;
    float elev_def, rud1_def, rud2_def, fla1_def, fla2_def;
    float foil_swe_inc, foil_dih_inc;  // sweep and dihedral beyond the rest position, degrees
    float elem_inc_inc[elDIM];         // incidence added by linkages and trim, degrees
    float sin_act_dihed, cos_act_dihed, sin_act_sweep, cos_act_sweep;
};

// One engine or thrust point.
struct flt_engn_struct {
    float XYZ[3];                      // disc centre in aircraft axes, m
    float vert_nace_vector;            // nacelle tilt, degrees
    float vert_disc_vector;            // disc tilt without cyclic, degrees
    float vert_disc_cyclic;            // disc tilt with cyclic and control phasing, degrees
    float side_disc_cyclic;
    float cyclic_elev_command, cyclic_ailn_command;
    float cyclic_elev_blad_alph, cyclic_ailn_blad_alph;
    float cyclic_elev_disc_tilt, cyclic_ailn_disc_tilt;
    float thro_ref;                    // throttle as set, 0 to 1
    float thro_use;                    // throttle as the engine gets it
    float prop_rsc;                    // propeller speed asked of the governor, rad/s
    float mixt, heat, cowl;            // levers, 0 to 1
    int ignition;                      // 0 off, 1 left, 2 right, 3 both
    int prop_mode;                     // 0 feather, 1 normal, 2 beta, 3 reverse
    int burning_fuel;
    float burning_rat;
    int burner_on;
    float burner_rat;
    float N1, N2, MPR, EPR;
    float TRQ_nm;
    float FF_kgs;
    float ITT, EGT, CHT;
    float FUELP, OILP, OILT, OILQ;
    float gen_amp, bat_amp, bat_volt;  // bat_volt is a ratio, 1 full
    float sigma;
    float carb_ice;
    float oil_lube_rat;
    float power;                       // W
    float omegadot_ENGN, tacrad_ENGN;  // rad/s2, rad/s
    float omegadot_PROP, tacrad_PROP;
    float prop_ang_deg;
    float drag_TRQ;
    float thrust;                      // N
    float prop_eff;
    float pitch_deg_ref, pitch_deg_use;
    float cone_rad;
    float side_wash;                   // swirl speed behind the disc, m/s
    float DVinc;                       // speed the disc adds to the air, m/s
    float RING_DVinc[elDIM];
    float Q_rotor_rad, R_rotor_rad;
};

// One gear leg.
struct flt_gear_struct {
    float tire_TRQ, tire_vrt_def_veh, tire_vrt_frc_veh;
    float tire_skid_rat, tire_drag_dis, tire_net_thrust, tire_net_power;
    float tire_omega, tire_rot_deg, term_omega, tire_steer;
    float gear_psi, gear_the, gear_phi;  // direction of the leg, degrees
};

struct flt_struct {
    int update_type;        // update_kind
    int ip_from_int;        // peer that drives the slot
    float last_time_rcvd;   // real_time of its last message
    float FC_ptch, FC_roll, FC_hdng;      // control commands after augmentation, -1 to 1
    float sbrk_rqst, sbrk_rat;            // speed brake asked for and actual, 0 to 1; -0.5 is armed
    float swdi_rqst, swdi_rat;            // wing sweep or dihedral
    float handle_rat_req, handle_rat_act; // flap handle
    float slat_rat, fla1_rat, fla2_rat;
    float vect_rqst, vect_rat;
    int gear_handle;                      // 1 is down
    float ailn_trim, elev_trim, rudd_trim, rotr_trim;  // -1 to 1
    float stab_def;                       // stabiliser deflection, degrees
    // lateral row
    float vx_air_on_acf, vx_acf_axis, lift_path_axis;
    float faxil_prop_acf, faxil_aero_acf, faxil_gear_acf;
    float g_nrml, ax, vx;
    float L, Pdot, P, Prad, phi;
    // vertical row
    float vy_air_on_acf, vy_acf_axis, drag_path_axis;
    float fnrml_prop_acf, fnrml_aero_acf, fnrml_gear_acf;
    float g_axil, ay, vy;
    float M, Qdot, Q, Qrad, the;
    // longitudinal row
    float vz_air_on_acf, vz_acf_axis, side_path_axis;
    float fside_prop_acf, fside_aero_acf, fside_gear_acf;
    float g_side, az, vz;
    float N, Rdot, R, Rrad, psi;
    float g_total;
    float q[4];                    // attitude quaternion, scalar first
    float alpha, beta;             // degrees
    float h_path, v_path;          // true track and flight-path angle, degrees
    float sin_the, cos_the, sin_psi, cos_psi, sin_phi, cos_phi;
    float sin_alph, cos_alph, sin_beta, cos_beta;
    float V_msc, AV_msc;           // speed over the world frame, true airspeed
    float AV_sig_kts;              // equivalent airspeed
    float Qstatic, Mach;
    float Vh_fpm;                  // true vertical speed
    float psi_mag_act;             // magnetic heading
    float terrain_y_cg;            // terrain under the aircraft, world y
    float y_agl_mtr;               // gear above terrain, m
    double dob_x, dob_y, dob_z;    // position, world frame
    double dob_lat, dob_lon, dob_ele;  // degrees, metres above the sphere
    float dat_x, dat_y, dat_z;     // float copies for those who read and do not integrate
    float dat_lat, dat_lon, dat_ele;
    // instruments
    float v_ind_kts, h_ind_ft, TR_roll_ind_deg, TR_hdng_ind_deg, slip_ind_deg, vvi_ind_fpm;
    float the_ind[2], psi_ind_mag[2], phi_ind[2];      // 0 vacuum gyro, 1 electric gyro
    float com_ind_mag;                                 // magnetic compass
    float gyro_force[2], gyro_spin[2], dg_drift[2];
    // masses
    float m_fixed, m_fuel[fuelDIM], m_fuel_total, m_jettison, m_total;  // kg
    float Jxx_total, Jyy_total, Jzz_total;             // kg m2
    float cgz_ref_to_default;                          // the user's centre-of-gravity shift, m aft
    float jett_size, jett_len;
    char fail_stat[failDIM];
    float fail_tm_v[failDIM];
    // overall coefficients, for display only
    float C_m, C_n, cl_overall, cd_overall, l_o_d;
    int nav_lite, bea_lite, str_lite, str_inflash, lan_lite, tax_lite, lite_map, smoking;
    float bea_alpha;
    float pitot_ice, prop_ice, inlet_ice, window_ice, frame_ice;
    int onground_any, onground_all, stall_warning, lo_rotor_warning, ai_app_mode;
    int rocket_mode;               // 402 to 407 selects a manoeuvring rocket
    int is_dumping_water;
    float rocket_timeout, prop_ospeed_test_timeout, jato_left;
    float disp_rat, vacuum, hyd_rat, blown_flap_engage_rat, lift_fan_total_power, pre_rot_total_power;
    // one per part; fixed arrays, so that an address taken once stays good
    flt_engn_struct engn[engnDIM];
    flt_wing_struct wing[wingDIM];
    flt_gear_struct gear[gearDIM];
};
extern flt_struct flt[vehDIM];

// Zeroes slot p: a valid start for every element.
void clear_flt(int p);
