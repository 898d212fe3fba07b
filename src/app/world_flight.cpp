// The world's frame: clocks, navigation, systems, limits and the crash test.
#include "app/world_flight.h"

#include "aircraft/design/exists.h"
#include "app/slots/crash.h"
#include "cockpit/radios.h"
#include "core/disk/text_numbers.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/alert.h"
#include "core/program/clocks.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "flight/systems.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/nav/magnetic.h"
#include "sound/sound.h"

namespace {
struct world_state {
    int old_onground = 0;
    float last_touchdown = -9999.0f;  // totl_time
    float flight_since_touchdown = 0.0f;  // hours
    int old_airport = -1;             // of the last landing
    float time_vew_change = 0.0f;     // when the AI changes the view next, totl_time
    int slowcounter = 0;              // seconds below the frame rate wanted, one after the other
    bool warned = false;              // of the frame rate
};
world_state state;

void advance_clocks() {
    const double dt = mnw.prd_FM;
    clocks.miss.step(mnw.miss_time, dt, 0.0);
    clocks.totl.step(mnw.totl_time, dt, 0.0);
    clocks.hobs.step(mnw.hobs_time, dt, 0.0);
    clocks.zulu.step(mnw.zulu_time, dt, 86400.0);
    mnw.locl_time = locl_from_zulu();
    if (mnw.timer_running) clocks.timr.step(mnw.timr_time, dt, 3600.0);
}

// Hours of the present line, and touchdowns: one counts when the last was over a minute ago.
void keep_logbook() {
    if (!intrange(msc.log_index, 0, static_cast<int>(msc.log_flit_time.size()) - 1)) return;
    const int i = msc.log_index;
    const float hours = mnw.prd_FM / 3600.0f;
    const float three_nm = 3.0f * con.nmtomtrs;
    const float local_hour = mnw.locl_time / 3600.0f;
    if (atm.vis_sky < three_nm) msc.log_inst_time[i] += hours;
    if (local_hour < 5.0f || local_hour > 19.0f) msc.log_nigt_time[i] += hours;
    msc.log_flit_time[i] += hours;
    state.flight_since_touchdown += hours;

    const bool touchdown = !state.old_onground && flt[0].onground_any;
    state.old_onground = flt[0].onground_any;
    if (!touchdown || mnw.totl_time - state.last_touchdown <= 60.0f) return;
    state.last_touchdown = mnw.totl_time;
    ++msc.log_numb_land[i];
    msc.log_dest[i] = msc.apt_id_str;
    if (msc.loc_apt_wrl != state.old_airport && state.old_airport >= 0)
        msc.log_xcnt_time[i] += state.flight_since_touchdown;
    state.old_airport = msc.loc_apt_wrl;
    state.flight_since_touchdown = 0.0f;
}

void find_magnetic_variation() {
    env.mag_var = env.planet ? 0.0f : magnetic_variation(flt[0].dob_lat, flt[0].dob_lon);
}

void radio_navigation() {
    check_markers();
    for (int w = 0; w < 2; ++w) handle_nav(w);
    for (int w = 2; w < 4; ++w) handle_adf(w);
    update_FMS(0);
    update_gps_and_bearings();
}

void run_systems() {
    system_transponder();
    system_fuel_flow();
    system_hydraulics();
    system_vacuum();
    system_cabin_pressure();
    system_annunciators();
}

// A random view every 10 to 30 seconds; one from inside gives the panel.
void ai_views() {
    if (!msc.ai_views || !(mnw.totl_time > state.time_vew_change)) return;
    state.time_vew_change = mnw.totl_time + flt_rand(10.0f, 30.0f);
    APP_handlemenu(int_rand(view_fwd_panel, view_fwd_bare));
    if (ren.view_type_act <= view_inside_last) APP_handlemenu(view_fwd_panel);
}

// Wires, catapults and tows: what lets go and what starts.
void release_tests() {
    const float beta_ground = fltwrap(flt[0].psi - flt[0].h_path, -180.0f, 180.0f);
    if (flt[0].V_msc < 2.0f || fabsf(beta_ground) > 60.0f) stg.wired = 0;
    if (!(stg.parkbrake < 0.01f)) return;
    if (stg.cat_waiting) {
        stg.cat_waiting = 0;
        stg.cat_inprog = 1;
        stg.cat_start_time = mnw.totl_time;
    }
    if (stg.tow_waiting) {
        stg.tow_waiting = 0;
        stg.tow_inprog = 1;
    }
    if (stg.win_waiting) {
        stg.win_waiting = 0;
        stg.win_inprog = 1;
    }
}

// Quiet in the first seconds of a flight, while the gear settles.
void limit_tests() {
    constexpr float quiet_time = 5.0f;
    const flt_struct& f = flt[0];
    const veh_struct& v = veh[0];
    if (!(mnw.miss_time > quiet_time)) return;
    if (!stg.over_vne && !stg.over_g && stg.warn_oG &&
        (f.g_nrml > 1.5f * v.Gpos || f.g_nrml < -1.5f * v.Gneg))
        stg.over_g = 1;
    if (!stg.over_vne && !stg.over_g && stg.warn_oV && f.AV_sig_kts > v.Vne_kts) stg.over_vne = 1;
    if (!stg.over_vle && stg.warn_oVle && f.AV_sig_kts > v.Vle_kts && v.gear_retract && f.gear_handle)
        stg.over_vle = 1;
    if (!stg.over_vfe && stg.warn_oVfe && f.AV_sig_kts > v.Vfe_kts && f.handle_rat_act > 0.01f) {
        stg.over_vfe = 1;
        const int which = int_rand(1, 3);
        if (which != 2) fail_it(fail_L_flp_off);
        if (which != 1) fail_it(fail_R_flp_off);
    }
}

// The aircraft comes apart by its failures.
void limit_consequences() {
    if (stg.over_g)
        for (const int slot : {fail_eng_sep + 0, fail_eng_sep + 1}) fail_it(slot);
    if (stg.over_g || stg.over_vne)
        for (const int slot : {fail_wing1_left, fail_wing2_left, fail_wing3_left, fail_wing4_left})
            fail_it(slot);
}

bool inside_overcast() {
    for (int layer = 0; layer < 2; ++layer)
        if (atm.cld_type[layer] == cld_overcast && atm.base_h_MSL[layer] < flt[0].dob_y &&
            flt[0].dob_y < atm.tops_h_MSL[layer])
            return true;
    return false;
}

bool is_slave(int last_role) {
    for (int slot = ip_master_view; slot <= last_role; ++slot)
        if (net.use_ip[slot]) return true;
    return false;
}

void tell_about_frame_rate() {
    if (state.warned || !stg.warn_frame || is_slave(ip_master_ios)) return;
    state.warned = true;
    MACIBM_alert(win_fly, stl.text[text_frame_rate], stl.text[text_frame_rate + 1],
                 stl.text[text_frame_rate + 2], stl.text[text_frame_rate + 3], alert_message);
}

// Trades visibility for frame rate, once a second.
void govern_frame_rate() {
    if (mnw.puff1 && mnw.menu_up < 0 && !inside_overcast()) {
        const float prd_vis_reduc = 0.85f * mnw.prd_max;
        const bool slave = is_slave(ip_master_any);
        if (mnw.prd_FM > prd_vis_reduc) {
            ++state.slowcounter;
            if (atm.vis_frmult > 0.1f && !slave) atm.vis_frmult *= 0.96f;
        } else {
            state.slowcounter = 0;
        }
        if (mnw.prd_FM < 0.85f * prd_vis_reduc) {
            state.slowcounter = 0;
            if (atm.vis_frmult < 0.99f && !slave) atm.vis_frmult *= 1.02f;
        }
        if (ren.is_viewer) atm.vis_frmult = 1.0f;
    }
    if (state.slowcounter > 10) tell_about_frame_rate();
}
}  // namespace

void reset_world_flight() { state = {}; }

void WORLD_math_in_flight() {
    TVPEventHook(0, mnw.real_time, 0.0f, 0, 0);
    advance_clocks();
    keep_logbook();
    find_magnetic_variation();
    if (mnw.puff1) system_ice();
    radio_navigation();
    run_systems();
    ai_views();
    release_tests();
    limit_tests();
    limit_consequences();
    govern_frame_rate();
    crash_test();
}
