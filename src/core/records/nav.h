// Radios and autopilot state.
// Role: tuned by panel, keys and network; computed by the radio step; read by autopilot and displays.
#pragma once
#include "core/craft/dims.h"

struct nav_struct {
    // receivers, by radio slot: 0, 1 NAV; 2, 3 ADF; 4 GPS; 5 separate DME
    int power[fixDIM];
    int Nfreq[fixDIM], NfreqSTDBY[fixDIM];  // 10 kHz; ADF kHz
    int Cfreq[2], CfreqSTDBY[2];
    char nav_id[fixDIM][500];
    int nav_type[fixDIM], has_dme[fixDIM];
    float X_nav[fixDIM], Y_nav[fixDIM], Z_nav[fixDIM];
    float X_gls[fixDIM], Y_gls[fixDIM], Z_gls[fixDIM], h_gs[fixDIM];
    float X_dme[fixDIM], Y_dme[fixDIM], Z_dme[fixDIM], slope[fixDIM];
    float OBS_mag[fixDIM], CARD_mag[fixDIM], sel_crs_true[fixDIM], sel_crs_mag[fixDIM], act_crs_mag[fixDIM];
    float rel_crs[fixDIM];
    int ntf[fixDIM];                        // 0 no signal, 1 TO, 2 FROM
    float hdef_dots[fixDIM], vdef_dots[fixDIM];
    float dme_offset[fixDIM], dme_dist_nm[fixDIM], dme_speed[fixDIM], dme_time[fixDIM];
    int HSIsel, DME_mode, DME_01, audio_sel;
    int marker_aud, marker_audio_working, gear_audio_working;
    int ovr_OM, ovr_MM, ovr_IM, OM_lit, MM_lit, IM_lit;
    int transponder;
    // GPS and flight plan
    int gps_type, gps_use_index, gps_apt_index, gps_vor_index, gps_ndb_index, gps_fix_index;
    int fms_next_index, fms_disp_index, fms_type[100], fms_index[100];
    char fms_idstr[100][150], fms_altstr[100][6];
    float fms_lat[100], fms_lon[100];
    // displays
    int map_range_sel, map_mode, map_mode_is_HSI, arg_mode;
    int EFIS_wxr, EFIS_tcas, EFIS_apt, EFIS_fix, EFIS_vor, EFIS_ndb, EFIS_1_sel, EFIS_2_sel, mode_ecam;
    int RMI_L_adf, RMI_R_adf;
    int avi_lft_hil, avi_rgt_hil, avi_alt_hil, avi_src[3], avi_hsi_mode, avi_map_range_sel;
    float radalt_bug_ft;
    // autopilot
    int mode_fdir;                          // 0 off, 1 director, 2 director and servos
    int mode_thro, mode_hdng, mode_alt_, mode_hnav, mode_vnav;
    float asi_hold_kts_mac, hdg_hold_mag, vvi_hold_fpm, alt_hold_ft_dial, alt_hold_ft_use, syn_hold_deg;
    int hdg_roll_mode, loc_is_back, km_is_mach;
    float fd_ptch, fd_roll;                 // degrees
    int otto_ah_vac_ele, otto_dg_vac_ele;   // 1 vacuum, 0 electric instrument
    float auto_test_timeout, auto_disc_timeout;
    float baro_setting_HG;                  // inches of mercury
};
extern nav_struct nav;

// Autopilot modes that start-up and the AI pilot set.
enum otto_mode : int {
    otto_off = 9, otto_thro_speed = 10, otto_hdng_hold = 11, otto_alt_hold = 15, otto_alt_pitch = 17,
};
