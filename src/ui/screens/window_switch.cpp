// What occupies the screen: windows open, close, and take over what the one before leaves behind.
#include "core/disk/text_numbers.h"
#include "core/math/num.h"
#include "core/program/input_gate.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/con.h"
#include "core/records/flt.h"
#include "core/records/mnw.h"
#include "core/records/msc.h"
#include "core/records/net.h"
#include "core/records/pat.h"
#include "core/records/stg.h"
#include "core/records/stl.h"
#include "draw/widgets/menus.h"
#include "net/data_table.h"
#include "net/messages.h"
#include "scenery/ground/region.h"
#include "scenery/nav/nav_tables.h"
#include "ui/keys/commands.h"
#include "ui/screens/start_screen.h"

namespace {
struct win_row {
    int top_win;
    float dx, dy;  // virtual units
    int title;     // text number
};

constexpr win_row windows[] = {
    {win_about, 500, 300, text_title_about},
    {win_alrt, 400, 220, text_title_alert},
    {win_nuke, 300, 166, text_title_nuke},
    {win_open, 341, 484, text_title_open},
    {win_save, 341, 484, text_title_save},
    {win_apt, 631, 328, text_title_airport},
    {win_dat, 1024, 762, text_title_data},
    {win_wxr, 1002, 766, text_title_weather},
    {win_tim, 572, 268, text_title_time},
    {win_wgt, 1024, 650, text_title_weight},
    {win_rel, 1009, 756, text_title_failures},
    {win_acf, 810, 410, text_title_aircraft},
    {win_qfl, 977, 766, text_title_quick_flight},
    {win_snd, 620, 306, text_title_sound},
    {win_ren, 840, 766, text_title_rendering},
    {12, 700, 500, 0},
    {win_fdr, 1020, 750, text_title_replay},
    {win_joy, 1024, 768, text_title_joystick},
    {win_wrn, 374, 452, text_title_warnings},
    {win_map, 1024, 768, text_title_map},
    {win_wrl, 1020, 750, text_title_planet},
    {win_map_ios, 1024, 768, text_title_instructor},
    {win_log, 831, 636, text_title_logbook},
    {win_ins, 835, 674, text_title_instructions},
    {win_env, 500, 425, text_title_environment},
    {win_vew, 500, 270, text_title_view},
    {win_map_2, 1024, 768, text_title_airport_map},
    {win_pln, 590, 356, text_title_plan},
};

// The airport of the map, where there is one: name, identifier and elevation in feet.
std::string airport_title() {
    if (!intrange(msc.loc_apt_wrl, 0, static_cast<int>(vec_apt.size()) - 1)) return stl.text[text_title_airport_map];
    const vec_apt_struct& apt = vec_apt[static_cast<size_t>(msc.loc_apt_wrl)];
    return apt.apt_name + " " + apt.apt_id + " elev " + std::to_string(intround(apt.ele * con.mtrstoft));
}

void size_and_title(int top_win) {
    mnw.win_dx = static_cast<float>(mnw.x_res_now);
    mnw.win_dy = static_cast<float>(mnw.y_res_now);
    stl.win_name.clear();
    for (const win_row& row : windows) {
        if (row.top_win != top_win) continue;
        mnw.win_dx = row.dx;
        mnw.win_dy = row.dy;
        if (row.title) stl.win_name = stl.text[row.title];
    }
    if (top_win == win_map_2) stl.win_name = airport_title();
}

// A recording that was loaded plays as soon as its window closes.
void start_loaded_replay() {
    constexpr int transport_play = 5;
    mnw.totl_time = 0.0f;
    mnw.locl_time = pat.start_time_of_day;
    if (mnw.replay_mode)
        mnw.replay_mode = transport_play;
    else
        APP_handlemenu(cmd_replay);
    mnw.paused = 0;
}

// What the window that closes leaves to be done.
void leave_window(int old, int now) {
    if (old == win_dat && now != win_dat && stg.datW_tab == 0) set_dataoutput_params();
    if (old == win_fdr && now != win_fdr && pat.got_file) start_loaded_replay();
    if (old == win_pln && now != win_pln) hand_over_plan();
    if (old == win_joy && now != win_joy)
        for (const int use : mnw.joy_AXIS_use)
            if (use == axis_hdng) stg.auto_coord_helos = 0;
}

void enter_window(int now) {
    if (now == win_fdr) pat.got_file = 0;
    if (now == win_joy && stg.joyW_tab == 1) {  // throttles can be calibrated again
        for (float& v : mnw.PFC_thro_min) v = 9999.9f;
        for (float& v : mnw.PFC_thro_max) v = -9999.9f;
    }
}

// To the place of a flight that is about to begin, height in m above ground: how high the last one was must not
// decide what its region shows.
void shift_to_start(double lat, double lon, float height) {
    flt[0].y_agl_mtr = height;
    check_for_shift(lat, lon);
}

void shift_to_airport() {
    if (vec_apt.empty()) return;
    msc.loc_apt_wrl = intlim(msc.loc_apt_wrl, 0, static_cast<int>(vec_apt.size()) - 1);
    const vec_rwy_struct& rwy = vec_apt[static_cast<size_t>(msc.loc_apt_wrl)].rwy[0];
    shift_to_start(rwy.lat, rwy.lon, 0.0f);
}

// Choosing an airport or a place on the planet begins a flight there.
void start_flight_for(const std::string& from_str, int old, int now) {
    if (from_str == "select airport") {
        if (net.use_ip[ip_master_ios]) return send_airport_to_instructor(place_runway);
        shift_to_airport();
        init_flt_0(start_airport, stg.start_ramp ? place_ramp : place_runway);
        begin_user_flight_steady(start_airport);
    } else if (from_str == "planet region" && old == win_wrl && now == win_fly) {
        shift_to_start(stg.cus_lat, stg.cus_lon, stg.cus_alt);
        init_flt_0(start_custom, 0);
        begin_user_flight_steady(start_custom);
    }
}
}  // namespace

namespace {
// The mouse stays where it is on the screen.
void centre_window() {
    const float old_x = mnw.win_x, old_y = mnw.win_y;
    mnw.win_x = static_cast<float>(intmax2(intround(0.5f * (XRES - mnw.win_dx)), 0));
    mnw.win_y = static_cast<float>(intmax2(intround(0.5f * (YRES - mnw.win_dy)), 0));
    mnw.mx += old_x - mnw.win_x;
    mnw.my += old_y - mnw.win_y;
}
}  // namespace

void MACIBM_startwind(int new_top_win, const std::string& from_str) {
    const int old = mnw.top_win;
    start_lights_allowed(1);
    if (new_top_win > 0) seam.stop_sounds();
    if (new_top_win != win_alrt) {  // an alert keeps what it covers as it is
        leave_window(old, new_top_win);
        enter_window(new_top_win);
        start_flight_for(from_str, old, new_top_win);
    }
    size_and_title(new_top_win);
    mnw.entry_field = -1;
    mnw.menu_up = -1;
    mnw.top_win = new_top_win;
    centre_window();
    mnw.now_dragging = mnw.mouse_clicked = mnw.mouse_wheel = mnw.mouse_is_joy = 0;
    menu[menu_popup].menux1 = menu[menu_popup].menuy1 = menu[menu_popup].menux2 = menu[menu_popup].menuy2 =
        no_menu_box;
    if (new_top_win != win_fly) fill_background(new_top_win);
    MACIBM_update_back_texes();
}
