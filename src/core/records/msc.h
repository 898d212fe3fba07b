// Logbook arrays, the selected airport and a set of running switches.
#pragma once
#include <string>
#include <vector>

#include "core/craft/dims.h"

struct msc_struct {
    // log book, a line an index; log book
    int log_index;            // line being written
    std::string log_pilot;    // file name of the pilot's book
    std::vector<std::string> log_date, log_tail, log_acft, log_depa, log_dest;  // date, tail number, type, from, to
    std::vector<int> log_numb_land;  // landings
    std::vector<float> log_flit_time, log_nigt_time, log_inst_time, log_xcnt_time;  // hours
    // the selected airport; nearest-airport search, airport screen
    char apt_id_str[idDIM];   // its identifier
    int loc_apt_wrl;          // index in the planet's list
    int loc_apt_lcl;          // index in the region's list
    int plt_apt_wrl;          // airport whose plan is shown, planet's list
    int lcl_rwy_ram;          // selected runway or ramp of the airport
    int backwards;            // 0 or 1: take off in the other direction
    int ai_apt_wrl_use, ai_rwy_wrl_use, ai_directn_use;  // AI's airport, runway, and end of it, 1 or -1
    int stab_ptch_test, stab_hdng_test;  // 1 measuring, 2 about to kick; stability test
    int show_hotspots;        // 0 or 1: where the panel can be clicked; commands
    int ai_opens, ai_flys, ai_views;     // 0 or 1: the AI changes the aircraft, flies it, chooses the view; commands
    float radio_busy_fac;     // how busy the controllers are, 0 to 1; nearest-airport search
    float crash_damp_timeout;            // totl_time until which a crash is damped, s
    int checklist_now, checklist_max;    // item shown, number of items; checklist
};
extern msc_struct msc;
