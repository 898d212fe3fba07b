// Logbook arrays, the selected airport and a set of running switches.
#pragma once
#include <string>
#include <vector>

#include "core/craft/dims.h"

struct msc_struct {
    int log_index;
    std::string log_pilot;
    std::vector<std::string> log_date, log_tail, log_acft, log_depa, log_dest;
    std::vector<int> log_numb_land;
    std::vector<float> log_flit_time, log_nigt_time, log_inst_time, log_xcnt_time;  // hours
    char apt_id_str[idDIM];
    int loc_apt_wrl, loc_apt_lcl, plt_apt_wrl;
    int lcl_rwy_ram;     // selected runway or ramp of the airport
    int backwards;       // take off in the other direction
    int ai_apt_wrl_use, ai_rwy_wrl_use, ai_directn_use;
    int stab_ptch_test, stab_hdng_test;  // 1 measuring, 2 about to kick
    int show_hotspots;
    int ai_opens, ai_flys, ai_views;     // the AI changes the aircraft, flies it, chooses the view
    float radio_busy_fac;
    float crash_damp_timeout;            // totl_time until which a crash is damped, s
    int checklist_now, checklist_max;
};
extern msc_struct msc;
