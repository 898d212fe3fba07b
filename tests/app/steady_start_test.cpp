// The start of the user's flight: it must fly by itself until the pilot takes over.
#include "app/lab/steady_start.h"

#include "app/lab/headless.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/seams.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "flying.h"
#include "weather/atmosphere.h"

namespace {
class steady_start : public ::testing::TestWithParam<const char*> {};

TEST_P(steady_start, flies_straight_and_level_for_half_a_minute_with_the_hands_off) {
    test::fly_aircraft(GetParam());
    stg.cus_v *= 1.3f;
    init_flt_0(start_custom, 0);
    const float fuel = flt[0].m_fuel[0];
    ASSERT_TRUE(start_steady());
    EXPECT_EQ(flt[0].m_fuel[0], fuel);
    const bool glides = veh[0].num_engines == 0;
    const double height = flt[0].dob_ele;
    const float heading = flt[0].psi;
    EXPECT_EQ(mnw.YK_ptch, 0.0f);
    for (int i = 0; i < 30 * 64; ++i) {
        headless_frame();
        ASSERT_LT(fabsf(flt[0].phi), 8.0f) << i / 64.0f << " s";
        ASSERT_LT(fabsf(flt[0].Vh_fpm), 500.0f) << i / 64.0f << " s";
    }
    EXPECT_NEAR(flt[0].dob_ele, height, glides ? 60.0 : 30.0);
    EXPECT_LT(fabsf(fltwrap(flt[0].psi - heading, -180.0f, 180.0f)), 15.0f);
}

TEST(user_start, is_trimmed_in_the_mean_wind_and_not_in_a_gust) {
    for (unsigned weather = 1; weather <= 4; ++weather) {
        test::fly_aircraft("Wren 160");
        rand_seed(weather * 7919);
        init_weather_defaults();
        ASSERT_TRUE(start_steady());
        for (int i = 0; i < 20 * 64; ++i) {
            headless_frame();
            ASSERT_LT(fabsf(flt[0].Vh_fpm), 600.0f) << weather << ", it was 3,400";
        }
    }
}

TEST(user_start, a_place_on_the_planet_and_a_final_approach_begin_a_trimmed_flight) {
    test::fly_aircraft("Wren 160");
    seam.has_user = 1;
    const auto flies_level = [](const char* after) {
        for (int i = 0; i < 5 * 64; ++i) headless_frame();
        EXPECT_LT(fabsf(flt[0].Vh_fpm), 300.0f) << after;
        EXPECT_LT(fabsf(flt[0].phi), 5.0f) << after;
    };
    for (const int place : {place_final_3, place_final_10}) {
        init_flt_0(start_airport, place);
        EXPECT_GE(flt[0].handle_rat_act, 0.5f);
        begin_user_flight_steady(start_airport);
        EXPECT_NEAR(flt[0].V_msc, veh[0].V_ref_ms, 0.1f);
        flies_level("final");
    }
    stg.cus_lat = static_cast<float>(flt[0].dob_lat), stg.cus_lon = static_cast<float>(flt[0].dob_lon);
    mnw.top_win = win_wrl;
    MACIBM_startwind(win_fly, "planet region");
    flies_level("planet");
    seams_headless();
}

INSTANTIATE_TEST_SUITE_P(aircraft, steady_start,
                         ::testing::Values("Shearwater 870", "Wren 160", "Dunlin 400", "Lark 15",
                                           "Plover 420"));
}  // namespace
