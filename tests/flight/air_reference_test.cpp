// The air forces of a half step and the deflections behind them, against the independent reference, over
// random aircraft in random states: every kind of part, control and condition, alone or together.
#include "air_reference.h"

#include <math.h>

#include "aircraft/deflect.h"
#include "aircraft/design/exists.h"
#include "aircraft/systems/electrics.h"
#include "flight/half_step.h"
#include "flying.h"
#include "random_aircraft.h"

namespace {

// Share of the sums by which a vector of three is off.
double off_by(const double* want, const float* got, double size) {
    double d = 0;
    for (int i = 0; i < 3; ++i) d = std::max(d, fabs(got[i] - want[i]));
    return size > 0 ? d / size : 0;
}

constexpr double close_enough = 1e-4;  // of the magnitudes: single precision on the steep side of a stall

void expect_forces(const test::air_step& want) {
    const flt_struct& f = flt[0];
    const float force[3] = {f.fside_aero_acf, f.fnrml_aero_acf, f.faxil_aero_acf},
                moment[3] = {f.L, f.M, f.N};
    EXPECT_LT(off_by(want.force, force, want.largest), close_enough);
    EXPECT_LT(off_by(want.moment, moment, want.largest_moment), close_enough);
    for (int en = 0; en < wingDIM; ++en) {
        const flt_wing_struct& w = f.wing[en];
        if (!has_this_wing(0, en)) continue;
        SCOPED_TRACE("part " + std::to_string(en));
        EXPECT_NEAR(w.CL_grndeffect, want.CL_grndeffect[en], 1e-4);
        EXPECT_NEAR(w.CD_grndeffect, want.CD_grndeffect[en], 1e-4);
        for (int b = 0; b < bladDIM && (b == 0 || en <= part_thru_last); ++b)
            EXPECT_NEAR(w.Q_centroid_loc[b], want.Q_centroid_loc[en][b], 1e-4) << "blade " << b;
        if (en <= part_thru_last) continue;
        const double part[3] = {want.nrml_force_path[en], want.axil_force_path[en], 0};
        const float path[3] = {w.nrml_force_path, w.axil_force_path, 0};
        EXPECT_LT(off_by(part, path, want.largest), close_enough);
        EXPECT_EQ(w.stalled != 0, want.stalled[en] != 0);
        for (int el = 0; el < veh[0].wing[en].els; ++el) {
            const double* one = want.force_XYZ[en][el];
            const double size =
                sqrt(one[0] * one[0] + one[1] * one[1] + one[2] * one[2]) + 0.002 * want.largest;
            EXPECT_LT(off_by(one, w.force_XYZ[el], size), 30 * close_enough)
                << "element " << el << ": " << one[0] << " " << one[1] << " " << one[2] << " N";
            EXPECT_NEAR(w.downwash_deg[el], want.downwash_deg[en][el],
                        1e-3 + 1e-4 * fabs(want.downwash_deg[en][el]));
        }
    }
}

TEST(air_reference, agrees_with_the_half_step_of_random_aircraft_in_random_states) {
    int skipped = 0;
    for (const std::string& name : test::aircraft_names()) {
        const auto base = test::as_designed(name);
        for (unsigned seed = 0; seed < 60; ++seed) {
            test::dice.seed(seed);
            test::draw_aircraft(*base);
            for (int state = 0; state < 5; ++state) {
                SCOPED_TRACE(name + ", seed " + std::to_string(seed) + ", state " + std::to_string(state));
                test::draw_state();
                ASSERT_TRUE(esys_working());
                for (int pass = 0; pass < 2; ++pass) update_def_angles(0);  // linkages lag by one
                for (int step = 0; step < 2; ++step) {  // downwash and spanwise load lag by one
                    const test::air_step want = test::air_reference();
                    tunnel_step();
                    if (want.on_edge)
                        ++skipped;
                    else
                        expect_forces(want);
                }
                if (HasFailure()) return;
            }
        }
    }
    EXPECT_LT(skipped, 10);
}

}  // namespace
