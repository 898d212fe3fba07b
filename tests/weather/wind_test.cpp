// Wind: signs, turbulence, microbursts, and the query in aircraft axes.
#include "weather/wind.h"

#include <algorithm>
#include <cmath>

#include "core/math/geo3.h"
#include "core/math/random.h"
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
        attitude(0.0f, 0.0f, 0.0f);
    }
    static void attitude(float psi, float the, float phi) {
        flt[0].sin_psi = sin_deg(psi), flt[0].cos_psi = cos_deg(psi);
        flt[0].sin_the = sin_deg(the), flt[0].cos_the = cos_deg(the);
        flt[0].sin_phi = sin_deg(phi), flt[0].cos_phi = cos_deg(phi);
    }
    static void all_layers(float spd_kts, float dir_mag) {
        std::fill_n(atm.set_wind_spd_kts, 3, spd_kts);
        std::fill_n(atm.set_wind_dir_mag, 3, dir_mag);
    }
    static void settle(int frames = 1000) {
        for (int i = 0; i < frames; ++i) wind.per_cycle();
    }
    static Vector3 at(float x, float y, float z) {
        float vx, vy, vz;
        wind.ret_wind_wrl(x, y, z, &vx, &vy, &vz);
        return {vx, vy, vz};
    }
    static Vector3 on_aircraft(float x, float y, float z) {
        float vx, vy, vz;
        wind.ret_wind_acf(x, y, z, &vx, &vy, &vz);
        return {vx, vy, vz};
    }
    test::fp_traps traps_;
};

TEST_F(wind_test, wind_from_the_west_pushes_east) {
    all_layers(20.0f, 270.0f);
    attitude(360.0f, 0.0f, 0.0f);
    settle();
    const float ms = 20.0f * con.ktstomsc;
    EXPECT_NEAR(wind.ret_wind_x(), ms, 1e-3f);
    EXPECT_NEAR(wind.ret_wind_z(), 0.0f, 1e-3f);
    EXPECT_NEAR(wind.ret_wind_dir_true(), 270.0f, 1e-2f);
    EXPECT_NEAR(wind.ret_wind_spd_msc(), 10.289f, 1e-2f);
    flt[0].vz = -50.0f;  // flying north: the air comes from ahead and pushes to the right
    EXPECT_NEAR(on_aircraft(0, 0, 0).dx, ms, 1e-3);
    EXPECT_NEAR(on_aircraft(0, 0, 0).dz, 50.0, 1e-3);

    all_layers(20.0f, 10.0f);
    env.mag_var = 10.0f;  // 10 magnetic is north here
    settle();
    EXPECT_NEAR(wind.ret_wind_z(), ms, 1e-3f);  // air moves south
    EXPECT_NEAR(fltwrap(wind.ret_wind_dir_true(), -180.0f, 180.0f), 0.0f, 1e-2f);
    all_layers(20.0f, 5.5f);  // -4.5 is cut to -4: 356
    settle();
    EXPECT_NEAR(wind.ret_wind_dir_true(), 356.0f, 1e-2f);
}

TEST_F(wind_test, turbulence_is_three_sines_an_axis) {
    wind.final_trb_rat = 0.2f;
    wind.final_X_msc = 3.0f;
    double sum[3] = {}, square[3] = {};
    constexpr int n = 200000;
    for (int i = 0; i < n; ++i) {
        const float x = flt_rand(-5000.0f, 5000.0f);
        const float y = flt_rand(-5000.0f, 5000.0f);
        const float z = flt_rand(-5000.0f, 5000.0f);
        const Vector3 v = at(x, y, z);
        const double part[3] = {v.dx - 3.0, v.dy, v.dz};
        for (int a = 0; a < 3; ++a) sum[a] += part[a], square[a] += part[a] * part[a];
    }
    for (int a = 0; a < 3; ++a) {
        EXPECT_NEAR(sum[a] / n, 0.0, 0.02);
        EXPECT_NEAR(square[a] / n, 3.0 * 2.0 * 2.0 / 2.0, 0.05);  // amplitude 2 m/s each, phases free
    }
    // one sine at a time: along z the x wind repeats after 60 / 0.8 m; all repeat after 2 pi s
    EXPECT_NEAR(at(10.0f, 20.0f, 30.0f).dx, at(10.0f, 20.0f, 105.0f).dx, 1e-4);
    const Vector3 before = at(10.0f, 20.0f, 30.0f);
    wind.totl_os_t += con.pim2;
    EXPECT_NEAR((at(10.0f, 20.0f, 30.0f).dy), before.dy, 1e-4);
    // the whole pattern moves with its offset
    wind.totl_os_t = 0.0f, wind.totl_os_x = 7.0f, wind.totl_os_z = -5.0f;
    EXPECT_NEAR(at(17.0f, 20.0f, 25.0f).dx, before.dx, 1e-4);
    // a wing feels it unevenly, but smoothly
    EXPECT_GT(std::fabs(at(0, 0, 0).dy - at(20, 0, 0).dy), 0.1);
    EXPECT_LT(std::fabs(at(0, 0, 0).dy - at(0.01f, 0, 0).dy), 0.01);
}

// After a day a sum of floats would add nothing, or too much.
TEST_F(wind_test, phase_of_the_field_never_stalls) {
    mnw.prd_FM = 0.001f;
    wind.totl_os_t = 100000.0f;
    settle(100000);
    EXPECT_NEAR(wind.totl_os_t, 100100.0f, 0.02f);
}

TEST_F(wind_test, aircraft_axes) {
    wind.final_X_msc = 4.0f, wind.final_Y_msc = -1.0f, wind.final_Z_msc = 7.0f, wind.final_trb_rat = 0.3f;
    flt[0].dob_x = 1234.0, flt[0].dob_y = 800.0, flt[0].dob_z = -4321.0;
    flt[0].vx = 30.0f, flt[0].vy = 2.0f, flt[0].vz = -40.0f;

    // heading east: a point on the right wing lies to the south; what blows south blows to the right
    attitude(90.0f, 0.0f, 0.0f);
    const Vector3 south = at(1234.0f, 800.0f, -4311.0f);
    Vector3 felt = on_aircraft(10.0f, 0.0f, 0.0f);
    EXPECT_NEAR(felt.dx, south.dz + 40.0, 1e-3);
    EXPECT_NEAR(felt.dz, 30.0 - south.dx, 1e-3);
    // right wing straight down
    attitude(0.0f, 0.0f, 90.0f);
    const Vector3 below = at(1234.0f, 790.0f, -4321.0f);
    felt = on_aircraft(10.0f, 0.0f, 0.0f);
    EXPECT_NEAR(felt.dx, 2.0 - below.dy, 1e-3);
    // any attitude keeps the speed
    attitude(213.0f, -31.0f, 77.0f);
    Vector3 air = at(1234.0f, 800.0f, -4321.0f);
    air = {air.dx - 30.0, air.dy - 2.0, air.dz + 40.0};
    EXPECT_NEAR(on_aircraft(0, 0, 0).squared_length(), air.squared_length(), 1e-1);
}

static int calls;

// One a minute of waiting, and some 15 s of its own: 48 an hour, from all sides alike, pressing down, never
// up.
TEST_F(wind_test, microbursts_come_and_go) {
    seam.play_sound = [](int slot, float, float) { calls += slot == 51; };
    calls = 0;
    veh[0].warn1_EQ = 1, stg.warn_bb = 1;
    float fastest = 0.0f, lowest = 0.0f, highest = 0.0f;
    int sides[4] = {};
    const auto fly = [&](float seconds) {
        for (int i = 0; i < seconds / mnw.prd_FM; ++i) {
            mnw.totl_time += mnw.prd_FM;
            wind.per_cycle();
            const float x = wind.ret_wind_x(), z = wind.ret_wind_z();
            fastest = std::max(fastest, wind.ret_wind_spd_msc());
            lowest = std::min(lowest, wind.ret_wind_y()), highest = std::max(highest, wind.ret_wind_y());
            sides[0] += x > 5.0f, sides[1] += x<-5.0f, sides[2] += z> 5.0f, sides[3] += z < -5.0f;
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
    for (const int side : sides)
        EXPECT_NEAR(side * 4.0 / (sides[0] + sides[1] + sides[2] + sides[3]), 1.0, 0.25);
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
