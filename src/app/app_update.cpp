// What a frame simulates and draws, in every state of the program.
#include "app/app_update.h"

#include <time.h>

#include "app/frame.h"
#include "app/plane_flight.h"
#include "app/slots/heartbeat.h"
#include "app/start/traffic.h"
#include "app/world_flight.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/clocks.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "flight/landing_report.h"
#include "flight/recording.h"
#include "flight/slots.h"
#include "flight/systems.h"
#include "net/data_table.h"
#include "net/messages.h"
#include "plugins/host.h"
#include "scene/world.h"
#include "scenery/ground/region.h"
#include "sound/sound.h"
#include "ui/devices.h"
#include "ui/screens/windows.h"
#include "weather/weather_step.h"

namespace {
struct update_state {
    float next_aircraft = 0.0f;   // when the AI changes the aircraft next, totl_time
    float o_locl_time = -1.0f;    // local time of the last frame; below 0 before the first
    double next_send_time = 0.0;  // of data, clocks.real
};
update_state state;

// The system changes the user's aircraft by itself every five to ten minutes.
void ai_changes_aircraft() {
    if (!msc.ai_opens || !(mnw.totl_time > state.next_aircraft)) return;
    state.next_aircraft = mnw.totl_time + flt_rand(300.0f, 600.0f);
    get_random_plane(0);
    init_flt_0(start_airport, place_runway);
    begin_user_flight_steady(start_airport);
}

void fill_empty_slots() {
    const int planes = TVPGetNumberPlanesToHandle(stg.num_acf, 1);
    for (int p = 1; p < planes; ++p) {
        if (veh[p].name[0]) continue;
        if (get_random_plane(p)) init_flt_p_other_ai(p);
    }
}

void update_aircraft() {
    if (!mnw.replay_mode) WORLD_math_in_flight();
    profile_chart("world", 0);
    for (int p = TVPGetNumberPlanesToHandle(stg.num_acf, 0) - 1; p >= 0; --p) {
        if (p > 0 && !veh[p].name[0]) continue;  // no aircraft was fit for it
        PLANE_math_in_flight(p);
        profile_chart("plane", 0);
    }
    landing_report_step();
}

void run_window() {
    switch (mnw.top_win) {
        case win_apt:
            return manage_apt();
        case win_dat:
            return manage_dat();
        case win_wxr:
            return manage_wxr();
        case win_tim:
            return manage_tim();
        case win_wgt:
            return manage_wgt();
        case win_rel:
            return manage_rel();
        case win_acf:
            return manage_acf();
        case win_qfl:
            return manage_qfl();
        case win_snd:
            return manage_snd();
        case win_ren:
            return manage_ren();
        case win_fdr:
            return manage_fdr();
        case win_joy:
            return manage_joy();
        case win_wrn:
            return manage_wrn();
        case win_map:
        case win_map_ios:
        case win_map_2:
            return manage_map();
        case win_wrl:
            return manage_wrl();
        case win_log:
            return manage_log();
        case win_ins:
            return manage_ins();
        case win_env:
            return manage_env();
        case win_vew:
            return manage_vew();
        case win_pln:
            return manage_pln();
        default:
            return;  // lists run a loop of their own
    }
}

void show_window() {
    for (int p = 0; p < vehDIM; ++p)
        if (flt[p].update_type == pln_update_net) update_with_net(p);
    seam.draw_background();
    run_window();
}
}  // namespace

void reset_app_update() { state = {}; }

void APP_update() {
    ai_changes_aircraft();
    failure_clocks();
    if (mnw.puff20) network_heartbeat();
    fill_empty_slots();
    WORLD_math_all_cases();
    profile_chart("math", 0);
    if (mnw.top_win == win_fly && !mnw.paused) update_aircraft();
    follow_flight();
    if (mnw.top_win == win_fly) {
        WORLD_scene_all_cases();
        profile_chart("scene_frame", 0);
    } else {
        show_window();
    }
}

// -- every state

int collect_data() {
    if (mnw.replay_mode || mnw.paused) return 0;
    for (int slot = ip_master_view; slot <= ip_master_ios; ++slot)
        if (net.use_ip[slot]) return 0;  // the machine that flies has the data
    return mnw.top_win <= win_fly;
}

namespace {
void take_system_time() {
    static const int days_in_month[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};  // no leap years
    if (!mnw.use_sys_time) return;
    const time_t seconds = static_cast<time_t>(seam.epoch_millisec() / 1000);
    tm now;
    localtime_r(&seconds, &now);
    mnw.locl_time = 3600.0f * now.tm_hour + 60.0f * now.tm_min + now.tm_sec;
    int day = now.tm_mday - 1;
    for (int month = 0; month < now.tm_mon; ++month) day += days_in_month[month];
    mnw.locl_date_jan1 = intwrap(day, 0, 359);
    clocks.zulu.set(mnw.zulu_time, zulu_from_locl());
}

// The date follows the local clock over midnight, both ways.
void roll_day() {
    constexpr float evening = 86399.0f, morning = 1.0f;
    float& o_locl_time = state.o_locl_time;
    if (o_locl_time < 0.0f) o_locl_time = mnw.locl_time;
    if (o_locl_time > evening && mnw.locl_time < morning)
        mnw.locl_date_jan1 = intwrap(mnw.locl_date_jan1 + 1, 0, 359);
    else if (o_locl_time < morning && mnw.locl_time > evening)
        mnw.locl_date_jan1 = intwrap(mnw.locl_date_jan1 - 1, 0, 359);
    o_locl_time = mnw.locl_time;
}

void maintain_sound() {
    if (mnw.sound_on && !mnw.paused && mnw.top_win == win_fly)
        soun.SOUND_maintain();
    else
        soun.SOUND_stop();
}

// Five snapshots a second, twenty minutes in all.
void record_flight() {
    if (!mnw.puff5 || !collect_data()) return;
    pat.cntr_record = intwrap(pat.cntr_record + 1, 0, pathDIM - 1);
    snap_save(&pat.snap[pat.cntr_record], 0);
    pat.snap[intwrap(pat.cntr_record + 1, 0, pathDIM - 1)].byt_dat[0] = 0;  // end mark
}

void output_data() {
    const bool puff_udp = clocks.real.now > state.next_send_time;
    if (puff_udp)
        state.next_send_time = clocks.real.now + 1.0 / fltmax2(net.data_rate, 1.0f) - 0.5 * mnw.prd_FM;
    if (collect_data()) {
        if (mnw.puff20) data_rows_to_graph();
        if (mnw.puff10) data_rows_to_file();
    }
    if (net.use_ip[ip_data_out] && puff_udp) data_rows_to_net();
}
}  // namespace

void WORLD_math_all_cases() {
    take_system_time();
    roll_day();
    maintain_sound();
    JOY_get();
    weather_step();
    local_air_step();
    record_flight();
    output_data();
}
