// Kinds of aircraft that the content leaves out: redesigns of its aircraft, each flown for a while.
#include <math.h>
#include <string.h>

#include <functional>

#include "aircraft/deflect.h"
#include "aircraft/derive/derive.h"
#include "aircraft/design/autoset.h"
#include "aircraft/io_acf.h"
#include "app/lab/lab_steady.h"
#include "core/math/num.h"
#include "core/program/upward.h"
#include "draw/images/interface_layout.h"
#include "flight/power/levers.h"
#include "flying.h"
#include "scenery/ground/tile.h"

namespace {
constexpr int right_wing = 9, right_stab = 17, fin = 18;
constexpr int switch_pre_rotate = 11;

class variant : public ::testing::Test {
protected:
    test::fp_traps traps;
    flt_struct& f = flt[0];
    veh_struct& v = veh[0];
    flt_engn_struct& e = flt[0].engn[0];

    // Changes the designer's record (feet, pounds, degrees, as in the file), completes and derives it anew.
    void design(const char* from, const std::function<void(veh_struct&)>& change) {
        test::fly_aircraft(from);
        ASSERT_TRUE(IO_acf(0, 0, 0));
        change(v);
        ACF_autoset(0);
        ASSERT_TRUE(derive_model(0)) << test::alerts.back().text.line[0];
        stg.start_running = 1;
        init_flt_0(start_airport, place_runway);
        lab_still_air();
        stg.reset_on_crash = 0;
        flt[0].gear_handle = 0;
        for (float& fuel : flt[0].m_fuel) fuel = 0.5f * v.m_fuel_tot / 3.0f;
    }
    static void blades(veh_struct& v, int en, const char* foil, float radius, float chord, float number) {
        veh_wing_struct& blade = v.wing[en];
        for (char* name : {blade.Rafl0, blade.Rafl1, blade.Tafl0, blade.Tafl1}) strcpy(name, foil);
        blade.els = 6;
        blade.semilen_SEG = radius;
        blade.Croot = blade.Ctip = chord;
        for (float& inc : blade.incidence) inc = 0.0f;
        v.engn[en].num_blades = number;
        v.engn[en].prop_dir = 1.0f;
    }
    static void place_at(veh_struct& v, int en, float x, float y, float z) {
        v.part[en].part_x = x;
        v.part[en].part_y = y;
        v.part[en].part_z = z;
    }
    static void remove(veh_struct& v, int right) {
        v.wing[right].semilen_SEG = v.wing[right - 1].semilen_SEG = 0.0f;
    }

    void place(float speed, float alpha = 0.0f, float altitude = 1000.0f) {
        lab_flight at;
        at.speed = speed;
        at.alpha = alpha;
        at.altitude = altitude;
        lab_place(at);
        mnw.YK_ptch = mnw.YK_roll = mnw.YK_hdng = 0.0f;
    }
    // Free flight under a simple hand that holds an attitude round the present place of the controls.
    void fly(
        float seconds, float the, const std::function<void()>& check = [] {}) {
        const float ptch = mnw.YK_ptch, roll = mnw.YK_roll, hdng = mnw.YK_hdng;
        for (int i = 0; i < static_cast<int>(64.0f * seconds); ++i) {
            mnw.YK_ptch = fltlim(ptch + 0.06f * (the - f.the) - 0.04f * f.Q, -1.0f, 1.0f);
            mnw.YK_roll = fltlim(roll - 0.04f * f.phi - 0.02f * f.P, -1.0f, 1.0f);
            mnw.YK_hdng = fltlim(hdng - 0.05f * f.R, -1.0f, 1.0f);
            lab_frame(1.0f / 64.0f);
            check();
        }
        ASSERT_LT(f.g_total, 10.0f);
    }
    float weight() const { return lab_mass() * con.g; }
    lab_steady steady(float speed) {
        lab_steady_order order;
        order.speed = speed;
        const lab_steady s = lab_find_steady(order);
        EXPECT_TRUE(s.found) << "residual " << s.worst;
        return s;
    }
};

// -- lighter than air, and wings that move
TEST_F(variant, airship_floats_upright_and_rises_by_its_envelope) {
    design("Wren 160", [](veh_struct& a) {
        a.m_displaced = 4000.0f;
        a.m_displaced_Y = a.cgY + 3.0f;
    });
    lab_set_power(0.0f);
    e.mixt = 0.0f;
    place(0.0f);
    f.disp_rat = weight() / (v.m_displaced * con.g * con.lcl_sig);
    const double height = f.dob_ele;
    test::run_frames(30.0f);
    EXPECT_NEAR(f.dob_ele, height, 10.0);
    EXPECT_LT(fabsf(f.phi) + fabsf(f.the), 10.0f);
    f.disp_rat *= 1.1f;  // a tenth of the weight lifts it
    const float before = f.vy;
    test::run_frames(1.0f);
    EXPECT_NEAR(f.vy - before, 0.1f * con.g, 0.1f);
}

TEST_F(variant, tilt_wing_flies_with_the_nose_lower) {
    design("Wren 160", [](veh_struct& a) {
        a.wing[right_wing].varinc = 1;
        a.wing[right_wing].inc2 = 40.0f;  // it acts twice
    });
    const lab_steady level = steady(45.0f);
    f.swdi_rqst = 0.04f;
    lab_hold(2.0f);
    const lab_steady tilted = steady(45.0f);
    EXPECT_NEAR(level.the - tilted.the, 3.2f, 0.8f);
    lab_fly_steady(tilted);
    fly(10.0f, tilted.the);
    EXPECT_NEAR(f.AV_msc, 45.0f, 3.0f);
    f.swdi_rqst = 1.0f;  // and the wing goes all the way, stalled or not
    fly(12.0f, 0.0f);
    EXPECT_NEAR(f.swdi_rat, 1.0f, 0.01f);
    EXPECT_LT(f.AV_msc, 38.0f);
}

TEST_F(variant, trike_is_flown_by_its_pilots_weight) {
    design("Wren 160", [](veh_struct& a) {
        a.mass_shift = 300.0f;
        a.mass_shift_dx = a.mass_shift_dz = 1.5f;
        a.ail1_up = a.ail1_dn = a.elev_up = a.elev_dn = 0.0f;
    });
    const auto after = [&](float ptch, float roll) {
        place(42.0f, 3.0f);
        lab_set_power(0.6f);
        lab_command(ptch, roll, 0.0f);
        test::run_frames(2.0f);
    };
    after(0.0f, -0.5f);
    const float left = f.phi;
    after(0.0f, 0.5f);
    EXPECT_GT(f.phi, left + 4.0f) << "over to the right";
    after(-0.5f, 0.0f);
    const float ahead = f.the;
    after(0.5f, 0.0f);
    EXPECT_GT(f.the, ahead + 2.0f) << "back, and the nose comes up";
    after(0.0f, 0.0f);
    fly(20.0f, 3.0f);
    EXPECT_LT(fabsf(f.phi), 12.0f);
    EXPECT_NEAR(f.g_nrml, 1.0f, 0.15f);
}

TEST_F(variant, flying_wing_yaws_by_its_drag_rudders) {
    design("Wren 160", [](veh_struct& a) {
        remove(a, right_stab);
        a.wing[fin].semilen_SEG = 0.0f;
        a.cgZ = 6.6f;
        a.yawb_ud = 60.0f;
        a.yawb_cratR = a.yawb_cratT = 0.3f;
        a.wing[right_wing].sweep1 = 20.0f;
        a.ail1_pitch = 15.0f;
        for (int el = 6; el < 8; ++el) a.wing[right_wing].yawb[el] = 1;
    });
    lab_set_power(0.0f);
    lab_flight at;
    at.speed = 45.0f;
    at.alpha = 4.0f;
    const auto tunnel = [&](float hdng) {
        f.FC_hdng = hdng;
        update_def_angles(0);
        return lab_tunnel(at);
    };
    const lab_coeffs none = tunnel(0.0f), right = tunnel(0.5f), left = tunnel(-0.5f);
    EXPECT_NEAR(none.Cn, 0.0f, 1e-4f);
    EXPECT_GT(right.Cn, 0.002f);
    EXPECT_NEAR(left.Cn, -right.Cn, 1e-4f);
    EXPECT_GT(right.CD, none.CD) << "by drag";
    EXPECT_NEAR(right.Cl, none.Cl, 0.003f);
    place(45.0f, 4.0f);
    mnw.YK_hdng = 0.5f;
    fly(2.0f, 4.0f);
    EXPECT_GT(f.R, 0.5f);
}

// -- propellers
TEST_F(variant, ducted_fan_loses_nothing_at_its_tips) {
    const auto standing_thrust = [&](int ducted) {
        design("Wren 160", [=](veh_struct& a) { a.engn[0].is_ducted = ducted; });
        place(0.0f);
        lab_set_power(1.0f);
        lab_hold(15.0f);
        return e.thrust / (e.power / e.tacrad_PROP);
    };
    const float open = standing_thrust(0), ducted = standing_thrust(1);
    EXPECT_GT(ducted, 1.02f * open) << "thrust for its torque";
    lab_fly_steady(steady(45.0f));
    fly(10.0f, f.the);
    EXPECT_NEAR(f.AV_msc, 45.0f, 4.0f);
}

TEST_F(variant, electric_needs_no_fuel_and_no_air) {
    design("Wren 160", [](veh_struct& a) { a.engn[0].engn_type = engn_electric; });
    for (float& fuel : f.m_fuel) fuel = 0.0f;
    lab_set_power(1.0f);
    for (const float altitude : {100.0f, 6000.0f}) {
        place(50.0f, 0.0f, altitude);
        lab_hold(20.0f);
        EXPECT_NEAR(e.TRQ_nm, v.trq_max_eng, 0.03f * v.trq_max_eng);
        EXPECT_EQ(e.FF_kgs, 0.0f);
    }
    lab_fly_steady(steady(50.0f));
    fly(10.0f, f.the);
    EXPECT_NEAR(f.AV_msc, 50.0f, 3.0f);
}

TEST_F(variant, turboprop_goes_through_beta_to_reverse_and_back) {
    design("Dunlin 400", [](veh_struct& a) {
        for (int en : {0, 1}) {
            a.engn[en].engn_type = engn_turb_free;
            a.engn[en].prop_type = prop_tip_mach;
            a.engn[en].SFC = 0.6f;
        }
        a.crit_alt_prop = 0.0f;
        a.beta_prop_EQ = a.rev_thrust_EQ = 1;
        a.throt_max_REV = 0.8f;
        a.reversed_pitch = -15.0f;
        a.tip_mach_des_100 = 0.8f;
        a.tip_mach_des_50 = 0.7f;
    });
    const lab_steady s = steady(70.0f);
    lab_fly_steady(s);
    fly(10.0f, s.the);
    EXPECT_NEAR(f.AV_msc, 70.0f, 4.0f);
    const auto handle_at = [&](float handle) {
        for (int en : {0, 1}) set_thro_prop(handle, en, 1);
        lab_hold(12.0f);
        return e.thrust;
    };
    place(50.0f);
    EXPECT_GT(handle_at(1.0f), 500.0f);
    EXPECT_LT(e.tacrad_PROP, 1.03f * v.RSC_redline_PROP);
    EXPECT_LT(handle_at(0.25f), -50.0f) << "beta: flat blades brake";
    EXPECT_NEAR(e.pitch_deg_use, 0.0f, 0.1f);
    place(20.0f);
    EXPECT_LT(handle_at(0.0f), -500.0f) << "reverse";
    EXPECT_NEAR(e.pitch_deg_use, -15.0f, 0.1f);
    EXPECT_GT(handle_at(0.9f), 500.0f);
}

// -- jets and rockets
TEST_F(variant, fighter_lights_its_burner_at_full_throttle) {
    design("Wren 160", [](veh_struct& a) {
        a.engn[0].engn_type = engn_jet_lo;
        a.engn[0].SFC = 0.8f;
        a.thrust_max = 1000.0f;
        a.burner_inc = 500.0f;
        a.face_jet = 2.0f;
        a.max_mach_eff = 1.5f;
    });
    place(60.0f);
    lab_set_power(0.97f);
    lab_hold(20.0f);
    const float dry = e.thrust, dry_flow = e.FF_kgs;
    EXPECT_FALSE(e.burner_on);
    lab_set_power(1.0f);
    lab_hold(20.0f);
    EXPECT_TRUE(e.burner_on);
    EXPECT_GT(e.thrust - dry, 500.0f * con.lbstontn * con.lcl_sig);
    EXPECT_GT(e.FF_kgs / e.thrust, 1.05f * dry_flow / dry) << "and drinks for it";
    place(60.0f, 2.0f);
    fly(8.0f, 2.0f);
    EXPECT_GT(f.AV_msc, 75.0f);
}

TEST_F(variant, rocket_climbs_on_its_own_fire_and_grows_lighter) {
    design("Wren 160", [](veh_struct& a) {
        a.engn[0].engn_type = engn_rocket;
        a.engn[0].SFC = 15.0f;
        a.rock_max_sl = 1500.0f;
        a.rock_max_opt = 1700.0f;
        a.rock_max_vac = 1800.0f;
        a.rock_h_opt = 30000.0f;
    });
    lab_set_power(1.0f);
    place(60.0f, 3.0f);
    const double height = f.dob_ele;
    fly(2.0f, 20.0f);
    const float mass = f.m_total;
    float impulse = 0.0f;
    fly(8.0f, 20.0f, [&] { impulse += e.thrust / 64.0f; });
    EXPECT_GT(f.dob_ele, height + 150.0);
    // 15 lb per hour and pound of thrust
    const float burnt = impulse * 15.0f / 3600.0f / con.g;
    EXPECT_NEAR(mass - f.m_total, burnt, 0.15f * burnt) << "taken second by second";
    const float low = e.thrust;
    place(60.0f, 3.0f, 60000.0f);
    lab_hold(2.0f);
    EXPECT_NEAR(e.thrust, 1800.0f * con.lbstontn, 20.0f) << "in near vacuum";
    EXPECT_GT(e.thrust, low);
}

TEST_F(variant, jump_jet_stands_on_its_fan_and_nozzle) {
    design("Wren 160", [](veh_struct& a) {
        a.num_thrustpoints = 2;
        a.engn[0].engn_type = engn_jet_lo;
        a.thrust_max = 2000.0f;
        a.face_jet = 2.0f;
        a.lift_fan_rat = 0.5f;
        a.RSC_redline_ENGN = 4000.0f;
        a.max_mach_eff = 1.0f;
        a.vect_EQ = 1;
        a.vect_max_disc = 90.0f;
        a.vect_rate = 30.0f;
        a.wing[0].inc_vect[0] = a.wing[1].inc_vect[0] = 1;
        place_at(a, 0, 0.0f, 0.0f, 12.45f);
        a.engn[1].prop_type = prop_lift_fan;
        a.engn[1].prop_gear_rat = 1.0f;
        a.engn[1].min_pitch = a.engn[1].max_pitch = 0.0f;
        blades(a, 1, "Fan NACA 4406 Re 1 million.afl", 2.5f, 0.44f, 12.0f);
        for (int el = 0; el < 6; ++el) a.wing[1].incidence[el] = 38.0f - 4.0f * el;
        place_at(a, 1, 0.0f, 0.0f, 6.02f);
        for (float& moment : a.puff_LMN) moment = 3000.0f;
        a.blown_flap_add_speed = 30.0f;
        a.blown_flap_min_engag = 0.3f;
        a.blown_flap_throt_red = 0.1f;
    });
    flt_engn_struct& fan = f.engn[1];
    const auto vector_to = [&](float rat) {
        f.vect_rqst = f.vect_rat = rat;
        update_def_angles(0);
    };
    // flat: the fan stands, its doors shut to whatever air comes down on it
    vector_to(0.0f);
    lab_set_power(1.0f);
    float still = 0.0f;
    for (const float alpha : {0.0f, -40.0f}) {
        place(30.0f, alpha);
        fan.tacrad_PROP = 0.0f;
        for (float& ring : fan.RING_DVinc) ring = 0.0f;
        lab_hold(0.1f);
        still = fltmax2(still, f.wing[1].v_el[3][0]);
        EXPECT_NEAR(fan.power, 0.0f, 1.0f);
    }
    EXPECT_LT(still, 0.1f);
    place(0.0f);
    lab_hold(20.0f);
    const float all = -f.faxil_prop_acf;
    EXPECT_GT(all, 0.9f * v.thrust_max * con.lcl_sig);

    // up: half the jet's power goes into the fan, all of it
    vector_to(1.0f);
    lab_hold(20.0f);
    EXPECT_GT(fan.power, 100000.0f);
    EXPECT_NEAR(fan.power, f.lift_fan_total_power, 1.0f);
    EXPECT_NEAR(fan.drag_TRQ * fan.tacrad_PROP, fan.power, 0.03f * fan.power);
    EXPECT_NEAR(e.thrust, 0.5f * all, 0.05f * all);
    const float ideal = cbrtf(2.0f * con.lcl_r_met * v.engn[1].discarea * sqr(fan.power));
    EXPECT_GT(fan.thrust, 0.5f * ideal);
    EXPECT_LT(fan.thrust, ideal);
    EXPECT_GT(f.fnrml_prop_acf, weight());
    const float L = f.L;
    lab_command(0.0f, 0.5f, 0.0f);
    lab_hold(0.5f);
    EXPECT_NEAR(f.L - L, 0.5f * v.puff_LMN[0], 0.02f * v.puff_LMN[0]) << "the puffers roll it";
    // it rises from a standstill in the pilot's hands
    lab_command(0.0f, 0.0f, 0.0f);
    const double height = f.dob_ele;
    fly(4.0f, 0.0f);
    EXPECT_GT(f.dob_ele, height + 5.0);
    EXPECT_LT(fabsf(f.phi) + fabsf(f.the), 15.0f);

    // flaps out, blown ones lift more
    vector_to(0.0f);
    f.handle_rat_req = f.handle_rat_act = 1.0f;
    update_def_angles(0);
    lab_flight at;
    at.speed = 35.0f;
    const float blown = lab_tunnel(at).CL;
    e.thro_use = 0.0f;
    EXPECT_GT(blown, lab_tunnel(at).CL + 0.1f);
}

// -- rotors
TEST_F(variant, gyrocopter_carries_itself_on_a_rotor_that_the_air_turns) {
    design("Wren 160", [](veh_struct& a) {
        remove(a, right_wing);
        a.m_empty = 900.0f;
        a.num_thrustpoints = 2;
        a.linked_prop_EQ = 1;
        a.rotor_mi_rat = 0.4f;
        a.tip_weight = 0.0f;
        a.ins_type[299] = switch_pre_rotate;
        a.engn[1].prop_type = prop_collective;
        a.engn[1].prop_gear_rat = 8.0f;
        a.engn[1].vert_init = 98.0f;
        a.engn[1].min_pitch = a.engn[1].max_pitch = 3.0f;
        blades(a, 1, "Rotor NACA 0012 Re 3 million.afl", 13.0f, 0.75f, 2.0f);
        place_at(a, 1, 0.0f, 6.0f, 7.9f);
        a.cyclic_def_elev = a.cyclic_def_ailn = 9.0f;
    });
    ASSERT_TRUE(v.has_pre_rotate);
    flt_engn_struct& rotor = f.engn[1];
    EXPECT_EQ(rotor.tacrad_PROP, 0.0f) << "it starts at rest";
    place(0.0f);
    lab_set_power(0.5f);
    stg.pre_rotating = stg.pre_rotate_level = 1;
    lab_hold(40.0f);
    const float spun_up = rotor.tacrad_PROP;
    EXPECT_GT(spun_up, 15.0f);
    stg.pre_rotating = 0;
    f.m_fixed = 0.0f;
    place(28.0f, 8.0f);
    lab_hold(60.0f);
    const float omega = rotor.tacrad_PROP, scale = rotor.thrust * v.wing[1].semilen_SEG;
    EXPECT_GT(omega, 20.0f);
    EXPECT_LT(fabsf(rotor.drag_TRQ), 0.005f * scale) << "nothing turns it but the air";
    EXPECT_GT(f.fnrml_prop_acf, 0.8f * weight());
    lab_set_power(1.0f);
    fly(15.0f, 8.0f);
    EXPECT_GT(rotor.tacrad_PROP, 0.8f * omega);
    EXPECT_NEAR(f.g_nrml, 1.0f, 0.3f);
    EXPECT_GT(f.Vh_fpm, -2000.0f);
}

TEST_F(variant, tip_rockets_turn_a_rotor_without_torque_on_the_airframe) {
    design("Plover 420", [](veh_struct& a) {
        a.num_thrustpoints = 1;
        a.linked_prop_EQ = 0;
        a.engn[0].engn_type = engn_tip_rocket;
        a.engn[0].prop_type = prop_governed_rotor;
        a.engn[0].SFC = 10.0f;
        a.rock_max_sl = a.rock_max_opt = a.rock_max_vac = 110.0f;
        a.rock_h_opt = 30000.0f;
        a.m_jettison = 0.0f;
    });
    place(0.0f, 0.0f, 300.0f);
    stg.fadec_on[0] = 0;
    e.tacrad_PROP = 1.0f;
    lab_set_power(1.0f);
    set_prop(0, v.RSC_redline_PROP);
    lab_hold(5.0f);
    const float rockets = 110.0f * con.lbstontn * v.engn[0].num_blades * v.wing[0].semilen_SEG;
    EXPECT_GT(e.omegadot_PROP * v.engn[0].mi_prop_rpm, 0.4f * rockets) << "it spins itself up";
    lab_hold(90.0f);
    EXPECT_NEAR(e.tacrad_PROP, v.RSC_redline_PROP, 0.03f * v.RSC_redline_PROP) << "the governor holds it";
    EXPECT_NEAR(e.drag_TRQ, 0.0f, 0.05f * rockets) << "the air takes what the rockets give";
    EXPECT_LT(fabsf(f.N), 0.03f * rockets);
    EXPECT_GT(e.thrust, weight());
    fly(3.0f, 0.0f);
    EXPECT_GT(f.Vh_fpm, 0.0f);
}

TEST_F(variant, tilt_rotor_lifts_and_then_pulls) {
    design("Dunlin 400", [](veh_struct& a) {
        a.m_empty = 2000.0f;
        a.power_max = 400.0f;
        a.feather_with_prop_EQ = 0;
        a.vect_EQ = 1;
        a.vect_max_disc = 90.0f;
        a.vect_rate = 15.0f;
        a.cyclic_def_elev = 8.0f;
        a.cyclic_def_ailn = 0.0f;
        a.diff_coll_with_roll = 3.0f;
        for (int en : {0, 1}) {
            const float dir = a.engn[en].prop_dir;
            blades(a, en, "Rotor NACA 23012 Re 3 million.afl", 11.0f, 1.0f, 3.0f);
            a.engn[en].prop_dir = dir;
            a.engn[en].prop_type = prop_collective;
            a.engn[en].prop_gear_rat = 5.5f;
            a.engn[en].min_pitch = 0.0f;
            a.engn[en].max_pitch = 45.0f;
            a.wing[en].inc_vect[0] = 1;
            for (int el = 0; el < 6; ++el) a.wing[en].incidence[el] = 6.0f - 1.2f * el;
            place_at(a, en, en ? 16.0f : -16.0f, 3.0f, 9.9f);
        }
    });
    const auto vector_to = [&](float rat, float collective) {
        f.vect_rqst = f.vect_rat = rat;
        for (int en : {0, 1}) set_ptch(en, collective);
        update_def_angles(0);
        lab_hold(25.0f);
    };
    place(0.0f, 0.0f, 300.0f);
    vector_to(1.0f, 12.0f);
    const float scale = weight() * fabsf(f.engn[0].XYZ[0]);
    EXPECT_GT(f.fnrml_prop_acf, weight());
    EXPECT_LT(fabsf(f.L) + fabsf(f.N), 1e-3f * scale) << "opposite discs";
    lab_command(0.0f, 0.5f, 0.0f);
    lab_hold(2.0f);
    EXPECT_GT(f.L, 0.02f * scale) << "more collective on the left rolls right";
    lab_command(-0.5f, 0.0f, 0.0f);
    lab_hold(3.0f);
    EXPECT_LT(e.cyclic_elev_disc_tilt, -1.0f);
    lab_command(0.0f, 0.0f, 0.0f);
    const double height = f.dob_ele;
    fly(3.0f, 0.0f);
    EXPECT_GT(f.dob_ele, height);
    EXPECT_LT(fabsf(f.phi) + fabsf(f.the), 15.0f);

    place(60.0f, 2.0f);
    lab_command(-0.5f, 0.0f, 0.0f);
    vector_to(0.0f, 30.0f);
    EXPECT_LT(f.faxil_prop_acf, -500.0f);
    EXPECT_NEAR(e.cyclic_elev_command, 0.0f, 1e-3f) << "cyclic has faded out";
    EXPECT_NEAR(e.cyclic_elev_disc_tilt, 0.0f, 1e-3f);
    lab_command(0.0f, 0.0f, 0.0f);
    fly(10.0f, 2.0f);
    EXPECT_NEAR(f.g_nrml, 1.0f, 0.2f);
}

// Ended in "nan!": an engine without inertia hung on its clutch, a gear of zero drove a disc without end.
TEST_F(variant, of_zero_inertia_and_gear_takes_the_least_that_works) {
    for (const char* name : {"Plover 420", "Wren 160"}) {
        design(name, [](veh_struct& a) {
            a.inertia_rat_prop = 0.0f;
            for (veh_engn_struct& engn : a.engn)
                engn.prop_gear_rat = a.collective_EQ ? engn.prop_gear_rat : 0.0f;
        });
        EXPECT_NE(test::alerts.back().text.line[1].find("inertia_rat_prop"), std::string::npos);
        place(v.collective_EQ ? 0.0f : 50.0f, 2.0f);
        lab_set_power(0.6f);
        lab_hold(20.0f, 1.0f / 40.0f);
        EXPECT_NEAR(e.tacrad_ENGN, v.RSC_redline_ENGN, 0.35f * v.RSC_redline_ENGN) << name;
        EXPECT_NEAR(e.tacrad_PROP * (v.collective_EQ ? v.engn[0].prop_gear_rat : 1.0f), e.tacrad_ENGN,
                    0.05f * e.tacrad_ENGN)
            << name;
    }
}
}  // namespace
