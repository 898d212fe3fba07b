// Sums of forces and moments, and a table that is refused; the forces stand against the air reference.
#include <algorithm>
#include <iterator>

#include "flight/force/forces.h"
#include "flying.h"

namespace {
// Moments are the cross products of arm and force, in the senses of the sums.
TEST(aero, forces_make_the_moments_of_their_arms) {
    test::fly_aircraft("Wren 160");
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

TEST(aero, a_foil_that_pushes_is_told) {
    test::fly_aircraft("Wren 160");
    for (auto& of_end : veh[0].afl[9].cd)
        for (auto& table : of_end) std::fill(std::begin(table), std::end(table), -0.01f);
    EXPECT_EQ(test::expect_fatal([] { lab_tunnel({}); }).line[0], "neg cd in post con-def lookup!");
}
}  // namespace
