// The weather settings and what is derived from them.
// Role: written by defaults, preferences, weather screen, reports and network peers; limited every
// frame by the weather step. The order of the fields is that of preferences and messages.
#pragma once

class HTTPClient;

// Clouds of a layer, in the order of their density; numbers of preferences and messages.
enum cloud_kind : int {
    cld_none = 0,
    cld_thin = 1,        // flat sheets
    cld_thin_dense = 2,
    cld_scattered = 3,   // from here on a layer has thickness and can rain
    cld_broken = 4,
    cld_overcast = 5,    // the one whose thickness is free
};

struct atm_struct {
    int cld_type[2];          // cloud_kind; layer 0 is lower
    float base_h_MSL[2];      // m
    float tops_h_MSL[2];      // m
    float vis_frmult;         // visibility multiplier of the frame-rate governor, 0.1 to 1
    float vis_rep;            // reported visibility, m
    float vis_ground;         // m, derived by the sky
    float vis_sky;            // m, derived by the sky
    float rain_set;           // 0 to 1
    float tstm_set;           // 0 to 1
    float wind_tbl;           // how far assign_wind_tbl randomises the layers, 0 to 1
    float burst_prob;         // microburst probability, 0 to 1
    float rate_change;        // trend, -1 worsens to 1 improves
    float dewp_sea_C;         // Celsius
    float set_wind_alt_mtrs[3];  // wind layers, ascending, m above sea level
    float set_wind_spd_kts[3];   // 0 to 200
    float set_wind_dir_mag[3];   // 0 to 360
    float set_shear_spd_kts[3];  // gust, 0 to 50
    float set_shear_dir[3];      // gust direction swing, 0 to 180
    float set_turb_inc[3];       // turbulence, 0 to 9
    float wave_height;           // m
    float wave_length;           // m, derived
    float wave_speed;            // m/s, derived
    float wave_length_to_height; // 7 to 20
    int wave_dir;                // degrees
    float therm_prt;             // share of the ground under thermals, 0 to 0.5
    float therm_vvi_fpm;         // 0 to 1500
    float therm_alt_ft;          // above ground
    int rway_fric_code;          // 0 dry, 1 wet, 2 very wet
    int rway_patchy;             // 0 or 1: the runway is wet in patches
    int meteorite_code;          // how many shooting stars, 0 none
    int plot_aurora;             // 0 or 1: northern lights
    char weather_seed;           // 0 to 127
    // weather reports; weather step, weather screen
    HTTPClient* rwx_download_object;  // owned, null between downloads
    int download_rwx, has_rwx, use_rwx;  // 0 or 1: reports are wanted, are there, set the weather
    float rwx_check_minutes;     // 5 to 60
    float rwx_next_check_time;   // real_time
    float rwx_percent_downloaded;  // 0 to 100
    float rwx_max_vis_nm;        // 5 to 25
    int prim_layer;              // layer that counts as the main deck
    float level_rat_acf;         // cloud density at the aircraft, 0 to 1
    float rain_rat_acf, hail_rat_acf, snow_rat_acf;  // reaching the aircraft, 0 to 1
};
extern atm_struct atm;

// Bound of the reported visibility and size of the cloud volume, m, by planet.
constexpr float max_vis_ter_mtrs[2] = {46300.0f, 203720.0f};
