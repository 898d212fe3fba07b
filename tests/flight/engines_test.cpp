// Engines on a dynamometer: the shaft is held at a speed and the engine step runs alone.
#include "flight/power/engines.h"

#include <math.h>
#include <string.h>

#include <utility>

#include "app/lab/lab.h"
#include "app/lab/lab_steady.h"
#include "flight/power/engine_control.h"
#include "flight/power/levers.h"
#include "flight/power/thrust.h"
#include "flying.h"

namespace {
class engine : public ::testing::Test {
protected:
    static constexpr float rated_power = 100000.0f, rated_speed = 300.0f;  // W, rad/s
    flt_engn_struct& e = flt[0].engn[0];
    veh_struct& v = veh[0];

    void SetUp() override {
        test::fly_aircraft("Wren 160");
        v.power_max = rated_power;
        v.RSC_redline_ENGN = rated_speed;
        v.RSC_idlespeed_ENGN = 80.0f;
        v.trq_max_eng = rated_power / rated_speed;
        v.thrust_max = 20000.0f;
        v.face_jet = 0.5f;
        v.max_mach_eff = 2.0f;
        v.spool_time_jet = 3.0f;
        v.burner_inc = 0.0f;
        v.idle_rat[0] = v.idle_rat[1] = 1.0f;
        v.max_boost_pas_prop = v.max_boost_pas_jet = 0.0f;
        v.engn[0].SFC = 1e-7f;
        flt[0].m_fuel[0] = flt[0].m_fuel[1] = flt[0].m_fuel[2] = 50.0f;
        lab_place({.speed = 0.0f, .altitude = 0.0f});
        con.lcl_sig = 1.0f;
        con.lcl_r_met = 1.225f;
        con.lcl_P_pas = 101325.0f;
    }
    void set_kind(int kind) {
        v.engn[0].engn_type = kind;
        stg.igniter[0] = 1;
        e.ignition = 3;
        e.mixt = 1.0f;
        e.thro_ref = e.thro_use = 1.0f;
        e.N1 = e.N2 = 60.0f;
        e.burning_rat = 1.0f;
        e.power = e.FF_kgs = e.thrust = 0.0f;
    }
    // The engine step for a time, the shaft held.
    void run(float seconds, float omega) {
        mnw.prd_FM = 0.01f;
        mnw.puff1 = 0;
        const bool recip = v.engn[0].engn_type <= engn_recip_inj;
        for (int i = 0; i < lroundf(seconds / mnw.prd_FM); ++i) {
            if (!jet()) e.tacrad_ENGN = e.tacrad_PROP = omega;
            if (recip) set_mixt(0, e.sigma - 0.4f + 0.2f * omega / rated_speed);
            init_engine_specs(0, 1);
            if (!jet()) e.power = e.TRQ_nm * e.tacrad_ENGN;
            if (jet()) do_a_jet(0);
        }
    }
    bool jet() const { return v.engn[0].engn_type == engn_jet_lo || v.engn[0].engn_type == engn_jet_hi; }
};

// Whatever the curves, every engine gives its rated power at its rated speed, at sea level and full throttle,
// and burns its specific consumption there.
TEST_F(engine, gives_its_rated_power_and_burns_its_specific_consumption) {
    for (const int kind : {engn_recip_carb, engn_recip_inj, engn_turb_free, engn_electric, engn_turb_fixed}) {
        set_kind(kind);
        run(30.0f, rated_speed);
        EXPECT_NEAR(e.TRQ_nm / v.trq_max_eng, 1.0f, 0.012f) << "kind " << kind;
        const float expected = kind == engn_electric ? 0.0f : 1e-7f * e.power;
        EXPECT_NEAR(e.FF_kgs, expected, 0.01f * expected) << "kind " << kind;
    }
    for (const int kind : {engn_jet_lo, engn_jet_hi}) {
        set_kind(kind);
        run(60.0f, 0.0f);
        EXPECT_NEAR(e.thrust, v.thrust_max, 0.02f * v.thrust_max) << "kind " << kind;
        EXPECT_NEAR(e.N1, 100.0f, 1.0f);
        EXPECT_NEAR(e.FF_kgs, 1e-7f * e.thrust, 0.01f * e.FF_kgs) << "kind " << kind;
        EXPECT_NEAR(e.EPR, 1.0f + e.thrust / (0.5f * 101325.0f), 1e-4f);
    }
}

TEST_F(engine, lives_four_minutes_without_oil) {
    set_kind(engn_recip_inj);
    run(30.0f, rated_speed);
    flt[0].fail_stat[fail_oil] = fail_active;
    run(120.0f, rated_speed);
    EXPECT_NEAR(e.oil_lube_rat, 0.5f, 0.01f);
    run(121.0f, rated_speed);
    EXPECT_EQ(e.oil_lube_rat, 0.0f);
    EXPECT_LT(e.TRQ_nm, -5.0f * v.trq_max_eng) << "seizes";
}

// -- levers and what runs by itself
class control : public ::testing::Test {
protected:
    veh_struct& v = veh[0];
    void SetUp() override { test::fly_aircraft("Dunlin 400"); }
    void fly(float speed, float power, float seconds) {
        lab_place({.speed = speed});
        lab_set_power(power);
        lab_hold(seconds);
    }
};

TEST_F(control, levers_refuse_what_is_no_number) {
    flt_engn_struct& e = flt[0].engn[0];
    const flt_engn_struct before = e;
    for (const float bad : {NAN, INFINITY, -INFINITY}) {
        set_thro(0, bad);
        set_prop(0, bad);
        set_mixt(0, bad);
        set_ptch(0, bad);
        set_thro_prop(bad, 0, 1);
    }
    EXPECT_EQ(memcmp(&e, &before, sizeof e), 0);
}

// Reverse below a fifth of the way, beta to three tenths, power above; what it shows is where it was put.
TEST_F(control, one_handle_runs_from_full_power_through_beta_to_reverse) {
    flt_engn_struct& e = flt[0].engn[0];
    v.throt_max_REV = 0.5f;
    v.rev_thrust_EQ = v.beta_prop_EQ = 1;
    for (const auto& [handle, mode] :
         {std::pair(0.05f, mode_reverse), {0.25f, mode_beta}, {0.6f, mode_normal}}) {
        const float shown = set_thro_prop(handle, 0, 1);
        EXPECT_EQ(e.prop_mode, mode) << handle;
        EXPECT_NEAR(shown, mode == mode_beta ? 0.2f : handle, 1e-5f);
    }
    EXPECT_NEAR(e.thro_ref, 3.0f / 7.0f * v.throt_max_FWD, 1e-5f);
}

TEST_F(control, governors_hold_the_speed_asked_for) {
    for (const float share : {1.0f, 0.9f}) {
        const float asked = share * v.RSC_redline_PROP;
        for (int en = 0; en < 2; ++en) set_prop(en, asked);
        fly(75.0f, 0.9f, 25.0f);
        for (int en = 0; en < 2; ++en) EXPECT_NEAR(flt[0].engn[en].tacrad_PROP, asked, 0.01f * asked);
    }
}

TEST_F(control, a_dead_engine_feathers_by_itself_and_comes_out_as_it_turns) {
    v.auto_feather_EQ = 1;
    v.feathered_pitch = 85.0f;
    fly(55.0f, 0.8f, 20.0f);
    const float windmill_rpm = flt[0].engn[1].tacrad_PROP;
    flt[0].fail_stat[fail_engine + 1] = fail_active;
    fly(55.0f, 0.8f, 60.0f);
    EXPECT_EQ(flt[0].engn[1].prop_mode, mode_feather);
    EXPECT_NEAR(flt[0].engn[1].pitch_deg_ref, 85.0f, 0.1f);
    EXPECT_LT(fabsf(flt[0].engn[1].tacrad_PROP), 0.1f * windmill_rpm);
    v.auto_feather_EQ = 0;  // turning again, nothing holds it there
    flt[0].engn[1].tacrad_PROP = flt[0].engn[1].tacrad_ENGN = 30.0f;
    fly(55.0f, 0.8f, 1.0f);
    EXPECT_EQ(flt[0].engn[1].prop_mode, mode_normal);
}

TEST(computer, holds_the_rotor_until_it_fails) {
    test::fly_aircraft("Plover 420");
    lab_place({.speed = 0.0f, .altitude = 300.0f});
    for (const float collective : {0.2f, 0.5f}) {
        lab_set_power(collective);
        lab_hold(40.0f);
        EXPECT_NEAR(flt[0].engn[0].tacrad_PROP, veh[0].RSC_redline_ENGN / veh[0].engn[0].prop_gear_rat,
                    0.02f * flt[0].engn[0].tacrad_PROP);
    }
    flt[0].fail_stat[fail_fadec] = fail_active;  // the throttle stands still while the load doubles
    lab_set_power(0.9f);
    lab_hold(20.0f);
    EXPECT_LT(flt[0].engn[0].tacrad_PROP, 0.95f * veh[0].RSC_redline_ENGN / veh[0].engn[0].prop_gear_rat);
}
}  // namespace
