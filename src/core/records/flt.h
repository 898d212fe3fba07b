// Flight state of the ten aircraft slots.
// Role: everything that moves. Slot 0 is integrated by forces, the others by simple means.
// Axes: world x east, y up, z south, metres from the region's centre; aircraft x right, y up, z aft.
// L, M, N are the moments about aircraft z, x, y in that order, N m.
#pragma once
#include "core/craft/part_ranges.h"

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
    float ail1_def, ail2_def, spo1_def, spo2_def, yawb_def;  // signs of each: aircraft/deflect.cpp
    float elev_def, rud1_def, rud2_def, fla1_def, fla2_def;  // the same
    float foil_swe_inc, foil_dih_inc;  // sweep and dihedral beyond the rest position, degrees
    float elem_inc_inc[elDIM];         // incidence added by linkages and trim, degrees
    float sin_act_dihed, cos_act_dihed, sin_act_sweep, cos_act_sweep;  // of the part as it stands now
};

// One engine or thrust point.
struct flt_engn_struct {
    float XYZ[3];                      // disc centre in aircraft axes, m
    float vert_nace_vector;            // nacelle tilt, degrees
    float vert_disc_vector;            // disc tilt without cyclic, degrees
    float vert_disc_cyclic;            // disc tilt with cyclic and control phasing, degrees
    float side_disc_cyclic;            // the same sideways, degrees
    float cyclic_elev_command, cyclic_ailn_command;      // cyclic asked for, degrees; deflections
    float cyclic_elev_blad_alph, cyclic_ailn_blad_alph;  // of it what the blades do by pitch, degrees; disc
    float cyclic_elev_disc_tilt, cyclic_ailn_disc_tilt;  // of it what the disc does by tilt, degrees; disc
    float thro_ref;                    // throttle as set, 0 to 1
    float thro_use;                    // throttle as the engine gets it
    float prop_rsc;                    // propeller speed asked of the governor, rad/s
    float mixt, heat, cowl;            // levers, 0 to 1
    int ignition;                      // 0 off, 1 left, 2 right, 3 both
    int prop_mode;                     // 0 feather, 1 normal, 2 beta, 3 reverse
    int burning_fuel;                  // 0 or 1: it burns; engines
    float burning_rat;                 // follows burning_fuel, 0 to 1
    int burner_on;                     // 0 or 1: afterburner asked for; engine_control
    float burner_rat;                  // follows burner_on, 0 to 1
    float N1, N2, MPR, EPR;            // percent, percent, inches of mercury, ratio; engines
    float TRQ_nm;                      // torque at the engine, N m; engines
    float FF_kgs;                      // fuel flow, kg/s; engines
    float ITT, EGT, CHT;               // temperatures as shown, in the file's scale; engines
    float FUELP, OILP, OILT, OILQ;     // fuel pressure, oil pressure, temperature, quantity, as shown; engines
    float gen_amp, bat_amp, bat_volt;  // A, A, and charge as a ratio, 1 full; systems
    float sigma;                       // density that the engine breathes, over 1.225 kg/m3; engines
    float carb_ice;                    // 0 to 1; systems
    float oil_lube_rat;                // how well it is oiled, 0 to 1; engines
    float power;                       // W
    float omegadot_ENGN, tacrad_ENGN;  // rad/s2, rad/s
    float omegadot_PROP, tacrad_PROP;  // rad/s2, rad/s; shafts
    float prop_ang_deg;                // where the first blade is, degrees, for drawing
    float drag_TRQ;                    // torque of the blades on the shaft, N m, for the next half step; disc
    float thrust;                      // N
    float prop_eff;                    // thrust power over shaft power; disc
    float pitch_deg_ref, pitch_deg_use;  // blade pitch set and with droop and cyclic, degrees
    float cone_rad;                    // coning angle, rad; disc
    float side_wash;                   // swirl speed behind the disc, m/s
    float DVinc;                       // speed the disc adds to the air, m/s
    float RING_DVinc[elDIM];           // the same ring by ring, m/s
    float Q_rotor_rad, R_rotor_rad;    // rates of the tilting disc itself, rad/s
};

// One gear leg.
struct flt_gear_struct {
    float tire_TRQ;                      // torque on the wheel, N m; contact
    float tire_vrt_def_veh, tire_vrt_frc_veh;  // deflection, m, and force, N, along aircraft y; contact
    float tire_skid_rat;                 // 0 rolls, 1 skids; contact
    float tire_drag_dis;                 // distance skidded, m; contact
    float tire_net_thrust, tire_net_power;  // N and W of a driven wheel; contact
    float tire_omega, tire_rot_deg;      // rad/s, degrees turned; contact
    float term_omega;                    // rad/s at which it would roll; contact
    float tire_steer;                    // steering angle, degrees; steer_nosewheel
    float gear_psi, gear_the, gear_phi;  // direction of the leg, degrees
};

// Manoeuvring rockets, by where they push the aircraft.
enum manoeuvring_rocket : int {
    rocket_aft = 402,
    rocket_forward = 403,
    rocket_right = 404,
    rocket_left = 405,
    rocket_up = 406,
    rocket_down = 407,
};

struct flt_struct {
    int update_type;        // update_kind
    int ip_from_int;        // peer that drives the slot
    float last_time_rcvd;   // real_time of its last message
    float FC_ptch, FC_roll, FC_hdng;      // control commands after augmentation, -1 to 1
    float sbrk_rqst, sbrk_rat;            // speed brake asked for and actual, 0 to 1; -0.5 is armed
    float swdi_rqst, swdi_rat;            // wing sweep or dihedral asked for and actual, 0 to 1; deflections
    float handle_rat_req, handle_rat_act; // flap handle asked for and actual, 0 to 1; deflections
    float slat_rat, fla1_rat, fla2_rat;   // slats and both flaps, 0 to 1; deflections
    float vect_rqst, vect_rat;            // thrust vector asked for and actual, 0 to 1; deflections
    int gear_handle;                      // 1 is down
    float ailn_trim, elev_trim, rudd_trim, rotr_trim;  // -1 to 1
    float stab_def;                       // stabiliser deflection, degrees
    // the lateral row; of slot 0 all are written by the half step
    float vx_air_on_acf, vx_acf_axis;  // air that meets the aircraft and its own velocity, aircraft x, m/s
    float lift_path_axis;              // sum of element forces across the flow, N
    float faxil_prop_acf, faxil_aero_acf, faxil_gear_acf;  // force sums, aircraft z (aft), N
    float g_nrml;                      // load factor up
    float ax, vx;                      // world x (east): m/s2, m/s
    float L, Pdot, P, Prad;            // roll: moment about z, N m; deg/s2, deg/s, rad/s; right wing down
    float phi;                         // bank, degrees, -180 to 180
    // the vertical row
    float vy_air_on_acf, vy_acf_axis;  // the same, aircraft y, m/s
    float drag_path_axis;              // sum of element forces along the flow, N
    float fnrml_prop_acf, fnrml_aero_acf, fnrml_gear_acf;  // force sums, aircraft y (up), N
    float g_axil;                      // load factor aft
    float ay, vy;                      // world y (up): m/s2, m/s
    float M, Qdot, Q, Qrad;            // pitch: moment about x, N m; deg/s2, deg/s, rad/s; nose up
    float the;                         // pitch, degrees, -90 to 90
    // the longitudinal row
    float vz_air_on_acf, vz_acf_axis;  // the same, aircraft z, m/s
    float side_path_axis;              // sum of element forces sideways, N
    float fside_prop_acf, fside_aero_acf, fside_gear_acf;  // force sums, aircraft x (right), N
    float g_side;                      // load factor to the right
    float az, vz;                      // world z (south): m/s2, m/s
    float N, Rdot, R, Rrad;            // yaw: moment about y, N m; deg/s2, deg/s, rad/s; nose right
    float psi;                         // true heading, degrees, 0 to 360
    float g_total;                     // length of the load, g; half step
    float q[4];                    // attitude quaternion, scalar first
    float alpha, beta;             // degrees
    float h_path, v_path;          // true track and flight-path angle, degrees
    float sin_the, cos_the, sin_psi, cos_psi, sin_phi, cos_phi;  // of the attitude, cached behind each half step
    float sin_alph, cos_alph, sin_beta, cos_beta;                // of the flow, cached with it
    float V_msc, AV_msc;           // speed over the world frame, true airspeed, m/s
    float AV_sig_kts;              // equivalent airspeed, knots
    float Qstatic, Mach;           // dynamic pressure of AV_msc, Pa; its Mach number
    float Vh_fpm;                  // true vertical speed, feet a minute
    float psi_mag_act;             // magnetic heading, degrees, 0 to 360
    float terrain_y_cg;            // terrain under the aircraft, world y
    float y_agl_mtr;               // gear above terrain, m
    double dob_x, dob_y, dob_z;    // position, world frame
    double dob_lat, dob_lon, dob_ele;  // degrees, metres above the sphere
    float dat_x, dat_y, dat_z;     // float copies for those who read and do not integrate
    float dat_lat, dat_lon, dat_ele;  // the same
    // instruments, with their failures; instruments, and the gyros by systems
    float v_ind_kts, h_ind_ft;     // airspeed, knots; altitude by the barometer's setting, feet
    float TR_roll_ind_deg, TR_hdng_ind_deg;  // turn needles, degrees, -60 to 60
    float slip_ind_deg;            // ball, degrees, -8 to 8
    float vvi_ind_fpm;             // climb, feet a minute
    float the_ind[2], psi_ind_mag[2], phi_ind[2];  // degrees: 0 vacuum gyro, 1 electric gyro
    float com_ind_mag;             // magnetic compass, degrees, 0 to 360
    float gyro_force[2], gyro_spin[2];  // what drives them and how fast they turn, 0 to 1
    float dg_drift[2];             // drift of the heading gyros, degrees, -180 to 180
    // masses
    float m_fixed, m_fuel[fuelDIM], m_fuel_total, m_jettison, m_total;  // kg
    float Jxx_total, Jyy_total, Jzz_total;             // kg m2
    float cgz_ref_to_default;                          // the user's centre-of-gravity shift, m aft
    float jett_size, jett_len;     // of the slung load and its line, m; systems
    char fail_stat[failDIM];       // state of each failure; fail_active acts
    float fail_tm_v[failDIM];      // its time, speed or height, by its state; failure clocks
    // overall coefficients, for display only
    float C_m, C_n, cl_overall, cd_overall, l_o_d;  // moments nose up and nose right, lift, drag, lift over drag
    int nav_lite, bea_lite, str_lite, str_inflash, lan_lite, tax_lite;  // 0 or 1: switches; str_inflash: it shines now
    int lite_map;                  // 0 or 1: the whole aircraft is lit for the map
    int smoking;                   // 0 or 1: display smoke
    float bea_alpha;               // brightness of the beacon now, 0 to 1
    float pitot_ice, prop_ice, inlet_ice, window_ice, frame_ice;  // 0 to 1; system_ice
    int onground_any, onground_all;  // 0 or 1: any gear, all gear on a surface; contact
    int stall_warning, lo_rotor_warning;  // 0 or 1; behind both half steps, warnings
    int ai_app_mode;               // what the AI pilot is about
    int rocket_mode;               // manoeuvring_rocket; any other number fires none
    int is_dumping_water;          // 0 or 1: the bomber's doors are open
    float rocket_timeout, prop_ospeed_test_timeout;  // totl_time until which they act, s
    float jato_left;               // s of thrust
    float disp_rat;                // share of the envelope that is filled, 0 to 1
    float vacuum, hyd_rat;         // vacuum and hydraulic pressure, 0 to 1; systems
    float blown_flap_engage_rat;   // 0 to 1; half step
    float lift_fan_total_power, pre_rot_total_power;  // W tapped from the engines in this half step
    // one per part; fixed arrays, so that an address taken once stays good
    flt_engn_struct engn[engnDIM];  // engines and thrust points
    flt_wing_struct wing[wingDIM];  // blades and surfaces
    flt_gear_struct gear[gearDIM];  // legs
};
extern flt_struct flt[vehDIM];

// Zeroes slot p: a valid start for every element.
void clear_flt(int p);
