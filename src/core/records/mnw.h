// Window, input and timing state.
// Role: written by the window layer, the joystick and the frame; read by everyone.
#pragma once
#include "core/craft/dims.h"

constexpr int joy_axisDIM = 24;   // physical axes
constexpr int joy_butnDIM = 120;  // physical buttons
constexpr int joy_useDIM = 30;    // uses an axis can have

// What an axis is used for; axis[] and assigned[] are indexed by it.
enum axis_use : int {
    axis_ptch = 1, axis_roll, axis_hdng, axis_thro, axis_coll, axis_l_brake, axis_r_brake, axis_prop,
    axis_mixt, axis_heat, axis_vect, axis_swdi, axis_sbrk, axis_disp, axis_elev_trim, axis_ailn_trim,
    axis_rudd_trim, axis_thro_1, axis_prop_1 = 22, axis_mixt_1 = 26, axis_uses = 30,
};

// Window codes of top_win that code tests for. 0 is the flying view; -1 before the first window.
enum win_code : int {
    win_fly = 0, win_apt = 2, win_dat, win_wxr, win_tim, win_wgt, win_rel, win_acf, win_qfl, win_snd, win_ren,
    win_fdr = 13, win_joy, win_wrn, win_map, win_wrl, win_map_ios, win_log, win_ins, win_env, win_vew,
    win_map_2, win_pln,
    win_about = 991, win_generic_list = 992, win_nav_list = 993, win_apt_list = 994, win_ins_list = 995,
    win_alrt = 996, win_nuke = 997, win_open = 998, win_save = 999,
};

struct mnw_struct {
    int window, top_win, menu_up;
    float win_x, win_y, win_dx, win_dy;  // open window, virtual units
    int cursor_type, map_is_3d;
    int x_res_now, y_res_now, col_res_now, set_res_now, tex_res;
    int x_res_req, y_res_req, col_res_req, set_res_req;
    float x_off, y_off, xy_scale;                // virtual to real screen
    float x1_pix, y1_pix, x2_pix, y2_pix;
    float x1_rat, y1_rat, x2_rat, y2_rat;
    float mx, my;                                // mouse, virtual units of the open window
    int mouse_clicked, mouse_double_clicked, mouse_lifted, now_dragging, delay_dragging, mouse_wheel;
    int key_hit, key_pressed;
    float m_move_time, m_down_time;              // real_time
    int any_key_is_down, fire_key_is_down, starter_key_is_down;
    int Binet[datDIM], Bdisk[datDIM], disk_out, Bgraf[datDIM], Breal[datDIM];  // data rows wanted
    char key[97];                                // key table
    int Psumm[3];
    float dis_travelled;                         // m
    int has_QT_movie, movie_take, movie_in_prog, movie_dx, movie_dy;
    float movie_framerate;
    int has_joy, mouse_is_joy;
    float YK_ptch, YK_roll, YK_hdng;             // pilot's yoke and pedals, -1 to 1
    float AS_ptch, AS_roll, AS_hdng;             // stability augmentation
    float joy_null_rat[3], joy_power_rat[3], damp_rat[3];  // pitch, roll, heading
    int joy_AXIS_use[joy_axisDIM], joy_BUTN_use[joy_butnDIM], joy_rev_axis[joy_axisDIM];
    float lo_raw_dat[joy_axisDIM], hi_raw_dat[joy_axisDIM], joy_raw_dat[joy_axisDIM];
    int n_button_pressed[joy_butnDIM], o_button_pressed[joy_butnDIM];
    float axis[joy_useDIM];                      // by use
    int assigned[joy_useDIM];                    // a value has come this frame
    float PFC_thro_min[engnDIM], PFC_thro_max[engnDIM];
    int eq_ped_nobrk, eq_ped_wibrk, eq_FLcollec, eq_FLradios, eq_FLthroquad, eq_VRFseat, eq_rcjoy, eq_eDimensional;
    int eq_pfc_yoke, eq_pfc_pedals, eq_pfc_throt, eq_pfc_centercon, eq_pfc_switches, eq_pfc_brake_tog;
    int lang, keylist_up, start_qfl, paused;
    int framerateOK;                             // set once, never cleared
    int track_net;
    float bps_snd, bps_rcv;
    int track_cpu;                               // write the section profile
    int cyc_out;                                 // asks for one full written trace of the next half step
    int search_type, entry_field, typing_message;
    int voice_avail, voice_on, sound_avail, sound_on, headset_on, radio_chatter_on;
    float vol_rat;
    // clocks; doubles inside (core/program/clocks.h) publish these floats
    float prd_FM;                                // flight-model step, s, 0.001 to 0.08
    float prd_UI;                                // interface frame period, s
    float rt_rat_FM, rt_rat_UI;                  // last real over assumed period, 0.5 to 1.5
    float prd_max;                               // longest step the user accepts, s
    float real_time;                             // wall clock since the first frame, s
    float totl_time;                             // simulated seconds; replay moves it both ways
    float miss_time;                             // simulated seconds since the flight start
    float zulu_time, locl_time;                  // seconds of the day
    int locl_date_jan1;                          // days since January 1st, wraps 0 to 359
    float timr_time, hobs_time;
    int timer_running, use_sys_time;
    float sys_offset_hours;
    int first_miss_cycle;                        // 1 until the first APP_update of a flight has run
    int replay_mode;                             // 0 flying, 1 to 9 transport
    int puff01, puff02, puff05, puff1, puff2, puff5, puff10, puff20, puff40;  // periodic flags
    float pulse_alpha;                           // pulsing colour, 0.4 to 1
};
extern mnw_struct mnw;
