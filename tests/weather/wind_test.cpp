// Wind: signs, the phase of its turbulence, microbursts; the field stands against the air reference.
#include "weather/wind.h"

#include <algorithm>

#include "core/math/num.h"
#include "core/program/seams.h"
#include "sound/sound.h"
#include "support.h"
#include "weather/atmosphere.h"

class wind_test : public test::system_test {
protected:
    void SetUp() override {
        system_test::SetUp();
        set_planet_specs(0);
        wind_reset();
        mnw.prd_FM = 0.02f;
        flt[0].y_agl_mtr = 3000.0f;
        flt[0].dob_ele = 3000.0;
        env.terrain_nrm[1] = 1.0f;
        const float alt[3] = {1000.0f, 2000.0f, 5000.0f};
        std::copy(alt, alt + 3, atm.set_wind_alt_mtrs);
        flt[0].cos_psi = flt[0].cos_the = flt[0].cos_phi = 1.0f;  // level, north
    }
    static void all_layers(float spd_kts, float dir_mag) {
        std::fill_n(atm.set_wind_spd_kts, 3, spd_kts);
        std::fill_n(atm.set_wind_dir_mag, 3, dir_mag);
    }
    static void settle(int frames = 1000) {
        for (int i = 0; i < frames; ++i) wind.per_cycle();
    }
    test::fp_traps traps_;
};

TEST_F(wind_test, wind_from_the_west_pushes_east) {
    all_layers(20.0f, 270.0f);
    settle();
    const float ms = 20.0f * con.ktstomsc;
    EXPECT_NEAR(wind.ret_wind_x(), ms, 1e-3f);
    EXPECT_NEAR(wind.ret_wind_z(), 0.0f, 1e-3f);
    EXPECT_NEAR(wind.ret_wind_dir_true(), 270.0f, 1e-2f);
    EXPECT_NEAR(wind.ret_wind_spd_msc(), 10.289f, 1e-2f);
    flt[0].vz = -50.0f;  // flying north: the air comes from ahead and pushes to the right
    float x, y, z;
    wind.ret_wind_acf(0.0f, 0.0f, 0.0f, &x, &y, &z);
    EXPECT_NEAR(x, ms, 1e-3f);
    EXPECT_NEAR(z, 50.0f, 1e-3f);

    all_layers(20.0f, 10.0f);
    env.mag_var = 10.0f;  // 10 magnetic is north here
    settle();
    EXPECT_NEAR(wind.ret_wind_z(), ms, 1e-3f);  // air moves south
    EXPECT_NEAR(fltwrap(wind.ret_wind_dir_true(), -180.0f, 180.0f), 0.0f, 1e-2f);
    all_layers(20.0f, 5.5f);  // -4.5 is cut to -4: 356
    settle();
    EXPECT_NEAR(wind.ret_wind_dir_true(), 356.0f, 1e-2f);
}

// After a day a sum of floats would add nothing, or too much.
TEST_F(wind_test, phase_of_the_field_never_stalls) {
    mnw.prd_FM = 0.001f;
    wind.totl_os_t = 100000.0f;
    settle(100000);
    EXPECT_NEAR(wind.totl_os_t, 100100.0f, 0.02f);
}

static int calls;

// One a minute of waiting, and some 15 s of its own: 48 an hour, pressing down, never up.
TEST_F(wind_test, microbursts_come_and_go) {
    seam.play_sound = [](int slot, float, float) { calls += slot == 51; };
    calls = 0;
    veh[0].warn1_EQ = 1, stg.warn_bb = 1;
    float fastest = 0.0f, lowest = 0.0f, highest = 0.0f;
    const auto fly = [&](float seconds) {
        for (int i = 0; i < seconds / mnw.prd_FM; ++i) {
            mnw.totl_time += mnw.prd_FM;
            wind.per_cycle();
            fastest = std::max(fastest, wind.ret_wind_spd_msc());
            lowest = std::min(lowest, wind.ret_wind_y()), highest = std::max(highest, wind.ret_wind_y());
        }
    };
    atm.burst_prob = 1.0f, flt[0].y_agl_mtr = 300.0f;
    fly(1000.0f);
    EXPECT_EQ(calls + wind.ret_wind_spd_msc(), 0.0f) << "not so high";
    flt[0].y_agl_mtr = 299.0f;
    constexpr int hours = 20;
    for (int hour = 0; hour < hours; ++hour) {
        mnw.totl_time = 0.0f;  // keeps its float fine enough for a step
        fly(3600.0f);
    }
    EXPECT_NEAR(static_cast<double>(calls) / hours, 48.0, 5.0);
    EXPECT_TRUE(fastest > 75.0f * con.ktstomsc && fastest < 90.0f * con.ktstomsc) << fastest;
    EXPECT_TRUE(lowest < -6000.0f * con.fpmtomsc && lowest > -8000.0f * con.fpmtomsc) << lowest;
    EXPECT_LT(highest, 0.1f);
}

TEST_F(wind_test, a_burst_holds_while_time_stands_still) {
    atm.burst_prob = 1.0f, flt[0].y_agl_mtr = 50.0f;
    while (wind.ret_wind_spd_msc() < 5.0f) {
        mnw.totl_time += mnw.prd_FM;
        wind.per_cycle();
    }
    settle();
    const float held = wind.ret_wind_spd_msc();
    EXPECT_GT(held, 5.0f);
    settle(100000);
    EXPECT_NEAR(wind.ret_wind_spd_msc(), held, 1e-3f);
    mnw.totl_time += 25.0f;
    atm.burst_prob = 0.0f;
    settle(3000);
    EXPECT_NEAR(wind.ret_wind_spd_msc(), 0.0f, 1e-3f);
}
