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
constexpr int right_wing = 9, switch_pre_rotate = 11;

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
    void fly(float seconds, float the) {
        const float ptch = mnw.YK_ptch, roll = mnw.YK_roll, hdng = mnw.YK_hdng;
        for (int i = 0; i < static_cast<int>(64.0f * seconds); ++i) {
            mnw.YK_ptch = fltlim(ptch + 0.06f * (the - f.the) - 0.04f * f.Q, -1.0f, 1.0f);
            mnw.YK_roll = fltlim(roll - 0.04f * f.phi - 0.02f * f.P, -1.0f, 1.0f);
            mnw.YK_hdng = fltlim(hdng - 0.05f * f.R, -1.0f, 1.0f);
            lab_frame(1.0f / 64.0f);
        }
        ASSERT_LT(f.g_total, 10.0f);
    }
    float weight() const { return lab_mass() * con.g; }
};

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
}  // namespace
