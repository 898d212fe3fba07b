// The weather of a frame: limits, trend, precipitation, random weather, screen, border.
#include "weather/weather_step.h"

#include <cmath>
#include <limits>

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

TEST_F(weather_test, limits_order_the_layers) {
    atm.cld_type[0] = 3;
    atm.base_h_MSL[0] = 1000.0f, atm.tops_h_MSL[0] = 9000.0f;
    atm.cld_type[1] = 5;
    atm.base_h_MSL[1] = 2000.0f, atm.tops_h_MSL[1] = 11000.0f;
    atm.tstm_set = 0.7f, atm.rain_set = 0.2f;
    atm.set_wind_dir_mag[1] = -30.0f, atm.set_turb_inc[2] = 99.0f, atm.vis_rep = 1e6f;
    limit_weather();
    EXPECT_FLOAT_EQ(atm.tops_h_MSL[0], 1914.4f);  // only an overcast is thicker than it must be
    EXPECT_FLOAT_EQ(atm.base_h_MSL[1], 9914.4f);  // above the lower top as it stood before it was pulled down
    EXPECT_FLOAT_EQ(atm.tops_h_MSL[1], 11000.0f);
    EXPECT_FLOAT_EQ(atm.rain_set, 0.7f);
    EXPECT_FLOAT_EQ(atm.set_wind_dir_mag[1], 330.0f);
    EXPECT_FLOAT_EQ(atm.set_turb_inc[2], 9.0f);
    EXPECT_FLOAT_EQ(atm.vis_rep, 46300.0f);
    expect_valid();
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

TEST_F(weather_test, worsening_runs_down_and_then_wanders) {
    atm.cld_type[0] = 5;
    atm.tops_h_MSL[0] = 6000.0f;
    atm.rate_change = -1.0f;
    atm.rain_set = 0.5f;
    const float vis = atm.vis_rep, base = atm.base_h_MSL[0];
    weather_step();
    // one frame of the trend: a thousandth of the step
    EXPECT_NEAR(atm.rain_set, 0.5f + 2e-5f, 1e-7f);
    EXPECT_NEAR(atm.vis_rep / vis, 1.0f - 2e-5f, 1e-6f);
    EXPECT_LT(atm.base_h_MSL[0], base);
    EXPECT_NEAR(atm.burst_prob, 1e-5f, 1e-7f);

    // one setting at its bad end: a fair walk; two: the second draws again what the first left negative
    for (const float vis_rep : {9000.0f, 2000.0f}) {
        atm.rain_set = 0.9f;
        atm.vis_rep = vis_rep;
        constexpr int frames = 20000;
        int ups = 0;
        float last = atm.vis_rep;
        for (int i = 0; i < frames; ++i) {
            weather_step();
            EXPECT_LE(std::fabs(atm.vis_rep / last - 1.0f), 2.1e-5f);
            ups += atm.vis_rep > last;
            last = atm.vis_rep;
        }
        EXPECT_NEAR(ups, vis_rep > 3000.0f ? frames / 2 : frames * 3 / 4, 250);  // three deviations are 212
        EXPECT_NEAR(atm.rain_set, 0.9f, vis_rep > 3000.0f ? 0.02f : 0.15f);
    }
    expect_valid();
}

TEST_F(weather_test, turbulent_wind_layers_stay_near_the_lowest) {
    atm.wind_tbl = 1.0f;
    double sum = 0.0, most = 0.0;
    for (int i = 0; i < 2000; ++i) {
        assign_wind_tbl(1.0f);
        sum += atm.set_wind_spd_kts[2];
        most = std::fmax(most, atm.set_turb_inc[1]);
    }
    EXPECT_NEAR(sum / 2000.0, 45.0, 2.0);  // uniform 0 to 90
    EXPECT_EQ(most, 9.0);                  // drawn to 15, limited
    expect_valid();
}

TEST_F(weather_test, rain_snow_and_hail_share_the_precipitation) {
    atm.rain_set = 1.0f;
    atm.prim_layer = 0;
    atm.base_h_MSL[0] = atm.tops_h_MSL[0] = 15.0f / 0.0065f;  // freezing level of the day
    const auto settle = [](float above) {
        for (int i = 0; i < 2000; ++i) ease_precipitation(0.4f, above);
    };
    con.lcl_T_cel = 0.5f;
    settle(10.0f);
    EXPECT_NEAR(atm.level_rat_acf, 0.4f, 1e-4f);
    EXPECT_NEAR(atm.rain_rat_acf, 0.75f, 1e-4f);
    EXPECT_NEAR(atm.snow_rat_acf, 0.25f, 1e-4f);
    EXPECT_NEAR(atm.hail_rat_acf, 1.0f, 0.02f);
    con.lcl_T_cel = -5.0f;
    atm.base_h_MSL[0] = atm.tops_h_MSL[0] = 0.0f;  // 15 degrees: no hail
    settle(0.625f);
    EXPECT_NEAR(atm.rain_rat_acf, 0.0f, 1e-4f);
    EXPECT_NEAR(atm.snow_rat_acf, 0.5f, 1e-4f);
    EXPECT_NEAR(atm.hail_rat_acf, 0.0f, 1e-4f);
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

TEST_F(weather_test, screen_rules) {
    weather_screen_struct last{};
    atm.set_wind_alt_mtrs[0] = 0.0f, atm.set_wind_alt_mtrs[1] = 0.0f, atm.set_wind_alt_mtrs[2] = 9000.0f;
    atm.therm_prt = 0.9f;
    atm.download_rwx = 1;
    atm.rwx_next_check_time = 500.0f;
    weather_screen_rules(last);
    EXPECT_NEAR(atm.set_wind_alt_mtrs[0], 304.8f, 0.01f);
    EXPECT_NEAR(atm.set_wind_alt_mtrs[1], 609.6f, 0.01f);
    EXPECT_FLOAT_EQ(atm.set_wind_alt_mtrs[2], 9000.0f);
    EXPECT_FLOAT_EQ(atm.therm_prt, 0.5f);
    EXPECT_EQ(atm.use_rwx, 1);
    EXPECT_EQ(atm.rwx_next_check_time, 0.0f);
    atm.use_rwx = 0;
    weather_screen_rules(last);
    EXPECT_EQ(atm.download_rwx, 0);
}

TEST_F(weather_test, border_replaces_what_is_not_finite_and_keeps_the_rest) {
    const atm_struct good = atm;
    limit_atm_border();
    EXPECT_EQ(atm.vis_rep, good.vis_rep);
    EXPECT_EQ(atm.set_wind_spd_kts[1], good.set_wind_spd_kts[1]);
    EXPECT_EQ(atm.therm_alt_ft, good.therm_alt_ft);

    const float nan = std::numeric_limits<float>::quiet_NaN(), inf = std::numeric_limits<float>::infinity();
    atm.vis_rep = nan, atm.set_wind_dir_mag[2] = inf, atm.set_wind_alt_mtrs[0] = -inf, atm.wave_height = nan;
    atm.rate_change = nan, con.sl_T_cel = nan, con.sl_P_pas = inf, atm.therm_vvi_fpm = nan;
    atm.weather_seed = static_cast<char>(-3);
    limit_atm_border();
    weather_step();
    local_air_step();
    expect_valid();
    EXPECT_FLOAT_EQ(atm.vis_rep, 18520.0f);
    EXPECT_FLOAT_EQ(con.sl_T_cel, 15.0f);
    EXPECT_GE(atm.weather_seed, 0);
}
