// The weather of a frame: strange types, layers that turn, the screen.
#include "weather/weather_step.h"

#include <algorithm>

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

// Half of the way from each layer's own direction to that of the lowest, as layer 0 stands when its turn
// comes.
TEST_F(weather_test, wind_layers_turn_about_the_lowest) {
    const float dir[3] = {100.0f, 200.0f, 300.0f};
    std::copy(dir, dir + 3, atm.set_wind_dir_mag);
    atm.wind_tbl = 0.0f;  // no chance in it
    assign_wind_tbl(0.5f);
    EXPECT_FLOAT_EQ(atm.set_wind_dir_mag[0], 100.0f);
    EXPECT_FLOAT_EQ(atm.set_wind_dir_mag[1], 150.0f);
    EXPECT_FLOAT_EQ(atm.set_wind_dir_mag[2], 200.0f);
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
