// What moves in the scene beside aircraft: without a window.
#include <cmath>

#include "core/math/num.h"
#include "scene/effects/balloons.h"
#include "scene/effects/rain.h"
#include "scene/effects/refuelling.h"
#include "scene/effects/windshield.h"
#include "support.h"
#include "weather/wind.h"

namespace {
class effects_test : public test::system_test {
protected:
    void SetUp() override {
        system_test::SetUp();
        reset_rain(), reset_windshield(), reset_balloons();
        mnw.x2_pix = 1024.0f, mnw.y2_pix = 768.0f;
        mnw.first_miss_cycle = 0;
        mnw.prd_FM = 0.02f;
    }
};

TEST_F(effects_test, hail_cracks_the_glass_by_the_second_and_fifty_times_at_most) {
    flt[0].v_ind_kts = 150.0f;
    // 0.8 a second: 24 in half a minute, give or take four deviations
    for (const float step : {0.01f, 0.04f}) {
        reset_windshield();
        mnw.prd_FM = step;
        for (float t = 0.0f; t < 30.0f; t += step) windshield_step(0.8f);
        EXPECT_NEAR(crack_count(), 24, 20) << step;
    }
    for (int i = 0; i < 100000; ++i) windshield_step(1.0f);
    EXPECT_EQ(crack_count(), crackDIM);
    for (int i = 0; i < crackDIM; ++i) {
        const crack_struct& c = crack_of(i);
        EXPECT_TRUE(c.x >= 0 && c.x <= 1024 && c.y >= 0 && c.y <= 768 && c.size >= 10 && c.size <= 40);
    }
    mnw.first_miss_cycle = 1;
    windshield_step(0.0f);
    EXPECT_EQ(crack_count(), 0) << "a new flight has new glass";
    mnw.first_miss_cycle = 0;
    flt[0].v_ind_kts = 90.0f;
    for (int i = 0; i < 10000; ++i) windshield_step(1.0f);
    EXPECT_EQ(crack_count(), 0);
}

TEST_F(effects_test, rain_passes_the_eye_with_the_aircraft_s_speed) {
    atm.rain_rat_acf = 1.0f;
    flt[0].vx = 30.0f;
    rain_step();
    EXPECT_NEAR(rain_offset()[0], -0.6f, 1e-4f);
    EXPECT_NEAR(rain_offset()[1], -0.02f * 20.0f * con.ktstomsc, 1e-4f);
    flt[0].vx = 1e30f, flt[0].vy = NAN;
    for (int i = 0; i < 1000; ++i) rain_step();
    for (const float v : rain_offset()) EXPECT_TRUE(v >= -10.0f && v <= 10.0f);
}

TEST_F(effects_test, fuel_flows_into_each_tank_by_its_share_until_it_is_full) {
    veh[0].has_refuel = veh[1].has_refuel = 1;
    veh[0].m_fuel_tot = 1000.0f;
    veh[0].tank_rat[0] = 0.5f, veh[0].tank_rat[1] = 0.3f, veh[0].tank_rat[2] = 0.2f;
    for (int p = 0; p < 2; ++p) flt[p].cos_psi = flt[p].cos_the = flt[p].cos_phi = 1.0f;
    veh[1].refuel_xyz[1] = -2.0f, flt[1].dob_y = 6.0;
    flt[0].m_fuel[1] = 295.0f;
    for (const float step : {0.02f, 0.05f}) {
        mnw.prd_FM = step;
        flt[0].m_fuel[0] = 100.0f;
        for (float t = 0.0f; t < 2.0f - 0.5f * step; t += step) refuelling_step();
        EXPECT_NEAR(flt[0].m_fuel[0], 100.0 + 0.5 * 2.0 * 122.8333 * 0.45359237, 0.2) << step;
    }
    EXPECT_FLOAT_EQ(flt[0].m_fuel[1], 300.0f);
    const float before = flt[0].m_fuel[2];
    mnw.paused = 1;
    refuelling_step();
    mnw.paused = 0, flt[1].dob_y = 8.0;  // six metres apart
    refuelling_step();
    EXPECT_EQ(flt[0].m_fuel[2], before);
}

TEST_F(effects_test, balloons_stay_within_three_miles_and_drift) {
    stg.draw_misc = 1;
    con.sl_T_cel = 20.0f;
    atm.vis_rep = 20000.0f;
    flt[0].dob_x = 5000.0, flt[0].dob_z = -8000.0;
    balloons_step();
    const auto off = [](int i) {
        return std::hypot(balloon_of(i).x - flt[0].dob_x, balloon_of(i).z - flt[0].dob_z);
    };
    for (int i = 0; i < balloonDIM; ++i) EXPECT_NEAR(off(i), 5556.0, 30.0) << i;
    for (int step = 0; step < 500; ++step) {
        flt[0].dob_x += 40.0;
        balloons_step();
        for (int i = 0; i < balloonDIM; ++i) ASSERT_LE(off(i), 5560.0);
    }
    const balloon_struct before = balloon_of(2);
    con.sl_T_cel = 5.0f;
    flt[0].dob_x += 1e5;
    balloons_step();
    EXPECT_EQ(balloon_of(2).x, before.x) << "nobody flies them in the cold";
}
}  // namespace
