// Every aircraft of the content under power, against momentum theory, energy and book-keeping.
#include <math.h>

#include <algorithm>

#include "aircraft/derive/derive.h"
#include "aircraft/design/check.h"
#include "aircraft/design/exists.h"
#include "app/lab/headless.h"
#include "app/lab/lab_pilot.h"
#include "app/lab/lab_steady.h"
#include "core/craft/engn_kinds.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "draw/images/interface_layout.h"
#include "flight/power/engines.h"
#include "flight/power/levers.h"
#include "flying.h"

namespace {
class powered : public ::testing::TestWithParam<std::string> {
protected:
    void SetUp() override {
        test::fly_aircraft(GetParam());
        if (veh[0].num_engines == 0) GTEST_SKIP() << "no engines";
    }
    bool has_wings() const { return aircraft_summary(0).S_ref > 0.0f; }
    bool is_helicopter() const { return veh[0].collective_EQ; }
};
INSTANTIATE_TEST_SUITE_P(content, powered, ::testing::ValuesIn(test::aircraft_names()),
                         [](const auto& info) { return info.param.substr(0, 4); });

constexpr float altitude = 1500.0f;

lab_steady steady(float speed, float power = -1.0f, float turn_rate = 0.0f) {
    const lab_steady s =
        lab_find_steady({.speed = speed, .altitude = altitude, .turn_rate = turn_rate, .power = power});
    EXPECT_TRUE(s.found) << "at " << speed << " m/s, residual " << s.worst;
    return s;
}

// A speed that every type flies well at: 1.5 times the stall's, or a helicopter's 30 m/s.
float good_speed(bool has_wings) { return has_wings ? 1.5f * lab_performance(altitude).stall_speed : 30.0f; }

void hold_still(float alt, float speed, float seconds) {
    lab_place({.speed = speed, .altitude = alt});
    lab_hold(seconds);
}

float thrust_of_all() {
    float sum = 0.0f;
    for (int en = 0; en < veh[0].num_thrustpoints; ++en) sum += flt[0].engn[en].thrust;
    return sum;
}

float fuel_on_board() { return flt[0].m_fuel[0] + flt[0].m_fuel[1] + flt[0].m_fuel[2]; }

TEST_P(powered, stays_in_level_flight_and_in_a_turn_with_the_controls_fixed) {
    if (is_helicopter()) GTEST_SKIP() << "unstable without a pilot, as helicopters are";
    test::fp_traps traps;
    for (const float turn : {0.0f, 2.0f}) {
        const float speed = good_speed(true);
        const lab_steady s = steady(speed, -1.0f, turn);
        lab_fly_steady(s);
        const float psi = flt[0].psi;
        const double height = flt[0].dob_ele;
        test::run_frames(30.0f);
        EXPECT_NEAR(flt[0].AV_msc, speed, 0.02f * speed);
        EXPECT_NEAR(flt[0].dob_ele, height, 15.0);
        EXPECT_NEAR(flt[0].phi, s.at.phi, 2.0f);
        EXPECT_NEAR(fltwrap(flt[0].psi - psi - 30.0f * turn, -180.0f, 180.0f), 0.0f, 4.0f);
    }
}

TEST_P(powered, is_flown_to_another_speed_height_and_heading_and_back) {
    test::fp_traps traps;
    const float slow = is_helicopter() ? 0.0f : good_speed(true),
                fast = is_helicopter() ? 30.0f : 1.2f * slow;
    const lab_steady s = steady(slow);
    lab_fly_steady(s);
    lab_pilot pilot(s.ptch, s.roll, s.hdng, s.power);
    const auto fly_to = [&](const lab_pilot_aim& aim) {
        for (int i = 0; i < 64 * 100; ++i) {
            pilot.fly(aim, 1.0f / 64.0f);
            lab_frame(1.0f / 64.0f);
            ASSERT_LT(fabsf(flt[0].phi), 40.0f) << "frame " << i;
        }
        EXPECT_NEAR(flt[0].AV_msc, aim.speed, 2.5f);
        EXPECT_NEAR(flt[0].dob_ele, aim.height, 10.0);
        EXPECT_NEAR(fltwrap(flt[0].psi - aim.heading, -180.0f, 180.0f), 0.0f, 3.0f);
    };
    fly_to({fast, altitude, 60.0f});
    fly_to({slow, altitude + 60.0f, 90.0f});
}

TEST_P(powered, climbs_by_its_excess_of_thrust) {
    if (!has_wings()) GTEST_SKIP();
    const float speed = good_speed(true);
    const lab_steady s = steady(speed, 1.0f);
    lab_fly_steady(s);
    lab_hold(2.0f);
    // thrust works along the nose, drag along the path, the slipstream's on the aircraft too
    const float excess = thrust_of_all() * cos_deg(s.at.alpha) - flt[0].drag_path_axis;
    const float climb = speed * sin_deg(s.at.gamma);
    EXPECT_GT(climb, 1.0f);
    EXPECT_NEAR(lab_mass() * con.g * climb, excess * speed, 0.1f * excess * speed);
}

TEST_P(powered, burns_what_the_gauges_say) {
    lab_fly_steady(steady(good_speed(has_wings())));
    double flow = 0.0;
    // whole seconds of the pulse that takes the fuel
    while (!mnw.puff1) lab_frame(1.0f / 64.0f);
    const float before = fuel_on_board();
    int seconds = 0;
    for (int i = 0; seconds < 60 && i < 64 * 70; ++i) {
        for (int en = 0; en < veh[0].num_engines; ++en) flow += flt[0].engn[en].FF_kgs / 64.0;
        lab_frame(1.0f / 64.0f);
        seconds += mnw.puff1;
        if (is_helicopter()) flt[0].P = flt[0].Q = flt[0].R = 0.0f;
    }
    EXPECT_NEAR(before - fuel_on_board(), flow, 0.02 * flow);
    EXPECT_GT(flow, 0.0);
}

// Momentum theory: a disc of area A that turns power P into thrust at rest makes (2 rho A P^2)^(1/3) at best;
// moving at V it needs P = T (V + v), v = -V/2 + sqrt(V^2/4 + T/(2 rho A)).
float ideal_efficiency(float thrust, float area, float V) {
    const float v = -0.5f * V + sqrtf(0.25f * V * V + thrust / (2.0f * con.lcl_r_met * area));
    return V / (V + v);
}

TEST(airliner, cruises_on_the_fuel_of_its_class) {
    test::fly_aircraft("Shearwater 870");
    const lab_steady s =
        lab_find_steady({.speed = 480.0f * con.ktstomsc, .altitude = 35000.0f * con.fttomtrs});
    ASSERT_TRUE(s.found);
    lab_fly_steady(s);
    test::run_frames(5.0f);
    float flow = 0.0f;
    for (int en = 0; en < veh[0].num_engines; ++en) flow += flt[0].engn[en].FF_kgs;
    // kilograms of force and hours, as good as pounds
    EXPECT_NEAR(flow * 3600.0f / (thrust_of_all() / con.g), 0.57f, 0.01f);
}

TEST_P(powered, propellers_keep_within_momentum_theory) {
    if (!has_this_engn(0, 0, engn_prop) || is_helicopter()) GTEST_SKIP() << "no propeller";
    const float area = veh[0].engn[0].discarea;
    lab_set_power(1.0f);
    const flt_engn_struct& e = flt[0].engn[0];
    hold_still(100.0f, 0.0f, 20.0f);
    const float ratio = e.thrust / cbrtf(2.0f * con.lcl_r_met * area * e.power * e.power);
    EXPECT_GT(ratio, 0.6f);
    EXPECT_LT(ratio, 0.8f);
    float best = 0.0f;
    for (float V = 10.0f; V < veh[0].Vne_kts * con.ktstomsc; V += 10.0f) {
        hold_still(100.0f, V, 15.0f);
        if (!(e.thrust > 0.0f)) break;
        const float efficiency = e.thrust * V / e.power;
        EXPECT_LT(efficiency, ideal_efficiency(e.thrust, area, V) + 0.01f) << V << " m/s";
        best = fltmax2(best, efficiency);
    }
    EXPECT_GT(best, 0.72f);
    EXPECT_LT(best, 0.92f);
}

// Gagg and Ferrar, SAE 1934: the power of an unsupercharged engine falls as sigma - (1 - sigma) / 7.55.
TEST_P(powered, pistons_lose_power_with_height_as_measured) {
    if (!en_is_recip(0, 0) || veh[0].crit_alt_prop > 0.0f) GTEST_SKIP() << "no unsupercharged piston engine";
    lab_set_power(1.0f);
    flt_engn_struct& e = flt[0].engn[0];
    for (const float alt : {100.0f, 1500.0f, 3000.0f, 4500.0f, 6000.0f}) {
        hold_still(alt, 40.0f, 1.0f);
        float torque_ratio = 0.0f;
        for (int i = 0; i < 100; ++i) {  // at the rated speed, leaned for the height
            e.tacrad_ENGN = e.tacrad_PROP = veh[0].RSC_redline_ENGN;
            set_mixt(0, e.sigma - 0.4f + 0.2f);
            init_engine_specs(0, 0);
            torque_ratio = e.TRQ_nm / veh[0].trq_max_eng;
        }
        const float sigma = con.lcl_sig;
        EXPECT_NEAR(torque_ratio, sigma - (1.0f - sigma) / 7.55f, 0.03f) << alt << " m";
    }
}

TEST_P(powered, survives_ten_minutes_of_random_controls_and_levers) {
    test::fp_traps traps;
    stg.reset_on_crash = 0;
    const lab_steady s = steady(good_speed(has_wings()));
    lab_fly_steady(s);
    rand_seed(11);
    float stick[4] = {0.0f, 0.0f, 0.0f, s.power};
    for (int i = 0; i < 64 * 600; ++i) {
        for (float& c : stick) c = fltlim(c + flt_rand(-0.1f, 0.1f), -1.0f, 1.0f);
        mnw.YK_ptch = stick[0];
        mnw.YK_roll = stick[1];
        mnw.YK_hdng = stick[2];
        lab_set_power(fabsf(stick[3]));
        if (i % 640 == 0) {
            for (int en = 0; en < veh[0].num_thrustpoints; ++en) {
                set_prop(en, flt_rand(veh[0].RSC_mingreen_PROP, veh[0].RSC_redline_PROP));
                set_mixt(en, flt_rand(0.0f, 1.0f));
                flt[0].engn[en].prop_mode = int_rand(0, veh[0].rev_thrust_EQ ? 3 : 1);
            }
            flt[0].handle_rat_req = flt_rand(0.0f, 1.0f);
        }
        if (flt[0].dob_ele < 400.0) lab_fly_steady(s);
        lab_frame(1.0f / 64.0f);
        ASSERT_LT(fabsf(flt[0].g_total), 1000.0f) << "frame " << i;
        ASSERT_LT(flt[0].AV_msc, 2000.0f);
    }
}

TEST_P(powered, a_propeller_without_mass_is_told_and_still_flies) {
    if (!has_this_engn(0, 0, engn_prop)) GTEST_SKIP();
    for (veh_engn_struct& e : veh[0].engn) e.mi_prop_rpm = 0.0f;
    lab_set_power(0.7f);
    hold_still(altitude, 40.0f, 30.0f);
    EXPECT_GT(flt[0].engn[0].tacrad_PROP, 0.5f * veh[0].RSC_redline_ENGN / veh[0].engn[0].prop_gear_rat);
    ACF_warn_of_zeros(0);
    ASSERT_FALSE(test::alerts.empty());
    EXPECT_NE(test::alerts.back().text.line[1].find("inertia of thrust point 0"), std::string::npos);
}

TEST_P(powered, counter_rotating_twins_are_symmetrical) {
    if (veh[0].num_engines != 2 || veh[0].engn[0].prop_dir == veh[0].engn[1].prop_dir) GTEST_SKIP();
    lab_set_power(0.8f);
    hold_still(altitude, 60.0f, 10.0f);
    const float span = aircraft_summary(0).span, scale = flt[0].m_total * con.g * span;
    EXPECT_LT(fabsf(flt[0].L) / scale, 1e-4f);
    EXPECT_LT(fabsf(flt[0].N) / scale, 1e-4f);
}

TEST(rotor, hovers_with_the_inflow_of_momentum_theory) {
    test::fly_aircraft("Plover 420");
    ASSERT_TRUE(lab_find_steady({.speed = 0.0f, .altitude = 300.0f}).found);
    const flt_engn_struct& e = flt[0].engn[veh[0].collective_en];
    const float area = veh[0].engn[veh[0].collective_en].discarea, weight = lab_mass() * con.g;
    EXPECT_NEAR(e.thrust, weight, 0.05f * weight);
    // the whole added speed is sqrt(2) of the induced one; disturbed air takes the blades .75 of it
    const float induced = sqrtf(e.thrust / (2.0f * con.lcl_r_met * area));
    EXPECT_NEAR(e.DVinc, sqrtf(2.0f) * induced, 0.1f * e.DVinc);
    const float ideal = e.thrust * induced;  // tail rotor, transmission and profile drag take the rest
    EXPECT_GT(flt[0].engn[0].power, ideal / 0.9f);
    EXPECT_LT(flt[0].engn[0].power, ideal / 0.4f);
}
}  // namespace
