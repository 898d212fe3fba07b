// The situation: switches and settings of the flight and the user's aircraft.
#pragma once
#include "core/craft/dims.h"

struct stg_struct {
    int datW_tab, joyW_tab, wxrW_tab, wgtW_tab, relW_tab, mapW_tab,
        insW_tab;  // open tab of each settings window
    char def_pln_path[strDIM], def_pln_file[strDIM], def_apt_idst[strDIM];  // default aircraft and airport
    char acf_path_shuttle[strDIM], acf_path_tow[strDIM];                    // aircraft of the special starts
    char acf_path_ref_airforce[strDIM], acf_path_ref_navy[strDIM], acf_path_carry[strDIM];
    float ref_v_ktas, ref_alt_ft, ref_psi_true;  // air-to-air refuelling
    float car_v_ktas, car_alt_ft, car_psi_true;  // carried launch
    int num_acf;                                 // slots in use, 1 to 10
    int draw_reso_04;
    float LOD_bias_rat;
    int draw_objs_05, draw_vecs_03, draw_planet, draw_boats, draw_misc, draw_fires, draw_texlites, draw_gload;
    int start_ramp;     // start at a ramp instead of the runway
    int start_running;  // start with engines running
    // structural limits act only when their switch is on
    int warn_oV, warn_oG, warn_oVfe, warn_oVle;
    int reset_on_crash, warn_text, warn_frame, auto_coord_helos, text_out, warn_bb;
    int cus_acf_to_place;
    float cus_lat, cus_lon, cus_alt, cus_psi, cus_v;  // custom start: degrees, m, m/s
    float real_MTBF_hours;
    int fail_key_hit;
    int over_g, over_vne, over_vfe, over_vle;   // limits exceeded in this flight
    float parkbrake, l_brake_add, r_brake_add;  // 0 to 1
    int battery, avionics, inverter[2], igniter[engnDIM];
    float start_time[engnDIM];  // totl_time at which the starter stops
    int idle_speed[engnDIM], fadec_on[engnDIM], generator[engnDIM], fuel_pump[engnDIM];
    float clutch_rat[engnDIM], amvo_timeout[engnDIM];  // friction clutch, 0 open to 1 closed
    int ice_all, ice_pitot_heat, ice_auto_ignite, ice_inert_sep, ice_inlet_heat;
    int ice_prop_heat, ice_surf_heat, ice_surf_boot, ice_window_heat;
    int BB_pullup, BB_sinkrate, BB_gear;  // ground-proximity warnings now active
    int fuel_tank_sel, fuel_tank_xfr, dumping_fuel, puffers_on, prop_sync_on, RAT_on, yaw_damper_on;
    int art_stab_on, HUD_on, chute_on, jato_on, arrest_gear, water_scoop, tot_ener_audio, HSI_is_arc;
    int auto_brake_lvl, feather_mode, nw_steering, pre_rotating, pre_rotate_level, clutch_trq_engag;
    float chute_deploy_rat, chute_vector_wrl[3];  // drag chute; the vector is for drawing
    int ecam_warning;
    float warning_suppress_timeout, annunciator_test_timeout;
    float master_caution_timeout, master_warning_timeout, master_accept__timeout;
    int master_caution_working, master_warning_working, master_accept__working;
    int ann_code[18];
    int gun_armed, roc_armed, mis_armed, bom_armed, fire_mode, fire_rate, p_targ;
    int wired;  // arresting wire caught
    int tran_ID, tran_mode;
    float tran_wink_time_left, tran_alpha, ah_bar;
    int bleed_air_on, apu_on;
    float cabin_alt_set_ft, cabin_vvi_set_fpm, cabin_alt_act_ft, cabin_vvi_act_fpm;
    float press_test_timeout, max_allowable_alt_ft;
    float trap_accel;  // arresting wire, m/s2
    // waiting for the brake to come off, or in progress
    int cat_waiting, cat_inprog, tow_waiting, tow_inprog, win_waiting, win_inprog, car_inprog;
    float winxyz[3], win_len, cat_start_time;
};
extern stg_struct stg;
