// Whole flights of the aircraft of the content without power, against first principles.
#include <math.h>

#include "aircraft/derive/derive.h"
#include "app/lab/headless.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "flight/mass_motion.h"
#include "flying.h"

namespace {
constexpr float altitude = 2000.0f;

class every_glider : public ::testing::TestWithParam<std::string> {
protected:
    void SetUp() override {
        test::fly_glider(GetParam());
        if (!(aircraft_summary(0).S_ref > 0.0f)) GTEST_SKIP() << "no wings";
    }
    // In the trim of 1.4 times the stall speed.
    lab_trim fly_trimmed(float from = altitude) {
        const lab_polar p = lab_performance(from);
        const lab_trim t = lab_trim_glide(1.4f * p.stall_speed, from);
        EXPECT_TRUE(t.found);
        lab_fly_trim(t, from);
        return t;
    }
};
INSTANTIATE_TEST_SUITE_P(content, every_glider, ::testing::ValuesIn(test::aircraft_names()),
                         [](const auto& info) { return info.param.substr(0, 4); });

TEST_P(every_glider, glides_as_far_as_its_lift_over_drag) {
    const lab_trim t = fly_trimmed();
    const double x0 = flt[0].dob_x, z0 = flt[0].dob_z, h0 = flt[0].dob_ele;
    const float v0 = flt[0].AV_msc;
    test::run_frames(60.0f);
    const double distance = hypot(flt[0].dob_x - x0, flt[0].dob_z - z0);
    // the speed's energy counts as height
    const double lost = h0 - flt[0].dob_ele + (v0 * v0 - flt[0].AV_msc * flt[0].AV_msc) / (2.0 * con.g);
    EXPECT_NEAR(distance / lost, t.CL / t.CD, 0.03 * t.CL / t.CD);
}

TEST_P(every_glider, never_gains_energy_in_still_air) {
    fly_trimmed();
    mnw.YK_roll = 0.2f;
    double energy = test::specific_energy();
    for (int i = 0; i < 64 * 60 && flt[0].dob_ele > 300.0; ++i) {
        mnw.YK_ptch = 0.3f * sinf(0.05f * i);
        lab_frame(1.0f / 64.0f);
        const double now = test::specific_energy();
        // a float velocity of 50 m/s resolves the energy to about 2e-4 J/kg
        ASSERT_LT(now, energy + 2e-3) << "frame " << i;
        energy = now;
    }
}

TEST_P(every_glider, is_the_same_seen_in_a_mirror) {
    float phi[2], psi[2], the[2];
    for (int side = 0; side < 2; ++side) {
        test::fly_glider(GetParam());
        fly_trimmed();
        const float sign = side ? -1.0f : 1.0f;
        mnw.YK_roll = 0.4f * sign;
        mnw.YK_hdng = 0.1f * sign;
        test::run_frames(6.0f);
        phi[side] = flt[0].phi * sign;
        psi[side] = fltwrap(flt[0].psi * sign, -180.0f, 180.0f);
        the[side] = flt[0].the;
    }
    EXPECT_GT(fabsf(phi[0]), 5.0f);
    EXPECT_NEAR(phi[0], phi[1], 0.02f);
    EXPECT_NEAR(psi[0], psi[1], 0.02f);
    EXPECT_NEAR(the[0], the[1], 0.02f);
}

TEST_P(every_glider, answers_its_controls_the_right_way) {
    const lab_trim t = fly_trimmed();
    const float the = flt[0].the, yoke = mnw.YK_ptch;
    const auto answer = [&](float ptch, float roll, float hdng) {
        lab_fly_trim(t, altitude);
        mnw.YK_ptch = yoke + ptch, mnw.YK_roll = roll, mnw.YK_hdng = hdng;
        test::run_frames(1.0f);
    };
    answer(0.2f, 0.0f, 0.0f);
    EXPECT_GT(flt[0].the, the + 0.5f) << "pull";
    answer(0.0f, 0.5f, 0.0f);
    EXPECT_GT(flt[0].phi, 3.0f) << "stick right";
    answer(0.0f, 0.0f, 0.5f);
    EXPECT_GT(flt[0].beta, 0.5f) << "right pedal: nose right of the path";
    mnw.YK_hdng = 0.0f;
}

TEST_P(every_glider, stands_by_its_trim_when_the_step_is_a_fortieth_as_long) {
    float height[2], speed[2];
    const float steps[2] = {0.001f, 0.04f};
    for (int i = 0; i < 2; ++i) {
        test::fly_glider(GetParam());
        fly_trimmed();
        const double h0 = flt[0].dob_ele;
        for (float t = 0.0f; t < 40.0f; t += steps[i]) lab_frame(steps[i]);
        height[i] = static_cast<float>(h0 - flt[0].dob_ele);
        speed[i] = flt[0].AV_msc;
    }
    EXPECT_NEAR(speed[0], speed[1], 0.02f * speed[0]);
    EXPECT_NEAR(height[0], height[1], 0.02f * height[0]);
}

// Lanchester's long-period motion, sqrt(2) pi V / g, in which the angle of attack stays; where the pitching
// moment stays in balance instead, it is longer by the root of the manoeuvre over the static margin.
TEST_P(every_glider, has_the_phugoid_of_the_textbook) {
    const lab_trim t = fly_trimmed(3500.0f);  // more than four periods take
    const float period = sqrtf(2.0f) * static_cast<float>(M_PI) * t.speed / con.g;
    flt[0].vz *= 1.05f;        // five percent fast, heading north
    test::run_frames(period);  // the short period dies out
    // from one crossing of the mean path to the next of the same sense, twice
    float first = -1.0f, last = -1.0f;
    int crossings = 0;
    float before = flt[0].v_path - t.gamma;
    for (float time = 0.0f; time < 4.0f * period; time += 1.0f / 64.0f) {
        lab_frame(1.0f / 64.0f);
        const float now = flt[0].v_path - t.gamma;
        if (before < 0.0f && now >= 0.0f) {
            if (first < 0.0f) first = time;
            last = time;
            ++crossings;
        }
        before = now;
    }
    ASSERT_GT(flt[0].y_agl_mtr, 100.0f);
    ASSERT_GE(crossings, 3);
    const float measured = (last - first) / (crossings - 1);
    EXPECT_GT(measured, period);
    EXPECT_LT(measured, 1.35f * period);
}

// The AI at the controls draws its aims from its own clocks, and a failure stops the needles where they are.
TEST(headless, a_second_start_repeats_the_first_whatever_flew_before) {
    unsigned long long hash[2][2];
    for (auto& h : hash)
        for (int with_ai : {0, 1}) {
            test::fly_aircraft("");
            atm.set_turb_inc[0] = atm.set_turb_inc[1] = atm.set_turb_inc[2] = 3.0f;
            msc.ai_flys = msc.ai_views = with_ai;
            for (int i = 0; i < 1500; ++i) {
                if (i == 700) flt[0].fail_stat[fail_pitot] = flt[0].fail_stat[fail_static] = fail_active;
                headless_frame();
            }
            h[with_ai] = flight_state_hash();
        }
    EXPECT_EQ(hash[0][0], hash[1][0]);
    EXPECT_EQ(hash[0][1], hash[1][1]);
    EXPECT_NE(hash[0][0], hash[0][1]);
}

// Failure 3 leaves the needle where it stands, with the barometer's setting in it; a blocked static line then
// changes nothing more. A whole altimeter before a blocked line shows the frozen height by any setting.
TEST(instruments, a_failed_altimeter_stays_when_the_static_line_is_blocked_too) {
    test::fly_aircraft("Lark 15");
    nav.baro_setting_HG = 30.12f;
    headless_frame();
    const float shown = flt[0].h_ind_ft;
    EXPECT_NEAR(shown, static_cast<float>(flt[0].dob_ele) * con.mtrstoft + 200.0f, 5.0f);
    flt[0].fail_stat[fail_ss_alt] = fail_active;
    headless_frame();
    flt[0].fail_stat[fail_static] = fail_active;
    for (int i = 0; i < 10; ++i) headless_frame();
    EXPECT_EQ(flt[0].h_ind_ft, shown);
    flt[0].fail_stat[fail_ss_alt] = 0;
    nav.baro_setting_HG += 0.1f;
    headless_frame();
    EXPECT_NEAR(flt[0].h_ind_ft, shown + 100.0f, 5.0f);
}

// 0.001 s steps of 0.01 m/s2 at 250 m/s are below the last place of a float.
TEST(velocity, grows_by_accelerations_below_the_last_place_of_a_float) {
    test::fly_bare_mass();
    flt_struct& f = flt[0];
    f.vz = -250.0f;
    f.ax = f.ay = f.Pdot = f.Qdot = f.Rdot = 0.0f;
    f.az = 0.01f;
    mnw.prd_FM = 0.001f;
    for (int i = 0; i < 1000; ++i) integrate_rates();
    EXPECT_NEAR(f.vz, -249.99f, 1e-4f);
    f.vz = -100.0f;  // whoever writes it is followed
    integrate_rates();
    EXPECT_NEAR(f.vz, -100.0f, 1e-4f);
}

}  // namespace
