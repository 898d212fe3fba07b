// The frame and its schedule.
#include "app/frame.h"

#include <math.h>

#include <tuple>

#include "app/app_update.h"
#include "app/lab/headless.h"
#include "app/start/level_flight.h"
#include "app/start/load_plane.h"
#include "app/world_flight.h"
#include "core/math/num.h"
#include "core/program/clocks.h"
#include "core/program/input_gate.h"
#include "core/program/logs.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "flight/fullsim.h"
#include "flight/slots.h"
#include "flying.h"
#include "platform/window.h"

namespace {
class frame : public ::testing::Test {
protected:
    void SetUp() override { test::fly_aircraft("Lark 15"); }
    static void place(float altitude, float speed, float gamma = 0.0f) {
        lab_flight at;
        at.altitude = altitude;
        at.speed = speed;
        at.gamma = gamma;
        lab_place(at);
    }
    // Passes of the loop while the wall clock moves by dt each.
    static void pass(int count, double dt) {
        for (int i = 0; i < count; ++i) {
            step_virtual_clock(dt);
            MACIBM_event_proc();
        }
    }
};

TEST_F(frame, periodic_flags_fire_once_a_period) {
    int fired1 = 0, fired20 = 0;
    for (int i = 0; i < 100 * 20; ++i) {  // 20 s at 100 frames a second
        pass(1, 0.01);
        fired1 += mnw.puff1;
        fired20 += mnw.puff20;
    }
    EXPECT_NEAR(fired1, 19, 1);  // the test is strict: 1.01 s at this rate
    EXPECT_GT(fired20, 330);     // and 0.06 s, or 0.05 s where the clock has rounded up
    EXPECT_LT(fired20, 401);
    for (int i = 0; i < 10; ++i) {  // slow frames: the fast flags fire every pass
        pass(1, 0.2);
        EXPECT_TRUE(mnw.puff20);
    }
}

TEST_F(frame, the_step_chases_the_frame_and_a_hitch_does_not_reach_it) {
    pass(400, 0.03);
    EXPECT_NEAR(mnw.prd_FM, 0.03f, 0.001f);
    const float before = mnw.prd_FM;
    pass(1, 1.0);
    pass(9, 0.03);
    EXPECT_LE(mnw.prd_FM, before * powf(1.5f, 0.25f) * 1.001f);
    pass(2000, 0.3);
    EXPECT_FLOAT_EQ(mnw.prd_FM, 0.08f);
    const float totl = mnw.totl_time, real = mnw.real_time;
    pass(10, 0.3);
    EXPECT_NEAR(mnw.totl_time - totl, 0.8f, 0.01f) << "simulated time lags";
    EXPECT_NEAR(mnw.real_time - real, 3.0f, 0.01f);
}

TEST_F(frame, a_stay_in_a_window_keeps_the_step_and_stops_the_flight) {
    pass(100, 0.02);
    const float step = mnw.prd_FM, totl = mnw.totl_time;
    const double x = flt[0].dob_x, z = flt[0].dob_z;
    MACIBM_startwind(win_wxr, "test");
    pass(300, 0.05);
    EXPECT_TRUE(mnw.prd_FM == step && mnw.totl_time == totl);
    EXPECT_TRUE(flt[0].dob_x == x && flt[0].dob_z == z);
    EXPECT_NEAR(mnw.prd_UI, 0.05f, 0.005f);
    MACIBM_startwind(win_fly, "test");
    pass(11, 0.02);
    EXPECT_NEAR(mnw.prd_FM, step, 0.17f * step) << "not as if the stay were one frame";
    EXPECT_GT(mnw.totl_time, totl);
}

TEST_F(frame, a_short_stay_in_a_window_or_alert_does_not_move_the_step) {
    pass(407, 0.03);  // in the middle of a count of ten
    const float step = mnw.prd_FM;
    for (const int window : {win_wxr, win_alrt}) {
        MACIBM_startwind(window, "test");
        pass(30, 0.03);
        MACIBM_startwind(win_fly, "test");
        pass(12, 0.03);
        EXPECT_NEAR(mnw.prd_FM, step, 0.01f * step) << window;
    }
}

TEST_F(frame, the_profile_tells_microseconds) {
    const test::temp_folder folder;
    close_logs();
    xer.open(folder.path() + "Error.out");
    mnw.track_cpu = 1;
    seam.drain_events = [] { step_virtual_clock(0.00025); };
    pass(2, 0.0);
    xer.close();
    EXPECT_NE(test::read_file(folder.path() + "Error.out").find("event: 0.000250\n"), std::string::npos);
}

TEST_F(frame, paused_time_stands_but_the_weather_is_still_limited) {
    mnw.paused = 1;
    const float totl = mnw.totl_time, miss = mnw.miss_time;
    atm.vis_rep = 1e9f;
    pass(10, 0.02);
    EXPECT_EQ(mnw.totl_time, totl);
    EXPECT_EQ(mnw.miss_time, miss);
    EXPECT_EQ(atm.vis_rep, max_vis_ter_mtrs[0]);
}

TEST_F(frame, a_notch_of_the_wheel_counts_for_one_frame) {
    seam.drain_events = [] { input_gate_wheel(-1); };
    for (int i = 0; i < 2; ++i) {
        headless_frame();
        EXPECT_EQ(mnw.mouse_wheel, -1) << "cleared in between";
    }
    seam.drain_events = [] {};
    headless_frame();
    EXPECT_EQ(mnw.mouse_wheel, 0);
}

TEST_F(frame, the_clock_runs_on_over_the_jump_of_the_time_window) {
    // the wall clock starts near the end of its 5000 s
    step_virtual_clock(4999.0 - 5000.0 * floor(0.001 * seam.epoch_millisec() / 5000.0) - 0.0);
    pass(2, 0.02);
    const float before = mnw.real_time;
    pass(200, 0.02);
    EXPECT_NEAR(mnw.real_time - before, 4.0f, 0.05f);
}

TEST_F(frame, clocks_do_not_stall_at_high_frame_rates) {
    clocks.zulu.set(mnw.zulu_time, 57600.0);
    for (int i = 0; i < 100000; ++i) clocks.zulu.step(mnw.zulu_time, 0.001, 86400.0);
    EXPECT_NEAR(mnw.zulu_time, 57700.0f, 0.01f);
    mnw.zulu_time = 100.0f;  // written from outside
    clocks.zulu.step(mnw.zulu_time, 1.0, 86400.0);
    EXPECT_FLOAT_EQ(mnw.zulu_time, 101.0f);
}

TEST_F(frame, the_date_follows_midnight_both_ways) {
    mnw.locl_date_jan1 = 359;
    for (const auto& [time, date] : {std::pair{86399.5f, 359}, {0.5f, 0}, {86399.5f, 359}}) {
        mnw.locl_time = time;
        WORLD_math_all_cases();
        EXPECT_EQ(mnw.locl_date_jan1, date);
    }
}

TEST_F(frame, a_crash_is_explained_and_the_flight_starts_again) {
    place(60.0f, 60.0f, -50.0f);
    mnw.miss_time = 10.0f;
    flt[0].frame_ice = 0.5f;
    stg.over_g = 1;
    const long long before = seam.epoch_millisec();
    pass(200, 1.0 / 64.0);
    ASSERT_EQ(test::alerts.size(), 2u);
    EXPECT_EQ(test::alerts[0].text.line[0], "The aircraft was carrying ice at time of impact.");
    EXPECT_EQ(test::alerts[1].text.line[0], "You busted the airframe G-limit.");
    EXPECT_EQ(stg.parkbrake, 1.0f);
    EXPECT_LT(hypot(flt[0].dob_x, flt[0].dob_z), 1.0) << "on the runway again";
    EXPECT_GE(seam.epoch_millisec() - before, 4000 + 3100);
}

TEST_F(frame, a_crash_in_the_first_seconds_or_with_the_reset_off_leaves_the_aircraft) {
    place(10.0f, 60.0f, -50.0f);
    mnw.miss_time = 0.0f;
    pass(64, 1.0 / 64.0);
    EXPECT_TRUE(test::alerts.empty());
    place(10.0f, 60.0f, -50.0f);
    stg.reset_on_crash = 0;
    mnw.miss_time = 10.0f;
    pass(32, 1.0 / 64.0);
    EXPECT_GT(msc.crash_damp_timeout, mnw.totl_time);
    const float speed = flt[0].V_msc;
    pass(64, 1.0 / 64.0);
    EXPECT_LT(flt[0].V_msc, 0.3f * speed + 10.0f);
}

TEST_F(frame, overspeed_breaks_the_aircraft_only_when_warned_of) {
    place(3000.0f, 1.4f * veh[0].Vne_kts * con.ktstomsc);
    mnw.miss_time = 10.0f;
    pass(2, 1.0 / 64.0);
    EXPECT_FALSE(stg.over_vne);
    stg.warn_oV = 1;
    pass(2, 1.0 / 64.0);
    EXPECT_TRUE(stg.over_vne);
    EXPECT_EQ(flt[0].fail_stat[fail_wing1_left], fail_active);
    pass(32, 1.0 / 64.0);
    EXPECT_GT(fabsf(flt[0].P), 20.0f) << "with one wing it rolls";
}

// 500 ft up the limits of the second kind are 4,250 and 3,000 ft/min, those of the first 2,600 and 1,800.
TEST_F(frame, ground_proximity_holds_the_limits_of_the_second_kind_where_both_are_fitted) {
    stg.warn_bb = mnw.puff05 = 1;
    mnw.prd_FM = 0.001f;
    for (const auto& [first, second, sink, pullup] :
         {std::tuple(1, 1, 3500.0f, 0), {1, 0, 3500.0f, 1}, {1, 1, 4400.0f, 1}}) {
        veh[0].warn1_EQ = first;
        veh[0].warn2_EQ = second;
        place(300.0f, 30.0f);
        flt[0].dob_y = flt[0].terrain_y_cg + veh[0].h_eqlbm + 500.0 * con.fttomtrs;
        flt[0].vy = -sink / con.msctofpm;
        update_with_fullsim2(0);
        EXPECT_EQ(stg.BB_pullup, pullup) << sink;
        EXPECT_EQ(stg.BB_sinkrate, !pullup) << sink;
    }
}

TEST_F(frame, aircraft_of_the_net_go_on_by_dead_reckoning) {
    init_flt_p(1, 0.0f, 90.0f, 0.0f, 100.0f, 2000.0f, 0.0f, 50.0f, 0);
    EXPECT_NEAR(flt[1].vx, 50.0f, 1e-3f);
    // by dead reckoning between messages, behind a window too
    flt[1].update_type = pln_update_net;
    flt[1].R = 90.0f;
    MACIBM_startwind(win_map, "test");
    mnw.prd_UI = 0.02f;
    const double x = flt[1].dob_x;
    update_with_net(1);
    EXPECT_NEAR(flt[1].dob_x - x, 1.0, 1e-3);
    EXPECT_NEAR(flt[1].psi, 91.8f, 0.01f);
}

// Ten seconds below the rate wanted are borne, the eleventh is told, and only once.
TEST_F(frame, a_low_rate_is_told_in_its_eleventh_second) {
    stg.warn_frame = 1;
    mnw.menu_up = -1;
    mnw.prd_FM = 0.9f * mnw.prd_max;
    test::alerts.clear();
    for (int second = 1; second <= 30; ++second) {
        mnw.puff1 = 1;
        WORLD_math_in_flight();
        EXPECT_EQ(test::alerts.size(), second > 10 ? 1u : 0u) << second;
    }
}

TEST_F(frame, too_fast_for_its_flaps_it_loses_the_left_the_right_or_both) {
    int lost[2][2] = {};
    for (int i = 0; i < 60; ++i) {
        mnw.miss_time = 6.0f;
        stg.warn_oVfe = 1;
        stg.over_vfe = 0;
        flt[0].handle_rat_act = 0.5f;
        flt[0].AV_sig_kts = veh[0].Vfe_kts + 1.0f;
        flt[0].fail_stat[fail_L_flp_off] = flt[0].fail_stat[fail_R_flp_off] = 0;
        WORLD_math_in_flight();
        ++lost[flt[0].fail_stat[fail_L_flp_off] != 0][flt[0].fail_stat[fail_R_flp_off] != 0];
    }
    EXPECT_EQ(lost[0][0], 0);
    for (const int often : {lost[0][1], lost[1][0], lost[1][1]}) EXPECT_GT(often, 8);
}
}  // namespace
