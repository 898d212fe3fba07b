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
    // by slot, whose number is a role (ip_role)
    char their_ip_str[ip_addDIM][16];         // dotted address; network screen, preferences
    char their_port_str[ip_addDIM][6];        // the same; "49000" by default
    int use_ip[ip_addDIM];                    // 0 or 1: slot in use; network screen
    int got_ip[ip_addDIM];                    // 0 or 1: the address can be read; network
    int con_ip_int[ip_addDIM];                // last sender that used this index; network
    float con_time[ip_addDIM];                // real_time of its last message, s; network
    int ser_com;                              // number of the serial port, 0 none; preferences
    float data_rate;                          // data output per second, 1 to 50; data screen
    int auto_set_mp;                          // 0 or 1: peers are looked for; network screen
    int mp_dig[4];                            // digits of the address looked at now, 0 to 255; network
    int our_ip_int;                           // this machine's address; network
    char str_mess_snd[150];                   // message being typed; keys
    // 0 or 1, set by inbound data rows: the network drives these instead of the pilot
    int getting_auto_mode, getting_hdng, getting_ptch, getting_roll, getting_thro, getting_prop;      // 0 or 1
    int getting_rawjoy, getting_astab, getting_flightcons, getting_indcons, getting_gearbrake;        // 0 or 1
    int getting_nav_NC, getting_nav_ADF, getting_nav_DME, getting_nav_GPS, getting_FD, getting_camera;  // 0 or 1
    int getting_annuns, getting_FF, getting_terrain, getting_avidyne;                                 // 0 or 1
    // autopilot unit on the serial line: button last pressed, lamps as given from outside, lamps shown; its reader
    int last_PFC_auto_button_input, extern_PFC_auto_mode_display, PFC_auto_mode_display;              // codes
};
extern inet_struct net;
