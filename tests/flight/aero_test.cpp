// The aerodynamic sections on whole aircraft, against textbook senses and a closed form, and what they
// refuse.
#include <math.h>

#include <algorithm>
#include <iterator>

#include "core/math/num.h"
#include "flight/air/bodies.h"
#include "flight/air/coeffs.h"
#include "flight/force/forces.h"
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
};

TEST_F(aero, dihedral_and_fin_work_against_a_sideslip) {
    at.beta = 5.0f;  // air from the left
    const lab_coeffs c = lab_tunnel(at);
    EXPECT_GT(c.Cl, 0.001f) << "rolls away from the wind";
    EXPECT_LT(c.Cn, -0.001f) << "turns into it";
    EXPECT_GT(c.CY, 0.0f) << "and is pushed along";
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

// Moments are the cross products of arm and force, in the senses of the sums.
TEST_F(aero, forces_make_the_moments_of_their_arms) {
    flt_struct& f = flt[0];
    const auto expect = [&](float side, float nrml, float axil, float X, float Y, float Z) {
        EXPECT_FLOAT_EQ(f.L, side * Y - nrml * X);
        EXPECT_FLOAT_EQ(f.M, axil * Y - nrml * Z);
        EXPECT_FLOAT_EQ(f.N, axil * X - side * Z);
        f.L = f.M = f.N = 0.0f;
    };
    expect(0, 0, 0, 0, 0, 0);
    addFagear(0, 10.0f, 2.0f, 3.0f);
    expect(0, 0, 10, 2, 3, 0);
    addFngear(0, 10.0f, 2.0f, 4.0f);
    expect(0, 10, 0, 2, 0, 4);
    addFsgear(0, 10.0f, 3.0f, 4.0f);
    expect(10, 0, 0, 0, 3, 4);
    EXPECT_EQ(f.fside_gear_acf + f.fnrml_gear_acf + f.faxil_gear_acf, 30.0f);
    f.cos_alph = f.cos_beta = 1.0f;
    f.sin_alph = f.sin_beta = 0.0f;
    addFaero(10.0f, 20.0f, 30.0f, 2.0f, 3.0f, 4.0f, -1, -1);
    expect(20, 30, 10, 2, 3, 4);
}

TEST_F(aero, tables_without_sense_are_told) {
    float cl, cd, cm;
    EXPECT_EQ(test::expect_fatal([&] { subsonic_co_lookup(0, &cl, &cd, &cm, wingDIM, 0, 0, 0, 0); }).line[0],
              "FOIL INDEX out of range!");
    EXPECT_EQ(test::expect_fatal([&] { subsonic_co_lookup(0, &cl, &cd, &cm, 9, 0, 0, elDIM, 0); }).line[0],
              "ELEMENT INDEX out of range!");
    for (auto& of_end : veh[0].afl[9].cd)
        for (auto& table : of_end) std::fill(std::begin(table), std::end(table), -0.01f);
    EXPECT_EQ(test::expect_fatal([&] { lab_tunnel(at); }).line[0], "neg cd in post con-def lookup!");
}
}  // namespace
