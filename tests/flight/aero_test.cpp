// The aerodynamic sections on whole aircraft: slipstream, downwash, ground effect, failures, chute.
#include "flight/air/bodies.h"
#include "flight/air/elements.h"

#include <math.h>

#include "aircraft/derive/derive.h"
#include "aircraft/design/exists.h"
#include "aircraft/design/location.h"
#include "core/math/num.h"
#include "flying.h"

namespace {
class aero : public ::testing::Test {
protected:
    void SetUp() override {
        test::fly_aircraft("Wren 160");
        at.altitude = 2000.0f;
        at.speed = 45.0f;
        at.alpha = 3.0f;
    }
    lab_flight at;
    static float drag() { return flt[0].faxil_aero_acf; }
};

TEST_F(aero, slipstream_reaches_what_lies_behind_the_disc) {
    lab_tunnel(at);
    const float before_tip = flt[0].wing[9].v_el[7][0];
    const float before_tail = flt[0].wing[17].v_el[0][0], before_drag = drag();
    flt[0].engn[0].DVinc = 10.0f;
    flt[0].engn[0].side_wash = 3.0f;
    lab_tunnel(at);
    EXPECT_NEAR(flt[0].wing[17].v_el[0][0] - before_tail, 10.0f, 3.5f) << "the tail's root in the wash";
    EXPECT_EQ(flt[0].wing[9].v_el[7][0], before_tip) << "the wing's tip outside";
    EXPECT_GT(drag(), before_drag) << "the fuselage stands in it";
    // swirl: a clockwise propeller's wash comes down on one side and up on the other
    const float right = flt[0].wing[17].alpha_el[0][0], left = flt[0].wing[16].alpha_el[0][0];
    EXPECT_GT(fabsf(right - left), 0.5f);
    veh[0].engn[0].prop_dir = -1.0f;
    lab_tunnel(at);
    EXPECT_NEAR(flt[0].wing[17].alpha_el[0][0], left, 0.05f);
    EXPECT_NEAR(flt[0].wing[16].alpha_el[0][0], right, 0.05f);
    flt[0].engn[0].DVinc = 0.005f;
    lab_tunnel(at);
    EXPECT_EQ(flt[0].wing[17].v_el[0][0], before_tail) << "too slow to matter";
}

TEST_F(aero, downwash_of_the_wing_lowers_the_tails_angle) {
    lab_tunnel(at);
    const float CL = flt[0].wing[9].nrml_force_path / (flt[0].Qstatic * aircraft_summary(0).S_ref * 0.5f);
    // spec_wash is in degrees per unit of lift coefficient; within a tenth for the induced angles
    EXPECT_NEAR(flt[0].wing[17].downwash_deg[1], -veh[0].wing[9].spec_wash * CL,
                0.15f * veh[0].wing[9].spec_wash * CL);
    EXPECT_EQ(flt[0].wing[9].downwash_deg[1], 0.0f);
    EXPECT_EQ(flt[0].wing[18].downwash_deg[1], 0.0f) << "the fin is no washee";
    flt[0].Mach = 1.0f;
    aero_downwash();
    EXPECT_EQ(flt[0].wing[17].downwash_deg[1], 0.0f);
}

TEST_F(aero, near_the_ground_lift_grows_and_induced_drag_falls) {
    at.altitude = 40.0f;
    const lab_coeffs high = lab_tunnel(at);
    at.altitude = 0.3f;
    const lab_coeffs low = lab_tunnel(at);
    EXPECT_GT(low.CL, 1.03f * high.CL);
    EXPECT_LT(low.CD / (low.CL * low.CL), high.CD / (high.CL * high.CL));
    const float h = ret_ge_hgt_mtrs(9);
    EXPECT_NEAR(h, 0.3f + get_el_base_loc(0, 9, 4.0f, 'Y'), 0.1f);
    EXPECT_NEAR(flt[0].wing[9].CL_grndeffect,
                fltmax2(1.0f, 2.0f - powf(h / veh[0].wing[9].average_MAC, 0.25f)), 1e-4f);
    EXPECT_EQ(ret_ge_hgt_mtrs(18), 0.0f) << "a fin has none";
    EXPECT_EQ(ret_ge_hgt_mtrs(0), 0.0f) << "nor has a propeller";
}

TEST_F(aero, a_lost_wing_rolls_the_aircraft_and_lost_parts_weigh_nothing_on_the_air) {
    const lab_coeffs whole = lab_tunnel(at);
    EXPECT_NEAR(whole.Cl, 0.0f, 1e-4f);
    flt[0].fail_stat[fail_wing1_left] = fail_active;
    const lab_coeffs broken = lab_tunnel(at);
    EXPECT_LT(broken.Cl, -0.05f) << "the right wing still lifts";
    EXPECT_NEAR(broken.lift, 0.5f * whole.lift, 0.1f * whole.lift);
    EXPECT_EQ(flt[0].wing[8].CL_grndeffect, 1.0f);
}

TEST_F(aero, dihedral_and_fin_work_against_a_sideslip) {
    at.beta = 5.0f;  // air from the left
    const lab_coeffs c = lab_tunnel(at);
    EXPECT_GT(c.Cl, 0.001f) << "rolls away from the wind";
    EXPECT_LT(c.Cn, -0.001f) << "turns into it";
    EXPECT_GT(c.CY, 0.0f) << "and is pushed along";
}

TEST_F(aero, chute_and_fixed_gear_have_their_drag) {
    lab_tunnel(at);
    veh[0].chute_area = 10.0f;
    stg.chute_on = 1;
    stg.chute_deploy_rat = 1.0f;
    flt[0].faxil_aero_acf = flt[0].fnrml_aero_acf = 0.0f;
    aero_chute();
    EXPECT_NEAR(pythag(flt[0].faxil_aero_acf, flt[0].fnrml_aero_acf),
                0.6f * 10.0f * 45.0f * 45.0f * con.lcl_r_met, 5.0f);
    stg.chute_on = 0;
    aero_chute();
    EXPECT_EQ(stg.chute_deploy_rat, 0.0f);
    flt[0].faxil_aero_acf = 0.0f;
    for (veh_gear_struct& g : veh[0].gear) g.dep_rat = 0.0f;
    aero_gear_drag();
    EXPECT_EQ(flt[0].faxil_aero_acf, 0.0f) << "up is clean";
}

TEST_F(aero, a_cone_has_the_wave_drag_of_its_pressure) {
    // a cone of 0.5 m radius and 4 m length before a cylinder; everything else off
    for (veh_part_struct& part : veh[0].part) part.part_eq = 0;
    veh_part_struct& body = veh[0].part[part_body_first];
    body.part_eq = 1;
    body.s_dim = 3;
    body.r_dim = 18;
    const float radius[3] = {0.0f, 0.5f, 0.5f};
    for (int s = 0; s < 3; ++s)
        for (int r = 0; r < 18; ++r) {
            const float turn = con.pim2 * r / 17.0f;
            body.geo_xyz[s][r][0] = radius[s] * sinf(turn);
            body.geo_xyz[s][r][1] = radius[s] * cosf(turn);
            body.geo_xyz[s][r][2] = 4.0f * s;
        }
    at.alpha = 0.0f;
    const float delta = atanf(0.125f);
    for (const float mach : {1.2f, 2.0f}) {
        lab_place(at);
        at.speed = mach * con.lcl_a;
        lab_place(at);
        flt[0].faxil_aero_acf = 0.0f;
        aero_bodies();
        const float Q = 0.5f * at.speed * at.speed * con.lcl_r_met;
        const float M = fltmax2(mach, 1.5f);  // held at 1.5 at least
        const float cp = 2.0f * delta / sqrtf(M * M - 1.0f);
        const float cone = con.pim2 * 0.25f * 4.0f, cylinder = con.pim2 * 0.5f * 4.0f;
        const float expected = (cp * sinf(delta) + 0.0023f) * cone + 0.0023f * cylinder;
        EXPECT_NEAR(flt[0].faxil_aero_acf / Q, expected, 0.04f * expected) << mach;  // seventeen flat sides
    }
}
}  // namespace
