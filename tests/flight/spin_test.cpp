// Stalls and spins of the trainer.
#include <math.h>

#include "aircraft/deflect.h"
#include "app/lab/lab_manoeuvre.h"
#include "flying.h"

namespace {
// Once a spiral of 157 knots and 5 g from which no rudder helped: sections too clean behind the stall.
TEST(trainer, spins_slowly_at_low_load_and_recovers_by_the_handbook) {
    for (const float side : {-1.0f, 1.0f}) {
        SCOPED_TRACE(side < 0.0f ? "left" : "right");
        test::fly_aircraft("Wren 160");
        test::fp_traps traps;
        const lab_spin_sum s = lab_fly_spin(side, 2500.0f);
        ASSERT_TRUE(s.flown);
        EXPECT_GT(s.speed, 60.0f);
        EXPECT_LT(s.speed, 80.0f);
        EXPECT_GT(s.least_load, 1.0f);
        EXPECT_LT(s.load, 2.0f);
        EXPECT_LT(s.largest_load, 2.25f);
        EXPECT_GT(s.turns, 3.0f);
        EXPECT_LT(s.seconds_to_stop, 3.0f);
        EXPECT_LT(s.height_lost, 500.0f);
        EXPECT_LT(s.fastest, veh[0].Vne_kts);
        EXPECT_LT(s.heaviest, veh[0].Gpos);
    }
}

TEST(trainer, stalls_with_and_without_flaps_where_its_file_says) {
    test::fly_aircraft("Wren 160");
    for (const float flaps : {0.0f, 1.0f}) {
        flt[0].handle_rat_req = flaps;
        mnw.prd_FM = 1.0f;
        for (int second = 0; second < 20; ++second) update_def_angles(0);
        const lab_polar p = lab_performance(1500.0f);
        const float loaded = p.stall_speed * sqrtf(con.lcl_sig * veh[0].m_max / lab_mass()) * con.msctokts;
        EXPECT_NEAR(loaded, flaps > 0.0f ? veh[0].Vso_kts : veh[0].Vs_kts, 1.0f) << flaps;
    }
}

TEST(lab, the_tunnel_knows_nothing_of_the_slipstream_that_a_flight_left) {
    test::fly_aircraft("Wren 160");
    const lab_flight at = {.alpha = 4.0f};
    const lab_coeffs before = lab_tunnel(at);
    for (float& ring : flt[0].engn[0].RING_DVinc) ring = 15.0f;
    flt[0].engn[0].DVinc = 15.0f;
    flt[0].engn[0].side_wash = 3.0f;
    const lab_coeffs after = lab_tunnel(at);
    EXPECT_EQ(after.CL, before.CL);
    EXPECT_EQ(after.Cm, before.Cm);
    EXPECT_EQ(after.Cn, before.Cn);
}
}  // namespace
