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
    // windows; all places in virtual units of the 1024 by 768 screen, from its lower left
    int window;                // native window number of the drawing surface; window layer
    int top_win;               // win_code of the open window; set_window
    int menu_up;               // open entry of the menu bar, -1 none; menus
    float win_x, win_y;        // lower left of the open window; set_window, dragging
    float win_dx, win_dy;      // size of the open window; its screen
    int cursor_type;           // cursor of this frame: 0 the system's, 1 hidden, 2 to 11 drawn; what the mouse is over
    int map_is_3d;             // 0 or 1: the map is drawn as relief; map
    // screens, pixels and bits a colour; now: as it is, req: as the user asks for the next start; preferences
    int x_res_now, y_res_now, col_res_now;  // of the drawing surface; window layer
    int set_res_now;           // 0 or 1: the desktop was switched to it; window layer
    int tex_res;               // texture resolution, 0 coarsest to 5 whole; preferences
    int x_res_req, y_res_req, col_res_req;  // asked for; preferences
    int set_res_req;           // 0 or 1: switch the desktop to it; preferences
    // from virtual units to the real screen, written with each size of it by the window layer
    float x_off, y_off;        // bars beside the 1024 by 768, virtual units
    float xy_scale;            // pixels a unit
    float x1_pix, y1_pix, x2_pix, y2_pix;  // the whole screen's edges, virtual units
    float x1_rat, y1_rat, x2_rat, y2_rat;  // frustum's edges over its near plane; views
    // mouse and keys, written by the frame from the events of the last one
    float mx, my;              // mouse, virtual units of the open window
    int mouse_clicked;         // 0 or 1: the button went down in this frame
    int mouse_double_clicked;  // 0 or 1: the second time within 0.25 s
    int mouse_lifted;          // 0 or 1: the button came up in this frame
    int now_dragging;          // 0 or 1: the button is held
    int delay_dragging;        // 0 or 1: it has been held for 0.25 s
    int mouse_wheel;           // notches of this frame, positive up
    int key_hit;               // 0 or 1: a key went down in this frame
    int key_pressed;           // its code: ASCII, 50000 to 50003 shifted arrows
    float m_move_time;         // last movement or click, real_time, s
    float m_down_time;         // last click, real_time, s
    int any_key_is_down, fire_key_is_down, starter_key_is_down;  // 0 or 1, held now; key handler
    // what the user wants of each data row, 0 or 1; data screen, network, plugins
    int Binet[datDIM];         // sent to the network
    int Bdisk[datDIM];         // written to the file
    int disk_out;              // 0 or 1: any row goes to the file; data screen
    int Bgraf[datDIM];         // drawn as a curve
    int Breal[datDIM];         // shown in the cockpit
    char key[97];              // command of each row of the key table; key table's screen and file
    int Psumm[3];              // 0 or 1: reports of parts shown in the cockpit; data screen
    float dis_travelled;       // way flown since the start of the flight, m; flight
    // films, written by their screen
    int has_QT_movie;          // 0 or 1: films can be written here
    int movie_take;            // 0 or 1: a film is asked for
    int movie_in_prog;         // 0 or 1: frames are being written
    int movie_dx, movie_dy;    // size, pixels
    float movie_framerate;     // pictures a second
    // controls
    int has_joy;               // 0 or 1: an axis has answered; joystick
    int mouse_is_joy;          // 0 or 1: the mouse is the yoke; window layer
    float YK_ptch, YK_roll, YK_hdng;             // pilot's yoke and pedals, -1 to 1; joystick, mouse, network, AI
    float AS_ptch, AS_roll, AS_hdng;             // stability augmentation, -1 to 1; artificial stability
    // by axis: pitch, roll, heading; joystick screen
    float joy_null_rat[3];     // half-width of the dead zone, 0 to 0.5
    float joy_power_rat[3];    // response, 0 linear to 1 most curved
    float damp_rat[3];         // stability aid of the user, 0 to 1
    // by physical axis or button
    int joy_AXIS_use[joy_axisDIM];   // axis_use, 0 none; joystick screen
    int joy_BUTN_use[joy_butnDIM];   // use of each button, 0 none; joystick screen
    int joy_rev_axis[joy_axisDIM];   // 0 or 1: reversed; joystick screen
    float lo_raw_dat[joy_axisDIM], hi_raw_dat[joy_axisDIM];  // least and greatest raw value seen; joystick
    float joy_raw_dat[joy_axisDIM];  // last raw value, in the device's numbers; joystick
    int n_button_pressed[joy_butnDIM], o_button_pressed[joy_butnDIM];  // 0 or 1: held now, a frame ago; joystick
    float axis[joy_useDIM];    // value by use: pitch, roll, heading -1 to 1, the rest 0 to 1; joystick
    int assigned[joy_useDIM];  // 0 or 1: a value has come this frame; joystick
    float PFC_thro_min[engnDIM], PFC_thro_max[engnDIM];  // throttle's raw span on serial hardware; its reader
    // 0 or 1: equipment the user has; joystick screen
    int eq_ped_nobrk, eq_ped_wibrk;  // pedals without and with toe brakes
    int eq_FLcollec;           // collective lever
    int eq_FLradios;           // radio stack
    int eq_FLthroquad;         // throttle quadrant
    int eq_VRFseat;            // moving seat
    int eq_rcjoy;              // remote control of a model
    int eq_eDimensional;       // spectacles for depth
    int eq_pfc_yoke, eq_pfc_pedals, eq_pfc_throt, eq_pfc_centercon, eq_pfc_switches;  // units on the serial line
    int eq_pfc_brake_tog;      // its brake is a toggle
    // program
    int lang;                  // language_code; preferences
    int keylist_up;            // 0 or 1: the menus show keys; preferences
    int start_qfl;             // 0 or 1: the quick flight screen opens at the start; preferences
    int paused;                // 0 or 1; keys, commands, network
    int framerateOK;           // 0 or 1: set once, never cleared; frame-rate governor
    int track_net;             // 0 or 1: count the bytes of the network; diagnostics
    float bps_snd, bps_rcv;    // bytes a second sent and received; network
    int track_cpu;             // 0 or 1: write the section profile; diagnostics
    int cyc_out;               // 0 or 1: asks for one full written trace of the next half step; keys
    int search_type;           // what the open search field looks for; lists
    int entry_field;           // text field that has the keyboard, -1 none; widgets
    int typing_message;        // 0 or 1: a message to the peers is being typed; keys
    int voice_avail, voice_on;         // 0 or 1: speech can be had, is wanted; sound screen
    int sound_avail, sound_on;         // 0 or 1: a device answered, sound is wanted; sound, its screen
    int headset_on, radio_chatter_on;  // 0 or 1: muffled as by a headset, chatter on COM; sound screen
    float vol_rat;             // 0 to 1; sound screen
    // clocks; doubles inside (core/program/clocks.h) publish these floats
    float prd_FM;              // flight-model step, s, 0.001 to 0.08; frame
    float prd_UI;              // interface frame period, s; frame
    float rt_rat_FM, rt_rat_UI;  // last real over assumed period, 0.5 to 1.5; frame
    float prd_max;             // longest step before visibility goes for frame rate, s; preferences
    float real_time;           // wall clock since the first frame, s; clocks
    float totl_time;           // simulated seconds; replay moves it both ways; clocks
    float miss_time;           // simulated seconds since the flight start; clocks
    float zulu_time, locl_time;  // seconds of the day; clocks, time screen, network
    int locl_date_jan1;        // days since January 1st, wraps 0 to 359; clocks, time screen
    float timr_time;           // panel timer, s, wraps at 3600; clocks, panel
    float hobs_time;           // hour meter, s; loading of an aircraft, clocks
    int timer_running;         // 0 or 1; panel
    int use_sys_time;          // 0 or 1: the day's time is the computer's; time screen
    float sys_offset_hours;    // added to the computer's, h; time screen
    int first_miss_cycle;      // 1 until the first APP_update of a flight has run
    int replay_mode;           // 0 flying, 1 to 9 transport; replay's buttons
    int puff01, puff02, puff05, puff1, puff2, puff5, puff10, puff20, puff40;  // 1 in one frame every .1 .2 .5 1 ... s
    float pulse_alpha;         // pulsing colour, 0.4 to 1; clocks
};
extern mnw_struct mnw;
