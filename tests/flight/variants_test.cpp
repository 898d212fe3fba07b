// Kinds of aircraft that the content leaves out: redesigns of its aircraft, each flown for a while.
#include <math.h>
#include <string.h>

#include <functional>

#include "aircraft/derive/derive.h"
#include "aircraft/design/autoset.h"
#include "aircraft/io_acf.h"
#include "app/lab/headless.h"
#include "app/lab/lab_steady.h"
#include "core/program/upward.h"
#include "draw/images/interface_layout.h"
#include "flying.h"
#include "scenery/ground/tile.h"

namespace {
constexpr int right_wing = 9;

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
        start_in_the_air();
        lab_still_air();
        stg.reset_on_crash = 0;
        flt[0].gear_handle = 0;
        for (float& fuel : flt[0].m_fuel) fuel = 0.5f * v.m_fuel_tot / 3.0f;
    }
    void place(float speed, float alpha = 0.0f) {
        lab_place({.speed = speed, .alpha = alpha});
        mnw.YK_ptch = mnw.YK_roll = mnw.YK_hdng = 0.0f;
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

TEST_F(variant, gyrocopter_carries_itself_on_a_rotor_that_the_air_turns) {
    design("Wren 160", [](veh_struct& a) {
        a.wing[right_wing].semilen_SEG = a.wing[right_wing - 1].semilen_SEG = 0.0f;
        a.m_empty = 900.0f;
        a.num_thrustpoints = 2;
        a.rotor_mi_rat = 0.4f;
        a.tip_weight = 0.0f;
        veh_engn_struct& rotor = a.engn[1];
        rotor.prop_type = prop_collective;
        rotor.prop_gear_rat = 8.0f;
        rotor.vert_init = 98.0f;
        rotor.min_pitch = rotor.max_pitch = 3.0f;
        rotor.num_blades = 2.0f;
        rotor.prop_dir = 1.0f;
        veh_wing_struct& blade = a.wing[1];
        for (char* name : {blade.Rafl0, blade.Rafl1, blade.Tafl0, blade.Tafl1})
            strcpy(name, "Rotor NACA 0012 Re 3 million.afl");
        blade.els = 6;
        blade.semilen_SEG = 13.0f;
        blade.Croot = blade.Ctip = 0.75f;
        for (float& inc : blade.incidence) inc = 0.0f;
        a.part[1].part_x = 0.0f;
        a.part[1].part_y = 6.0f;
        a.part[1].part_z = 7.9f;
        a.cyclic_def_elev = a.cyclic_def_ailn = 9.0f;
    });
    flt_engn_struct& rotor = f.engn[1];
    f.m_fixed = 0.0f;
    place(28.0f, 8.0f);
    lab_set_power(0.5f);
    rotor.tacrad_PROP = 20.0f;  // as pre-rotation leaves it
    lab_hold(60.0f);
    const float omega = rotor.tacrad_PROP, scale = rotor.thrust * v.wing[1].semilen_SEG;
    EXPECT_GT(omega, 20.0f);
    EXPECT_LT(fabsf(rotor.drag_TRQ), 0.005f * scale) << "nothing turns it but the air";
    EXPECT_GT(f.fnrml_prop_acf, 0.8f * weight());
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
