// What lies flat over the picture, and how the cockpit is shown: without a window.
#include <cmath>
#include <string>

#include "core/disk/text_numbers.h"
#include "core/program/upward.h"
#include "scene/cockpit/cockpit_kind.h"
#include "scene/cockpit/cockpit_light.h"
#include "scene/overlay/blackouts.h"
#include "scene/overlay/replay_bar.h"
#include "scene/overlay/warnings_text.h"
#include "support.h"

namespace {
class overlay_test : public test::system_test {
protected:
    void SetUp() override {
        system_test::SetUp();
        reset_blackouts();
        stg.draw_gload = 1;
        mnw.first_miss_cycle = 0;
        mnw.x_res_now = 1024, mnw.y_res_now = 768;
    }
    static void wait(float seconds, float step) {
        mnw.prd_FM = step;
        for (float t = 0.0f; t < seconds - 0.5f * step; t += step) blackouts_step();
    }
};

TEST_F(overlay_test, load_takes_the_sight_as_a_first_order_lag_at_every_frame_rate) {
    for (const float step : {0.01f, 0.04f}) {
        reset_blackouts();
        flt[0].g_nrml = 12.0f;
        wait(2.0f, step);
        EXPECT_NEAR(blackouts().g_blackout, 1.0 - exp(-2.0), 0.02) << step;
        EXPECT_EQ(blackouts().g_redout, 0.0f);
        flt[0].g_nrml = -3.0f;  // half way into the red
        wait(8.0f, step);
        EXPECT_NEAR(blackouts().g_redout, 0.5, 0.01);
        EXPECT_LT(blackouts().g_blackout, 0.01f);
    }
    veh[0].has_press_controls = 1;
    stg.cabin_alt_act_ft = 20000.0f;
    wait(10.0f, 0.02f);
    EXPECT_NEAR(blackouts().o2_blackout, 1.0 - exp(-1.0), 0.02) << "ten times as slow";
    flt[0].g_nrml = NAN, stg.cabin_alt_act_ft = NAN;
    wait(1.0f, 0.02f);
    EXPECT_TRUE(std::isfinite(blackouts().g_redout + blackouts().o2_blackout));
    stg.draw_gload = 0;
    blackouts_step();
    EXPECT_EQ(blackouts().o2_blackout, 0.0f);
}

TEST_F(overlay_test, the_cover_is_red_white_or_black_by_what_blinds) {
    const auto is = [](const blackout_struct& b, float glare, float red, float others, float alpha) {
        const cover_struct cover = cover_of(b, glare);
        return std::fabs(cover.red - red) + std::fabs(cover.others - others) + std::fabs(cover.alpha - alpha) < 1e-5f;
    };
    EXPECT_TRUE(is({0.5f, 0, 0}, 0, 1, 0, 0.5f));
    EXPECT_TRUE(is({0, 0.3f, 0.2f}, 0, 0, 0, 0.5f));
    EXPECT_TRUE(is({0, 0, 0}, 1, 1, 1, 0.75f));
    EXPECT_TRUE(is({0.25f, 0.25f, 0}, 0, 0.5f, 0, 0.5f));
    EXPECT_TRUE(is({1, 1, 1}, 1, 1, 0.75f, 1)) << "held to the screen's range";
    EXPECT_TRUE(is({0.005f, 0, 0}, 0, 0, 0, 0)) << "too little to see";
}

TEST_F(overlay_test, each_of_sixteen_states_has_its_line) {
    for (int i = 0; i < textDIM; ++i) stl.text[i] = "#" + std::to_string(i);
    EXPECT_TRUE(find_warnings().right.empty() && find_warnings().middle.empty());
    mnw.track_net = mnw.disk_out = 1;
    flt[0].fail_stat[fail_gear + gearDIM - 1] = fail_active;
    flt[0].engn[engnDIM - 1].carb_ice = 0.02f;
    stg.over_g = stg.over_vne = stg.over_vfe = stg.over_vle = 1;
    stg.cat_waiting = stg.tow_waiting = stg.tow_inprog = stg.win_waiting = stg.win_inprog = stg.car_inprog = 1;
    mnw.paused = mnw.typing_message = 1;
    const warnings_struct all = find_warnings();
    ASSERT_EQ(all.right.size() + all.middle.size(), 16u);
    for (int i = 1; i < 8; ++i) EXPECT_EQ(all.right[static_cast<size_t>(i)], "#" + std::to_string(text_warn_net + i));
    for (int i = 0; i < 6; ++i) EXPECT_EQ(all.middle[static_cast<size_t>(i)], "#" + std::to_string(text_warn_cat + i));
    EXPECT_EQ(all.middle[6], "#" + std::to_string(text_paused));
}

TEST_F(overlay_test, labels_of_the_replay_bar_make_room_for_each_other) {
    const auto places = place_marks({10, 10.2f, 10.3f, 60, 110}, 10, 110);
    EXPECT_FLOAT_EQ(places[0].x, 8);
    EXPECT_FLOAT_EQ(places[4].x, 1016);
    EXPECT_FLOAT_EQ(places[3].x, 512);
    const float up[] = {0, 12, 24, 0, 0};
    for (size_t i = 0; i < 5; ++i) EXPECT_EQ(places[i].up, up[i]) << i;
    EXPECT_EQ(place_marks({5}, 7, 7).size(), 1u) << "nothing is recorded yet";
}

TEST_F(overlay_test, the_cockpit_is_shown_by_view_screen_and_model) {
    const auto kinds = [] {
        return std::string(plot_OBJ7_cock() ? "model " : "") + (plot_TV3D_cock() ? "plane " : "") +
               (plot_TV2D_cock() ? "flat " : "") + (plot_outer_acf() ? "outer" : "");
    };
    veh[0].cockpit_M_inn = -1;
    ren.view_type_act = view_fwd_panel;
    EXPECT_EQ(kinds(), "flat ");
    veh[0].cockpit_M_inn = 3;
    veh[0].plot_OBJ7_cock[0] = veh[0].plot_outer_acf[0] = veh[0].plot_outer_acf[2] = 1;
    EXPECT_EQ(kinds(), "flat outer") << "exactly forward";
    ren.cockpit_psi = 2.0f;
    EXPECT_EQ(kinds(), "model outer");
    ren.cockpit_psi = 0.0f;
    veh[0].plot_OBJ7_cock_exact_fwd = 1;
    EXPECT_EQ(kinds(), "model outer");
    mnw.x_res_now = 1280;
    EXPECT_EQ(kinds(), "flat outer") << "larger than the texture";
    mnw.x_res_now = 1024;
    ren.view_type_act = view_right_90;
    EXPECT_EQ(kinds(), "");
    for (const int bare : {view_fwd_hud, view_fwd_bare}) {
        ren.view_type_act = bare;
        EXPECT_EQ(kinds(), "");
    }
    EXPECT_EQ(test::expect_fatal([] { set_lit_ins(3); }).line[0], "bad col_type!");
}
}  // namespace
