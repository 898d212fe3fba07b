// The situation: switches and settings of the flight and the user's aircraft.
#pragma once
#include "core/craft/dims.h"

struct stg_struct {
    int datW_tab, joyW_tab, wxrW_tab, wgtW_tab, relW_tab, mapW_tab, insW_tab;  // open tab of each screen, from 0
    // paths below the install folder with colons; defaults, preferences
    char def_pln_path[strDIM], def_pln_file[strDIM];       // default aircraft: path, file name
    char def_apt_idst[strDIM];                            // default airport's identifier
    char acf_path_shuttle[strDIM], acf_path_tow[strDIM];   // aircraft of the special starts
    char acf_path_ref_airforce[strDIM], acf_path_ref_navy[strDIM], acf_path_carry[strDIM];  // the same
    float ref_v_ktas, ref_alt_ft, ref_psi_true;  // air-to-air refuelling: knots, ft, degrees; defaults
    float car_v_ktas, car_alt_ft, car_psi_true;  // carried launch: knots, ft, degrees; defaults
    int num_acf;                                 // slots in use, 1 to 10; aircraft screen, network
    // drawing; rendering screen
    int draw_reso_04;     // detail of the world, 0 to 4
    float LOD_bias_rat;   // distances of detail are divided by it, 1 as made
    int draw_objs_05;     // number of objects, 0 to 5
    int draw_vecs_03;     // number of roads, 0 to 3
    int draw_planet, draw_boats, draw_misc, draw_fires, draw_texlites, draw_gload;  // 0 or 1, each drawn
    int start_ramp;     // 0 or 1: start at a ramp instead of the runway; preferences
    int start_running;  // 0 or 1: start with engines running; preferences
    int warn_oV, warn_oG, warn_oVfe, warn_oVle;  // 0 or 1: a limit passed breaks something; operations screen
    // 0 or 1; operations screen
    int reset_on_crash;    // a crash starts the flight again
    int warn_text;         // warnings stand on the picture
    int warn_frame;        // a slow computer is told
    int auto_coord_helos;  // pedals of helicopters follow the torque
    int text_out;          // what is spoken stands on the picture
    int warn_bb;           // spoken ground-proximity warnings
    int cus_acf_to_place;                        // slot that the next custom start places; map
    float cus_lat, cus_lon, cus_alt, cus_psi, cus_v;  // custom start: degrees, m, true degrees, m/s; map
    float real_MTBF_hours;                       // mean time between failures, h; failures screen
    int fail_key_hit;                            // 0 or 1: the failures that wait for a key begin; keys
    int over_g, over_vne, over_vfe, over_vle;    // 0 or 1: limit passed in this flight; flight
    float parkbrake, l_brake_add, r_brake_add;   // set, and added by each pedal, 0 to 1; keys, joystick
    // electrics and engine switches; panel, keys, start of the flight
    int battery, avionics;       // 0 or 1
    int inverter[2];             // 0 or 1
    int igniter[engnDIM];        // 0 or 1
    float start_time[engnDIM];   // totl_time at which the starter stops, s
    int idle_speed[engnDIM];     // 0 fuel cock shut, 1 low, 2 high idle
    int fadec_on[engnDIM];       // 0 or 1
    int generator[engnDIM];      // 0 or 1
    int fuel_pump[engnDIM];      // 0 or 1
    float clutch_rat[engnDIM];   // friction clutch, 0 open to 1 closed
    float amvo_timeout[engnDIM]; // totl_time until which the starter's ammeter shows its load, s
    // 0 or 1: switches against ice; panel, keys
    int ice_all;                 // one switch for all
    int ice_pitot_heat, ice_auto_ignite, ice_inert_sep, ice_inlet_heat;  // probe, ignition, separator, inlets
    int ice_prop_heat, ice_surf_heat, ice_surf_boot, ice_window_heat;    // blades, wings by heat or boots, window
    int BB_pullup, BB_sinkrate, BB_gear;  // 0 or 1: ground-proximity warnings now active; instruments
    // cockpit switches; panel, keys, start of the flight
    int fuel_tank_sel;           // 0 off, 1 left, 2 centre, 3 right, 4 all
    int fuel_tank_xfr;           // 1 to 3: tank that fuel is pumped to, 0 none
    int dumping_fuel;            // 0 or 1
    int puffers_on;              // 0 or 1: attitude thrusters
    int prop_sync_on, RAT_on, yaw_damper_on, art_stab_on, HUD_on, chute_on, jato_on;  // 0 or 1
    int arrest_gear, water_scoop;  // 0 or 1: hook down, scoop down
    int tot_ener_audio, HSI_is_arc;  // 0 or 1
    int auto_brake_lvl;          // 0 rejected take-off, 1 off, 2 to 5
    int feather_mode;            // 0 off, 1 automatic, 2 test
    int nw_steering;             // 0 or 1: the nose wheel steers
    int pre_rotating, pre_rotate_level;  // 0 or 1: the rotor is driven by the engine; 0 or 1: harder
    int clutch_trq_engag;        // 0 or 1: the friction clutch is to close
    float chute_deploy_rat;      // drag chute, 0 to 1; flight
    float chute_vector_wrl[3];   // its line, world frame, for drawing; flight
    // annunciators; instruments, panel
    int ecam_warning;            // 0 or 1: the failures page has something new
    float warning_suppress_timeout, annunciator_test_timeout;  // totl_time until which none, all are lit, s
    float master_caution_timeout, master_warning_timeout, master_accept__timeout;  // totl_time until lit, s
    int master_caution_working, master_warning_working, master_accept__working;    // 0 or 1: not yet accepted
    int ann_code[18];            // 0 to 9: 0 or 1; 10 to 17: a bit for each engine
    // weapons; panel, keys
    int gun_armed, roc_armed, mis_armed, bom_armed;  // 0 or 1
    int fire_mode, fire_rate;    // stations at a press; ripple's rate, 1, 2, 5 or 10
    int p_targ;                  // slot aimed at, 1 to num_acf - 1, 0 none
    int wired;                   // 0 or 1: arresting wire caught; gear
    // transponder; panel, systems
    int tran_ID;                 // 0 or 1: identifies
    int tran_mode;               // 0 off, 1 standby, 2 on, 3 altitude, 4 test
    float tran_wink_time_left;   // s
    float tran_alpha;            // brightness of its lamp, 0 to 1
    float ah_bar;                // miniature aircraft of the horizon, units up; panel
    // pressure and supplies; panel, systems
    int bleed_air_on, apu_on;    // 0 or 1
    float cabin_alt_set_ft, cabin_vvi_set_fpm, cabin_alt_act_ft, cabin_vvi_act_fpm;  // asked for, actual
    float press_test_timeout;    // totl_time until which the cabin is tested, s
    float max_allowable_alt_ft;  // pressure altitude that the set cabin still bears, ft
    float trap_accel;            // deceleration by the arresting wire, m/s2; gear
    // catapult, aero tow, winch, carried launch: waiting for the brake to come off, or in progress
    int cat_waiting, cat_inprog, tow_waiting, tow_inprog;  // 0 or 1; start of the flight, flight
    int win_waiting, win_inprog, car_inprog;               // 0 or 1; the same
    float winxyz[3], win_len;    // winch, world frame, m; cable, m
    float cat_start_time;        // totl_time of the catapult's stroke, s
};
extern stg_struct stg;
