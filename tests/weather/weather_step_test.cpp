// The weather of a frame: what is valid, layers that turn, random weather, the screen.
#include "weather/weather_step.h"

#include <algorithm>
#include <cmath>

#include "support.h"
#include "weather/atmosphere.h"

class weather_test : public test::system_test {
protected:
    void SetUp() override {
        system_test::SetUp();
        set_planet_specs(0);
        init_weather_defaults();
        mnw.prd_FM = 0.02f;
        con.lcl_T_cel = 15.0f;
    }
    test::fp_traps traps_;
};

// Every rule of validity, written out once more as plain relations.
static void expect_valid() {
    const float top = 99999.0f * con.fttomtrs;
    for (int i = 0; i < 2; ++i) {
        const float thick = atm.tops_h_MSL[i] - atm.base_h_MSL[i];
        const float least = atm.cld_type[i] >= 3 ? 914.4f : 0.0f;
        EXPECT_GE(thick, least - 0.01f);
        if (atm.cld_type[i] != 5) {
            EXPECT_LE(thick, least + 0.01f);
        }
        EXPECT_GE(atm.base_h_MSL[i], 0.0f);
        EXPECT_LE(atm.tops_h_MSL[i], top);
        EXPECT_TRUE(atm.cld_type[i] >= 0 && atm.cld_type[i] <= 5);
    }
    EXPECT_TRUE(atm.vis_rep >= 100.0f && atm.vis_rep <= 46300.0f);
    EXPECT_TRUE(0.0f <= atm.tstm_set && atm.tstm_set <= atm.rain_set && atm.rain_set <= 1.0f);
    EXPECT_TRUE(atm.wind_tbl >= 0.0f && atm.wind_tbl <= 1.0f);
    EXPECT_TRUE(atm.burst_prob >= 0.0f && atm.burst_prob <= 1.0f);
    for (int c = 0; c < 3; ++c) {
        EXPECT_TRUE(atm.set_wind_dir_mag[c] >= 0.0f && atm.set_wind_dir_mag[c] <= 360.0f);
        EXPECT_TRUE(atm.set_shear_dir[c] >= 0.0f && atm.set_shear_dir[c] <= 180.0f);
        EXPECT_TRUE(atm.set_wind_spd_kts[c] >= 0.0f && atm.set_wind_spd_kts[c] <= 200.0f);
        EXPECT_TRUE(atm.set_shear_spd_kts[c] >= 0.0f && atm.set_shear_spd_kts[c] <= 50.0f);
        EXPECT_TRUE(atm.set_turb_inc[c] >= 0.0f && atm.set_turb_inc[c] <= 9.0f);
    }
    EXPECT_LE(std::fabs(atm.rate_change), 1.0f);
}

TEST_F(weather_test, a_type_from_a_stranger_indexes_nothing) {
    atm.cld_type[0] = 1 << 30, atm.cld_type[1] = -7, atm.prim_layer = 99;
    weather_step();
    EXPECT_EQ(atm.cld_type[0], 5);
    EXPECT_EQ(atm.cld_type[1], 0);
    EXPECT_EQ(atm.prim_layer, 0);
    atm.cld_type[0] = atm.cld_type[1] = 4;
    weather_step();
    EXPECT_EQ(atm.prim_layer, 1);  // a tie goes up
}

// Half of the way from each layer's own direction to that of the lowest, as layer 0 stands when its turn comes.
TEST_F(weather_test, wind_layers_turn_about_the_lowest) {
    const float dir[3] = {100.0f, 200.0f, 300.0f};
    std::copy(dir, dir + 3, atm.set_wind_dir_mag);
    atm.wind_tbl = 0.0f;  // no chance in it
    assign_wind_tbl(0.5f);
    EXPECT_FLOAT_EQ(atm.set_wind_dir_mag[0], 100.0f);
    EXPECT_FLOAT_EQ(atm.set_wind_dir_mag[1], 150.0f);
    EXPECT_FLOAT_EQ(atm.set_wind_dir_mag[2], 200.0f);
}

TEST_F(weather_test, random_weather_is_valid_after_a_frame) {
    flt[0].terrain_y_cg = 500.0f;
    int storms = 0, fair = 0;
    for (int i = 0; i < 400; ++i) {
        randomise_weather();
        EXPECT_TRUE(con.sl_T_cel >= -10.0f && con.sl_T_cel <= 30.0f);
        EXPECT_NEAR(con.sl_P_pas * con.pasto_hg, 30.0f, 0.201f);
        EXPECT_GE(atm.base_h_MSL[0], 515.0f);
        EXPECT_GE(atm.base_h_MSL[0], atm.tops_h_MSL[1]);  // as drawn, before the limits order them
        // cloud wins over precipitation
        if (atm.cld_type[0] < 3 && atm.cld_type[1] < 3) {
            EXPECT_EQ(atm.rain_set, 0.0f);
        }
        storms += atm.tstm_set > 0.5f;
        fair += atm.cld_type[0] <= 1;
        weather_step();
        // rain that the trend has begun lifts the cloud type, after the layers are ordered, until it can rain
        atm.rate_change = 0.0f;
        for (int frame = 0; frame < 4; ++frame) weather_step();
        expect_valid();
    }
    EXPECT_GT(storms, 40);
    EXPECT_GT(fair, 40);
}

TEST_F(weather_test, runway_gets_wet_with_the_rain_slider) {
    weather_screen_struct last{};
    const auto rain = [&](float value) {
        atm.rain_set = value;
        weather_screen_rules(last);
        return atm.rway_fric_code;
    };
    EXPECT_EQ(rain(0.3f), 0);
    EXPECT_EQ(rain(0.4f), 1);
    EXPECT_EQ(rain(0.9f), 2);
    EXPECT_EQ(rain(0.0f), 0);  // across both at once
    atm.rway_fric_code = 2;    // the user's own choice stays while the rain does not cross
    EXPECT_EQ(rain(0.3f), 2);
}
