// Radios and autopilot state.
// Role: tuned by panel, keys and network; computed by the radio step; read by autopilot and displays.
#pragma once
#include "core/craft/dims.h"

struct nav_struct {
    // receivers, by radio slot: 0, 1 NAV; 2, 3 ADF; 4 GPS; 5 separate DME. Tuned by panel, keys, network;
    // received by the radio step once a frame
    int power[fixDIM];                      // mode switch, 0 off; panel, start of the flight
    int Nfreq[fixDIM], NfreqSTDBY[fixDIM];  // active and standby, 10 kHz; ADF kHz
    int Cfreq[2], CfreqSTDBY[2];            // COM 1 and 2, 10 kHz
    char nav_id[fixDIM][500];               // identifier received, five characters
    int nav_type[fixDIM];                   // kind received: 0 none, type of the nav data, 21 GPS
    int has_dme[fixDIM];                    // 0 or 1: a distance is received
    float X_nav[fixDIM], Y_nav[fixDIM], Z_nav[fixDIM];  // station, world frame, m
    float X_gls[fixDIM], Y_gls[fixDIM], Z_gls[fixDIM];  // antenna of the glide slope, world frame, m
    float h_gs[fixDIM];                     // its elevation, m
    float X_dme[fixDIM], Y_dme[fixDIM], Z_dme[fixDIM];  // DME, world frame, m
    float slope[fixDIM];                    // glide slope above the horizontal, degrees
    float OBS_mag[fixDIM];                  // course selector, magnetic degrees, 0 to 360; panel
    float CARD_mag[fixDIM];                 // turned card of the ADF, magnetic degrees; panel
    float sel_crs_true[fixDIM], sel_crs_mag[fixDIM];    // course the needle works to, degrees; a localizer's is its own
    float act_crs_mag[fixDIM];              // bearing to the station, magnetic degrees, 0 to 360
    float rel_crs[fixDIM];                  // the same from the nose, -180 to 180
    int ntf[fixDIM];                        // 0 no signal, 1 TO, 2 FROM
    float hdef_dots[fixDIM], vdef_dots[fixDIM];         // course and slope deviation, dots, -2.5 to 2.5
    float dme_offset[fixDIM];               // bias of the station's distance, nm
    float dme_dist_nm[fixDIM], dme_speed[fixDIM], dme_time[fixDIM];  // filtered: nm, knots, minutes; 0 to 999
    int HSIsel;                             // radio of the pilot's main indicator: 0, 1 NAV, 2 GPS; panel
    int DME_mode, DME_01;                   // DME: source, 0 to 2; which of two readouts, 0 or 1; panel
    int audio_sel;                          // radio heard: 0, 1 NAV, 2, 3 ADF, 5 DME, 10, 11 COM; panel
    int marker_aud;                         // 0 or 1: markers are heard; panel
    int marker_audio_working, gear_audio_working;       // 0 or 1: not muted; panel
    int ovr_OM, ovr_MM, ovr_IM;             // 0 or 1: over a marker beacon
    int OM_lit, MM_lit, IM_lit;             // 0 or 1: its lamp, blinking; markers
    int transponder;                        // four octal digits read as decimal, 0 to 7777; panel
    // GPS and flight plan; GPS and FMS panels, plan files
    int gps_type;                           // kind of target: 1 airport, 2 NDB, 3 VOR, 11 fix, 13 a place
    int gps_use_index;                      // target in the table of its kind
    int gps_apt_index, gps_vor_index, gps_ndb_index, gps_fix_index;  // last target of each kind
    int fms_next_index, fms_disp_index;     // entry flown to, entry shown, 0 to 99
    int fms_type[100], fms_index[100];      // kind as gps_type, 0 empty; place in its table
    char fms_idstr[100][150], fms_altstr[100][6];       // identifier; altitude in feet, as text
    float fms_lat[100], fms_lon[100];       // degrees, north and east positive
    // displays; panel, keys, start of the flight
    int map_range_sel;                      // 0 to 6: 10 to 640 nm
    int map_mode;                           // 0, 1 heading up, 2, 3 track up, 4 plan
    int map_mode_is_HSI;                    // 0 or 1: the small rose shows the HSI
    int arg_mode;                           // 7 to 9: mode of the small GPS map
    int EFIS_wxr, EFIS_tcas, EFIS_apt, EFIS_fix, EFIS_vor, EFIS_ndb;  // 0 or 1: shown on the map
    int EFIS_1_sel, EFIS_2_sel;             // bearing pointers: 0 ADF, 2 VOR
    int mode_ecam;                          // 0 engines, 1 fuel, 2 controls, 3 hydraulics, 4 failures
    int RMI_L_adf, RMI_R_adf;               // 0 or 1: the pointer shows the ADF
    int avi_lft_hil, avi_rgt_hil;           // lit soft keys of the glass display, 0 to 3
    int avi_alt_hil;                        // above 0: its altitude bug is being entered
    int avi_src[3];                         // its course and two pointers: 0 none, 1, 3 GPS, 2, 4 NAV
    int avi_hsi_mode, avi_map_range_sel;    // its HSI, 0 to 3, odd large; its map, 0 to 6: 2 to 200 nm
    float radalt_bug_ft;                    // decision height, ft
    // autopilot; panel and keys ask, the autopilot's step moves on from armed to coupled
    int mode_fdir;                          // 0 off, 1 director, 2 director and servos
    int mode_thro, mode_hdng, mode_alt_, mode_hnav, mode_vnav;  // otto_mode
    float asi_hold_kts_mac;                 // speed held, knots, or Mach with km_is_mach
    float hdg_hold_mag;                     // heading held, magnetic degrees, 0 to 360
    float vvi_hold_fpm;                     // vertical speed held, ft/min
    float alt_hold_ft_dial, alt_hold_ft_use;  // altitude dialled, altitude in use, ft
    float syn_hold_deg;                     // pitch held, degrees
    int hdg_roll_mode;                      // 0 standard turn, 1 to 6: 5 to 30 degrees of bank at most
    int loc_is_back;                        // 0 or 1: flies a back course
    int km_is_mach;                         // 0 or 1: the speed is a Mach number
    float fd_ptch, fd_roll;                 // director's command, degrees
    int otto_ah_vac_ele, otto_dg_vac_ele;   // source of attitude, heading: 1 vacuum, 0 electric; derivation
    float auto_test_timeout, auto_disc_timeout;  // totl_time until which all lamps light, the horn sounds, s
    float baro_setting_HG;                  // inches of mercury; panel
};
extern nav_struct nav;

// Autopilot modes that start-up and the AI pilot set.
enum otto_mode : int {
    otto_off = 9, otto_thro_speed = 10, otto_hdng_hold = 11, otto_alt_hold = 15, otto_alt_pitch = 17,
};
