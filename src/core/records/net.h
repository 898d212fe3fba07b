// Network addresses and the switches that tell what the network drives.
#pragma once
#include "core/craft/dims.h"

// Roles of the forty address slots that code tests for.
enum ip_role : int {
    ip_mp_first = 0, ip_mp_last = 8,          // multiplayer peers
    ip_mon_first = 9, ip_mon_last = 13,       // external monitors driven by this machine
    ip_master_view = 14, ip_master_cockpit = 15, ip_master_any = 16,  // this machine is a slave display
    ip_master_ios = 17,                       // this machine is an instructor station
    ip_ios_served = 18, ip_data_out = 19, ip_any_sender = 20, ip_auto_probe = 21,
};

struct inet_struct {
    char their_ip_str[ip_addDIM][16], their_port_str[ip_addDIM][6];
    int use_ip[ip_addDIM], got_ip[ip_addDIM];
    int con_ip_int[ip_addDIM];
    float con_time[ip_addDIM];                // real_time of the last message
    int ser_com;
    float data_rate;                          // data output per second, 1 to 50
    int auto_set_mp, mp_dig[4], our_ip_int;
    char str_mess_snd[150];
    // set by inbound data rows: the network drives these instead of the pilot
    int getting_auto_mode, getting_hdng, getting_ptch, getting_roll, getting_thro, getting_prop;
    int getting_rawjoy, getting_astab, getting_flightcons, getting_indcons, getting_gearbrake;
    int getting_nav_NC, getting_nav_ADF, getting_nav_DME, getting_nav_GPS, getting_FD, getting_camera;
    int getting_annuns, getting_FF, getting_terrain, getting_avidyne;
    int last_PFC_auto_button_input, extern_PFC_auto_mode_display, PFC_auto_mode_display;
};
extern inet_struct net;
