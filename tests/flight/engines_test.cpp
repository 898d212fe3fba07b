// Engines on a dynamometer: the shaft is held at a speed and the engine step runs alone.
#include "flight/power/engine_control.h"
#include "flight/power/engines.h"
#include "flight/power/levers.h"
#include "flight/power/thrust.h"

#include <math.h>

#include "app/lab/lab.h"
#include "app/lab/lab_steady.h"
#include "core/math/num.h"
#include "flight/autopilot/autopilot.h"
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
        stand_at(0.0f, 0.0f);
        sea_level();
    }
    void stand_at(float altitude, float speed) {
        lab_flight at;
        at.altitude = altitude;
        at.speed = speed;
        lab_place(at);
    }
    void sea_level() {
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
            if (recip && lean) set_mixt(0, e.sigma - 0.4f + 0.2f * omega / rated_speed);
            init_engine_specs(0, 1);
            if (!jet()) e.power = e.TRQ_nm * e.tacrad_ENGN;
            if (jet()) do_a_jet(0);
        }
    }
    bool jet() const { return v.engn[0].engn_type == engn_jet_lo || v.engn[0].engn_type == engn_jet_hi; }
    bool lean = true;
};

constexpr int shaft_kinds[] = {engn_recip_carb, engn_recip_inj, engn_turb_free, engn_electric,
                               engn_turb_fixed};

// Whatever the curves, every engine gives its rated power at its rated speed, at sea level and full throttle,
// and burns its specific consumption there.
TEST_F(engine, gives_its_rated_power_and_burns_its_specific_consumption) {
    for (const int kind : shaft_kinds) {
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

TEST_F(engine, idles_where_its_spool_balances) {
    set_kind(engn_jet_hi);
    e.thro_ref = e.thro_use = 0.0f;
    run(120.0f, 0.0f);
    // demand against spool: 100 (0.27)^0.33 = 64.9, and the control adds a tenth of the difference and of the
    // throttle
    EXPECT_NEAR(e.N2, 64.9f + 2.7f - 10.0f, 1.5f);
    EXPECT_GT(e.thrust, 0.0f);
    v.idle_rat[1] = 0.5f;
    stg.idle_speed[0] = 1;
    const float high = e.N2;
    run(120.0f, 0.0f);
    EXPECT_LT(e.N2, high - 5.0f);
}

TEST_F(engine, a_piston_engine_burns_only_with_all_that_it_needs) {
    const auto burns = [&](auto&& spoil) {
        set_kind(engn_recip_carb);
        lean = false;
        memset(flt[0].fail_stat, 0, sizeof flt[0].fail_stat);
        e.carb_ice = 0.0f;
        stg.fuel_pump[0] = 0;
        stg.fuel_tank_sel = 4;
        run(0.02f, rated_speed);
        EXPECT_TRUE(e.burning_fuel);
        spoil();
        init_engine_specs(0, 0);
        return e.burning_fuel != 0;
    };
    EXPECT_FALSE(burns([&] { e.ignition = 0; }));
    EXPECT_FALSE(burns([&] { e.carb_ice = 0.51f; }));
    EXPECT_FALSE(burns([&] { e.tacrad_ENGN = 0.24f * v.RSC_idlespeed_ENGN; }));
    EXPECT_TRUE(burns([&] { e.tacrad_ENGN = 0.26f * v.RSC_idlespeed_ENGN; })) << "a windmilling propeller";
    EXPECT_FALSE(burns([&] { e.mixt = e.sigma - 0.51f; })) << "too lean";
    EXPECT_FALSE(burns([&] { e.mixt = 0.025f; }));
    EXPECT_FALSE(burns([&] { flt[0].fail_stat[fail_engine] = fail_active; }));
    EXPECT_FALSE(burns([&] { flt[0].fail_stat[fail_eng_sep] = fail_active; }));
    EXPECT_FALSE(burns([&] { flt[0].fail_stat[fail_fuel_pump] = fail_active; }));
    EXPECT_TRUE(burns([&] {
        flt[0].fail_stat[fail_fuel_pump] = fail_active;
        stg.fuel_pump[0] = 1;
    })) << "the electric pump stands in";
    EXPECT_FALSE(burns([&] { stg.fuel_tank_sel = 0; }));
}

TEST_F(engine, the_starter_sets_the_magnetos_and_turns_with_power_on_the_bus_only) {
    set_kind(engn_recip_carb);
    e.ignition = 0;
    stg.start_time[0] = mnw.totl_time + 1.0f;
    e.bat_volt = 1.0f;
    stg.battery = 1;
    e.tacrad_ENGN = e.tacrad_PROP = 0.0f;
    init_engine_specs(0, 0);
    EXPECT_EQ(e.ignition, 3);
    EXPECT_GT(e.TRQ_nm, 0.3f * v.trq_max_eng);
    // starter and the two fixed loads, then everything that the panel can switch on
    memset(&stg.ice_all, 0, sizeof stg.ice_all);
    stg.avionics = 0;
    flt[0].nav_lite = flt[0].bea_lite = flt[0].str_lite = flt[0].lan_lite = flt[0].tax_lite = 0;
    v.battery_rat = 2.0f;
    init_engine_specs(0, 0);
    EXPECT_NEAR(e.bat_amp, -0.5f * (0.75f + 0.006f), 1e-5f);
    stg.start_time[0] = 0.0f;
    for (int* on : {&stg.ice_all, &stg.ice_pitot_heat, &stg.ice_auto_ignite, &stg.ice_inlet_heat,
                    &stg.ice_prop_heat, &stg.ice_surf_heat, &stg.ice_window_heat, &stg.avionics,
                    &flt[0].nav_lite, &flt[0].bea_lite, &flt[0].str_lite, &flt[0].lan_lite, &flt[0].tax_lite})
        *on = 1;
    init_engine_specs(0, 0);
    EXPECT_NEAR(e.bat_amp, -0.5f * (0.006f + 0.001f + 2 * 0.02f + 5 * 0.05f + 2 * 0.005f + 3 * 0.05f), 1e-5f);
    flt[0].fail_stat[fail_esys] = fail_active;
    stg.start_time[0] = mnw.totl_time + 1.0f;
    init_engine_specs(0, 0);
    EXPECT_EQ(e.bat_amp, 0.0f);
    EXPECT_LT(e.TRQ_nm, 0.3f * v.trq_max_eng);
}

TEST_F(engine, only_its_igniter_lights_a_turbine_and_it_stays_lit) {
    for (const int kind : {engn_turb_free, engn_turb_fixed, engn_jet_lo, engn_jet_hi}) {
        set_kind(kind);
        e.burning_fuel = 0;
        stg.igniter[0] = 0;
        run(0.01f, 0.5f * rated_speed);
        EXPECT_FALSE(e.burning_fuel) << kind;
        stg.igniter[0] = 1;
        run(0.01f, 0.5f * rated_speed);
        EXPECT_TRUE(e.burning_fuel) << kind;
        stg.igniter[0] = 0;
        run(1.0f, 0.5f * rated_speed);
        EXPECT_TRUE(e.burning_fuel) << kind;
        e.mixt = 0.02f;  // the condition lever shut
        stg.igniter[0] = 1;
        run(0.01f, 0.5f * rated_speed);
        EXPECT_FALSE(e.burning_fuel) << kind;
        e.mixt = 1.0f;
        e.N1 = e.N2 = 0.5f;
        run(0.01f, 0.004f * rated_speed);
        EXPECT_FALSE(e.burning_fuel) << "turning too slowly, kind " << kind;
    }
}

TEST_F(engine, fuel_comes_from_the_drop_tank_first_then_from_the_selected_tank) {
    set_kind(engn_recip_inj);
    e.FF_kgs = 2.0f;
    const auto second = [&] {
        mnw.puff1 = 1;
        e.FF_kgs = 2.0f;
        init_engine_specs(0, 1);
        init_engine_specs(0, 0);  // the second half step takes none
        mnw.puff1 = 0;
    };
    float* m = flt[0].m_fuel;
    m[0] = 10.0f, m[1] = 30.0f, m[2] = 20.0f;
    stg.fuel_tank_sel = 4;
    second();
    EXPECT_EQ(m[1], 28.0f);
    stg.fuel_tank_sel = 1;
    second();
    EXPECT_EQ(m[0], 8.0f);
    m[0] = 1.0f;
    second();
    EXPECT_EQ(m[0], 0.0f) << "never below empty";
    second();
    EXPECT_FALSE(e.burning_fuel) << "an empty tank gives nothing though others are full";

    for (const int station : {3, 5}) {
        veh[0].wpn[station].type = 23;
        veh[0].wpn[station].fuel_warhead_mass_now = 40.0f;
        veh[0].wpn[station].total_weapon_mass_now = 60.0f;
    }
    second();
    EXPECT_EQ(veh[0].wpn[3].fuel_warhead_mass_now, 38.0f) << "the first of equals";
    EXPECT_EQ(veh[0].wpn[3].total_weapon_mass_now, 58.0f);
    second();
    EXPECT_EQ(veh[0].wpn[5].fuel_warhead_mass_now, 38.0f) << "then the fuller";
    EXPECT_TRUE(e.burning_fuel);
    veh[0].wpn[3].free_flyer = veh[0].wpn[5].free_flyer = 1;
    veh[0].wpn[3].action_mode = veh[0].wpn[5].action_mode = 1;
    second();
    EXPECT_FALSE(e.burning_fuel) << "dropped";
}

TEST_F(engine, sees_the_density_that_its_inlet_makes) {
    const auto sigma = [&](int kind) {
        v.engn[0].engn_type = kind;
        init_engine_specs(0, 0);
        return e.sigma;
    };
    con.lcl_sig = 0.5f;
    v.max_boost_pas_prop = v.max_boost_pas_jet = 20000.0f;
    flt[0].Mach = 0.0f;
    flt[0].Qstatic = 0.0f;
    EXPECT_NEAR(sigma(engn_turb_fixed), 0.5f + 0.19738f, 1e-4f);
    con.lcl_sig = 0.9f;
    EXPECT_NEAR(sigma(engn_turb_fixed), 1.0f, 1e-5f) << "no more than sea level";
    con.lcl_sig = 0.05f;
    EXPECT_NEAR(sigma(engn_turb_fixed), 0.05f + 0.5f * 0.19738f, 1e-4f) << "too thin to compress";
    con.lcl_sig = 0.0f;
    EXPECT_EQ(sigma(engn_turb_fixed), 0.0f);
    EXPECT_EQ(sigma(engn_electric), 1.0f);
    EXPECT_EQ(sigma(engn_rocket), 1.0f);

    v.max_boost_pas_prop = v.max_boost_pas_jet = 0.0f;
    con.lcl_sig = 0.5f;
    flt[0].Qstatic = 10000.0f;
    EXPECT_NEAR(sigma(engn_recip_inj), 0.5f + 0.07402f, 1e-4f) << "ram";
    flt[0].Qstatic = 0.0f;
    con.lcl_sig = 1.0f;
    e.ignition = 1;
    EXPECT_NEAR(sigma(engn_recip_inj), 0.85f, 1e-5f) << "one magneto";
    e.ignition = 3;
    e.heat = 1.0f;
    e.carb_ice = 0.2f;
    EXPECT_NEAR(sigma(engn_recip_carb), 0.9f * 0.8f, 1e-5f);
    EXPECT_NEAR(sigma(engn_recip_inj), 1.0f, 1e-5f) << "no carburettor";
    flt[0].inlet_ice = 0.3f;
    EXPECT_NEAR(sigma(engn_recip_inj), 0.7f, 1e-5f);
    flt[0].inlet_ice = 0.0f;

    con.lcl_sig = 0.5f;
    flt[0].Mach = 0.8f;
    EXPECT_NEAR(sigma(engn_jet_hi), 0.5f - 0.1f, 1e-5f);
    EXPECT_NEAR(sigma(engn_jet_lo), 0.5f + 0.08f, 1e-5f);
    flt[0].Mach = 2.0f;  // the density ratio of a normal shock at Mach 2 is 2.667
    EXPECT_NEAR(sigma(engn_jet_lo), (0.5f + 0.2f) * 2.6667f, 1e-3f);
    v.max_mach_eff = 1.8f;
    EXPECT_NEAR(sigma(engn_jet_lo), 0.7f * 2.6667f / 2.0f, 1e-3f);
}

TEST_F(engine, is_hottest_at_the_best_mixture_and_in_a_slow_start) {
    set_kind(engn_recip_inj);
    run(20.0f, rated_speed);
    const float at_best = e.EGT, flow = e.FF_kgs;
    lean = false;
    e.mixt = 1.0f;
    run(20.0f, rated_speed);
    EXPECT_LT(e.EGT, at_best - 50.0f);
    EXPECT_GT(e.FF_kgs, 1.1f * flow);
    e.mixt = 0.6f;
    run(20.0f, rated_speed);
    EXPECT_LT(e.EGT, at_best - 50.0f);
    EXPECT_LT(e.FF_kgs, 0.9f * flow);

    v.max_ITT = 800.0f;
    v.spool_time_jet = 1e6f;  // a spool that hangs
    set_kind(engn_turb_free);
    e.thro_use = 0.0f;
    e.N1 = 10.0f;
    run(20.0f, 0.3f * rated_speed);
    EXPECT_GT(e.ITT, 0.95f * 800.0f);
    e.N1 = 60.0f;
    run(20.0f, 0.3f * rated_speed);
    EXPECT_LT(e.ITT, 0.35f * 800.0f);
}

TEST_F(engine, lives_four_minutes_without_oil) {
    set_kind(engn_recip_inj);
    run(30.0f, rated_speed);
    EXPECT_NEAR(e.OILP, 0.5f * v.max_OILP, 0.01f * v.max_OILP);
    flt[0].fail_stat[fail_oil] = fail_active;
    run(120.0f, rated_speed);
    EXPECT_NEAR(e.oil_lube_rat, 0.5f, 0.01f);
    EXPECT_LT(e.OILP, 0.01f);
    run(121.0f, rated_speed);
    EXPECT_EQ(e.oil_lube_rat, 0.0f);
    EXPECT_LT(e.TRQ_nm, -5.0f * v.trq_max_eng) << "seizes";
}

TEST_F(engine, out_of_fuel_its_flow_dies_away_and_a_wire_guided_one_holds_idle) {
    set_kind(engn_recip_inj);
    run(20.0f, rated_speed);
    const float flow = e.FF_kgs;
    stg.fuel_tank_sel = 0;
    run(0.2f, rated_speed);  // one time constant
    EXPECT_NEAR(e.FF_kgs / flow, expf(-1.0f), 0.03f);
    EXPECT_FALSE(e.burning_fuel);

    stg.fuel_tank_sel = 4;
    set_kind(engn_recip_inj);
    v.drive_by_wire_EQ = 1;
    e.thro_ref = e.thro_use = 0.0f;
    lean = false;
    run(0.5f, 0.8f * v.RSC_idlespeed_ENGN);
    EXPECT_GT(e.TRQ_nm, 0.1f * v.trq_max_eng);
    EXPECT_NEAR(e.mixt, 1.0f - 0.4f + 0.2f * 0.8f * 80.0f / 300.0f, 1e-4f);
    e.thro_ref = e.thro_use = 1.0f;
    run(0.5f, 1.3f * rated_speed);
    EXPECT_LT(e.TRQ_nm, 0.0f);
}

TEST_F(engine, a_jet_taps_burns_and_reverses) {
    set_kind(engn_jet_lo);
    run(60.0f, 0.0f);
    const float dry = e.thrust;
    flt[0].Qstatic = 10000.0f;
    e.N1 = 0.0f;
    do_a_jet(0);
    EXPECT_NEAR(e.thrust, -0.3f * 0.5f * 10000.0f, 1.0f) << "ram drag";
    flt[0].Qstatic = 0.0f;

    e.N1 = 100.0f;
    v.burner_inc = 8000.0f;
    e.burner_on = 1;
    do_a_jet(0);
    EXPECT_NEAR(e.thrust, dry + 8000.0f, 0.02f * dry);
    const float dry_flow = [&] {
        e.burner_on = 0;
        return fuelburn_kgpersec(dry, 0);
    }();
    e.burner_on = 1;
    EXPECT_NEAR(fuelburn_kgpersec(dry + 8000.0f, 0), dry_flow * 1.4f * (1.0f + 8.0f / 28.0f),
                0.02f * dry_flow);
    e.burner_on = 0;

    e.prop_mode = mode_reverse;
    do_a_jet(0);
    EXPECT_NEAR(e.thrust, -0.5f * 20000.0f, 400.0f);
    EXPECT_GT(fuelburn_kgpersec(e.thrust, 0), 0.4f * dry_flow) << "reverse counts by its size";
    e.prop_mode = mode_normal;

    stg.pre_rotating = 1;
    flt[0].pre_rot_total_power = 0.0f;
    do_a_jet(0);
    EXPECT_NEAR(e.thrust, 0.25f * 20000.0f, 200.0f);
    // three quarters of the stream's power, of which three quarters are tapped
    EXPECT_NEAR(flt[0].pre_rot_total_power, 0.75f * 0.75f * 20000.0f * sqrtf(20000.0f / (1.225f * 0.5f)),
                2e4f);
    stg.pre_rotating = 0;

    v.num_thrustpoints = 2;
    v.engn[1].prop_type = prop_lift_fan;
    v.lift_fan_rat = 0.6f;
    e.vert_disc_vector = 90.0f;
    do_a_jet(0);
    EXPECT_NEAR(e.thrust, 0.4f * 20000.0f, 200.0f);
    e.vert_disc_vector = 0.0f;
    do_a_jet(0);
    EXPECT_NEAR(e.thrust, 20000.0f, 400.0f) << "no fan in wing-borne flight";
}

TEST_F(engine, a_rocket_pushes_by_the_air_around_it) {
    set_kind(engn_rocket);
    v.rock_max_sl = 1000.0f;
    v.rock_max_opt = 1200.0f;
    v.rock_max_vac = 1300.0f;
    v.rock_h_opt = 10000.0f;
    init_engine_specs(0, 0);
    const auto thrust = [&](float rho) {
        con.lcl_r_met = rho;
        return get_rocket_thrust(0);
    };
    EXPECT_NEAR(thrust(1.225f), 1000.0f, 0.1f);
    EXPECT_NEAR(thrust(0.4127f), 1200.0f, 3.0f);  // standard air at 10 km
    EXPECT_NEAR(thrust(0.0f), 1300.0f, 0.1f);
    EXPECT_NEAR(thrust(0.5f * 0.4127f), 1250.0f, 2.0f);
    e.thro_use = 0.5f;
    EXPECT_NEAR(thrust(1.225f), 500.0f, 0.1f);
    e.FF_kgs = 0.25f;
    do_a_rocket(0);
    EXPECT_NEAR(e.DVinc, 2000.0f, 0.5f) << "the speed of its exhaust";
    v.num_thrustpoints = 1;
    stg.fuel_tank_sel = 0;
    init_engine_specs(0, 0);
    EXPECT_EQ(thrust(1.225f), 0.0f);
}

// -- levers and what runs by itself
class control : public ::testing::Test {
protected:
    veh_struct& v = veh[0];
    void SetUp() override { test::fly_aircraft("Dunlin 400"); }
    void fly(float speed, float power, float seconds) {
        lab_flight at;
        at.speed = speed;
        at.altitude = 1000.0f;
        lab_place(at);
        lab_set_power(power);
        lab_hold(seconds);
    }
};

TEST_F(control, levers_keep_their_ranges_and_refuse_what_is_no_number) {
    flt_engn_struct& e = flt[0].engn[0];
    v.throt_max_FWD = 1.1f;
    v.throt_max_REV = 0.4f;
    set_thro(0, 5.0f);
    EXPECT_EQ(e.thro_ref, 1.1f);
    e.prop_mode = mode_reverse;
    set_thro(0, 5.0f);
    EXPECT_EQ(e.thro_ref, 0.4f);
    e.prop_mode = mode_normal;
    set_prop(0, 1e9f);
    EXPECT_EQ(e.prop_rsc, v.RSC_redline_PROP);
    set_prop(0, 0.0f);
    EXPECT_EQ(e.prop_rsc, v.RSC_mingreen_PROP);
    set_mixt(0, -1.0f);
    EXPECT_EQ(e.mixt, 0.0f);
    const float pitch = e.pitch_deg_ref, thro = e.thro_ref, prop = e.prop_rsc;
    for (const float bad : {NAN, INFINITY, -INFINITY}) {
        set_thro(0, bad);
        set_prop(0, bad);
        set_mixt(0, bad);
        set_ptch(0, bad);
        set_thro_prop(bad, 0, 1);
    }
    EXPECT_EQ(e.pitch_deg_ref, pitch);
    EXPECT_EQ(e.thro_ref, thro);
    EXPECT_EQ(e.prop_rsc, prop);
    EXPECT_EQ(e.mixt, 0.0f);

    mnw.prd_FM = 0.1f;  // a governed blade turns 4.5 degrees in it
    v.engn[0].prop_type = prop_constant;
    v.engn[0].min_pitch = 10.0f;
    v.engn[0].max_pitch = 40.0f;
    e.pitch_deg_ref = 20.0f;
    set_ptch(0, 99.0f);
    EXPECT_NEAR(e.pitch_deg_ref, 24.5f, 1e-4f);
    v.engn[0].prop_type = prop_manual;
    set_ptch(0, 99.0f);
    EXPECT_EQ(e.pitch_deg_ref, 40.0f);
    v.feathered_pitch = 85.0f;
    const struct {
        int mode;
        float low, high;
    } ranges[] = {{mode_feather, 85.0f, 85.0f},
                  {mode_normal, 10.0f, 40.0f},
                  {mode_beta, 0.0f, 0.0f},
                  {mode_reverse, -90.0f, 10.0f}};
    for (const auto& r : ranges) {
        e.prop_mode = r.mode;
        set_ptch(0, -200.0f);
        EXPECT_EQ(e.pitch_deg_ref, r.low);
        set_ptch(0, 200.0f);
        EXPECT_EQ(e.pitch_deg_ref, r.high);
    }
}

TEST_F(control, one_handle_runs_from_full_power_through_beta_to_reverse) {
    flt_engn_struct& e = flt[0].engn[0];
    v.throt_max_FWD = 1.0f;
    v.throt_max_REV = 0.5f;
    v.rev_thrust_EQ = v.beta_prop_EQ = 1;
    for (float handle = 0.0f; handle <= 1.0f; handle += 0.05f) {
        const float back = set_thro_prop(handle, 0, 1);
        if (handle < 0.2f)
            EXPECT_EQ(e.prop_mode, mode_reverse) << handle;
        else if (handle < 0.299f)
            EXPECT_EQ(e.prop_mode, mode_beta) << handle;
        else
            EXPECT_EQ(e.prop_mode, mode_normal) << handle;
        if (e.prop_mode != mode_beta) {
            EXPECT_NEAR(back, handle, 1e-5f);
        }
    }
    set_thro_prop(0.0f, 0, 1);
    EXPECT_EQ(e.thro_ref, 0.5f);
    set_thro_prop(0.9f, 0, 0);
    EXPECT_EQ(e.prop_mode, mode_reverse) << "only drawn";
    v.rev_thrust_EQ = 0;
    e.prop_mode = mode_normal;
    EXPECT_NEAR(set_thro_prop(0.25f, 0, 1), 0.25f, 1e-6f);
    EXPECT_NEAR(e.thro_ref, 0.25f, 1e-6f) << "no reverse: the whole way is power";
}

TEST_F(control, governors_hold_the_speed_asked_for_and_follow_the_first) {
    for (const float share : {1.0f, 0.9f}) {
        const float asked = share * v.RSC_redline_PROP;
        for (int en = 0; en < 2; ++en) set_prop(en, asked);
        for (const float speed : {50.0f, 75.0f}) {
            fly(speed, 0.9f, 25.0f);
            for (int en = 0; en < 2; ++en) EXPECT_NEAR(flt[0].engn[en].tacrad_PROP, asked, 0.01f * asked);
        }
    }
    set_prop(0, 0.85f * v.RSC_redline_PROP);
    set_prop(1, v.RSC_redline_PROP);
    stg.prop_sync_on = 1;
    fly(60.0f, 0.8f, 30.0f);
    EXPECT_NEAR(flt[0].engn[1].tacrad_PROP, flt[0].engn[0].tacrad_PROP, 0.005f * v.RSC_redline_PROP);
    flt[0].prop_ospeed_test_timeout = mnw.totl_time + 1000.0f;
    fly(60.0f, 0.8f, 30.0f);
    EXPECT_NEAR(flt[0].engn[0].tacrad_PROP, 0.875f * 0.85f * v.RSC_redline_PROP, 0.01f * v.RSC_redline_PROP);
}

TEST_F(control, a_dead_engine_feathers_by_itself_or_by_its_lever) {
    v.auto_feather_EQ = 1;
    v.feathered_pitch = 85.0f;
    fly(55.0f, 0.8f, 20.0f);
    const float windmill_rpm = flt[0].engn[1].tacrad_PROP;
    flt[0].fail_stat[fail_engine + 1] = fail_active;
    fly(55.0f, 0.8f, 60.0f);
    EXPECT_EQ(flt[0].engn[1].prop_mode, mode_feather);
    EXPECT_NEAR(flt[0].engn[1].pitch_deg_ref, 85.0f, 0.1f);
    EXPECT_LT(fabsf(flt[0].engn[1].tacrad_PROP), 0.1f * windmill_rpm);
    const float feathered_drag = -flt[0].engn[1].thrust;
    // the same without the system: the propeller windmills and drags
    flt[0].fail_stat[fail_feather] = fail_active;
    flt[0].engn[1].prop_mode = mode_normal;
    flt[0].engn[1].tacrad_PROP = flt[0].engn[1].tacrad_ENGN = windmill_rpm;
    fly(55.0f, 0.8f, 30.0f);
    EXPECT_EQ(flt[0].engn[1].prop_mode, mode_normal);
    EXPECT_GT(-flt[0].engn[1].thrust, 3.0f * feathered_drag);
    v.feather_with_prop_EQ = 1;
    set_prop(1, v.RSC_mingreen_PROP);
    fly(55.0f, 0.8f, 1.0f);
    EXPECT_EQ(flt[0].engn[1].prop_mode, mode_feather);
    // running again, it comes out as soon as it turns
    memset(flt[0].fail_stat, 0, sizeof flt[0].fail_stat);
    set_prop(1, v.RSC_redline_PROP);
    flt[0].engn[1].tacrad_PROP = flt[0].engn[1].tacrad_ENGN = 30.0f;
    fly(55.0f, 0.8f, 30.0f);
    EXPECT_EQ(flt[0].engn[1].prop_mode, mode_normal);
    EXPECT_GT(flt[0].engn[1].thrust, 0.0f);
}

TEST_F(control, beta_and_reverse_and_the_way_out_of_them) {
    v.rev_thrust_EQ = 1;
    v.throt_max_REV = 0.6f;
    v.reversed_pitch = -12.0f;
    v.feather_with_prop_EQ = 0;
    flt_engn_struct& e = flt[0].engn[0];
    e.prop_mode = mode_beta;
    fly(30.0f, 0.0f, 3.0f);
    EXPECT_EQ(e.prop_mode, mode_beta);
    EXPECT_NEAR(e.pitch_deg_ref, 0.0f, 0.01f);
    fly(30.0f, 0.3f, 0.1f);
    EXPECT_EQ(e.prop_mode, mode_normal) << "power ends beta";
    e.prop_mode = mode_reverse;
    fly(20.0f, 0.6f, 10.0f);
    EXPECT_NEAR(e.pitch_deg_ref, -12.0f, 0.1f);
    EXPECT_LT(e.thrust, -500.0f);
    e.prop_rsc = 0.7f * v.RSC_redline_PROP;
    control_engines();
    EXPECT_EQ(e.prop_mode, mode_normal) << "propeller lever back";
    EXPECT_EQ(e.thro_ref, 0.0f);
    flt[0].fail_stat[fail_reverse] = fail_active;
    e.prop_rsc = v.RSC_redline_PROP;
    control_engines();
    EXPECT_EQ(e.prop_mode, mode_reverse);
    set_thro(1, 1.0f);
    flt[0].fail_stat[fail_throttle] = fail_active;
    control_engines();
    EXPECT_EQ(flt[0].engn[1].thro_ref, 0.0f);
}

TEST_F(control, pitch_follows_the_kind_of_propeller) {
    flt_engn_struct& e = flt[0].engn[0];
    veh_engn_struct& kind = v.engn[0];
    v.feather_with_prop_EQ = v.auto_feather_EQ = 0;
    fly(60.0f, 0.5f, 1.0f);
    mnw.prd_FM = 10.0f;  // governors jump
    kind.prop_type = prop_fixed;
    e.prop_mode = mode_reverse;
    control_engines();
    EXPECT_EQ(e.prop_mode, mode_normal);
    EXPECT_EQ(e.pitch_deg_ref, kind.min_pitch);
    kind.prop_type = prop_manual;
    e.prop_rsc = 0.5f * (v.RSC_redline_PROP + v.RSC_mingreen_PROP);
    control_engines();
    EXPECT_NEAR(e.pitch_deg_ref, 0.5f * (kind.min_pitch + kind.max_pitch), 1e-3f);
    v.auto_rpm_with_tvec = 1;
    flt[0].vect_rat = 1.0f;
    control_engines();
    EXPECT_EQ(e.prop_rsc, v.RSC_redline_PROP);
    v.auto_rpm_with_tvec = 0;

    // Mach 0.8 at the tip of full power, 0.7 of half; the speed of flight takes its part
    kind.prop_type = prop_tip_mach;
    v.tip_mach_des_100 = 0.8f;
    v.tip_mach_des_50 = 0.7f;
    v.RSC_redline_PROP = 1000.0f;
    v.RSC_mingreen_PROP = 1.0f;
    e.power = 0.75f * v.power_max;
    control_engines();
    const float rotation = sqrtf(sqr(0.75f * con.lcl_a) - sqr(flt[0].AV_msc));
    EXPECT_NEAR(e.prop_rsc, rotation / v.wing[0].semilen_SEG, 0.01f * e.prop_rsc);

    v.linked_prop_EQ = 1;
    mnw.prd_FM = 1.0f;
    for (int en = 0; en < 2; ++en) v.engn[en].prop_type = prop_constant;
    flt[0].engn[0].pitch_deg_ref = 20.0f;
    flt[0].engn[1].pitch_deg_ref = 30.0f;
    for (int en = 0; en < 2; ++en) {
        flt[0].engn[en].tacrad_PROP = flt[0].engn[en].prop_rsc;
        flt[0].engn[en].omegadot_PROP = 0.0f;
    }
    control_engines();
    EXPECT_NEAR(flt[0].engn[0].pitch_deg_ref, 20.5f, 0.01f);
    EXPECT_NEAR(flt[0].engn[1].pitch_deg_ref, 29.5f, 0.01f);
}

TEST_F(control, a_burner_needs_everything_that_it_needs) {
    flt_engn_struct& e = flt[0].engn[0];
    const auto lit = [&](auto&& spoil) {
        v.engn[0].engn_type = engn_jet_lo;
        v.burner_inc = 5000.0f;
        v.lift_fan_rat = flt[0].vect_rat = 0.0f;
        e.burning_fuel = 1;
        e.thro_use = 1.0f;
        e.N1 = 97.0f;
        e.prop_mode = mode_normal;
        nav.mode_thro = otto_off;
        spoil();
        control_engines();
        return e.burner_on != 0;
    };
    EXPECT_TRUE(lit([] {}));
    EXPECT_FALSE(lit([&] { v.burner_inc = 0.5f; }));
    EXPECT_FALSE(lit([&] { e.burning_fuel = 0; }));
    EXPECT_FALSE(lit([&] { e.thro_use = 0.98f; }));
    EXPECT_FALSE(lit([&] { e.N1 = 94.0f; }));
    EXPECT_FALSE(lit([&] { e.prop_mode = mode_reverse; }));
    EXPECT_FALSE(lit([] { nav.mode_thro = otto_thro_speed; }));
    EXPECT_FALSE(lit([&] { v.lift_fan_rat = flt[0].vect_rat = 0.5f; }));
}

TEST(computer, stands_where_the_design_has_one_and_holds_the_rotor) {
    test::fly_aircraft("Wren 160");
    EXPECT_FALSE(eng_has_fadec(0, 0));
    veh[0].collective_EQ = 1;
    EXPECT_TRUE(eng_has_fadec(0, 0));
    veh[0].has_pre_rotate = 1;
    EXPECT_FALSE(eng_has_fadec(0, 0));
    veh[0].has_FADEC_switch = 1;
    EXPECT_TRUE(eng_has_fadec(0, 0));
    EXPECT_FALSE(eng_has_fadec(0, 1)) << "no such engine";
    veh[0].engn[0].engn_type = engn_jet_hi;
    EXPECT_FALSE(eng_has_fadec(0, 0));
    EXPECT_EQ(test::expect_fatal([] { eng_has_fadec(0, engnDIM); }).line[0], "Out of range FADEC check!");
    stg.fadec_on[0] = 1;
    EXPECT_TRUE(fadec_is_running(0, 0));
    flt[0].fail_stat[fail_fadec] = fail_active;
    EXPECT_FALSE(fadec_is_running(0, 0));

    test::fly_aircraft("Plover 420");
    lab_flight at;
    at.altitude = 300.0f;
    at.speed = 0.0f;
    lab_place(at);
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
