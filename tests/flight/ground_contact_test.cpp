// The aircraft of the content on the ground.
#include <math.h>

#include "core/math/axes.h"
#include "core/math/num.h"
#include "core/program/upward.h"
#include "flying.h"
#include "scenery/ground/terrain_query.h"

namespace {
// On level dry ground, with the brake set.
void stand(const std::string& name, int running) {
    test::fly_aircraft(name);
    stg.start_running = running;
    init_flt_0(start_airport, place_runway);
}

struct place {
    double x, y, z;
};
place here() { return {flt[0].dob_x, flt[0].dob_y, flt[0].dob_z}; }
double way(const place& from) {
    const place to = here();
    return sqrt((to.x - from.x) * (to.x - from.x) + (to.y - from.y) * (to.y - from.y) + (to.z - from.z) * (to.z - from.z));
}

// Of the point of the aircraft that moves fastest, m/s: its reach is half its size.
float fastest_point() {
    const flt_struct& f = flt[0];
    return pythag(f.vx, f.vy, f.vz) + 0.5f * veh[0].size_tot * pythag(f.Prad, f.Qrad, f.Rrad);
}

class every_aircraft : public ::testing::TestWithParam<std::string> {};

TEST_P(every_aircraft, stands_still_for_ten_minutes) {
    for (const float dt : {1.0f / 20.0f, 1.0f / 64.0f}) {
        stand(GetParam(), 0);
        const place at = here();
        test::run_frames(10.0f, dt);
        float fastest = 0.0f;
        for (int second = 10; second < 600; ++second) {
            test::run_frames(1.0f, dt);
            fastest = fltmax2(fastest, fastest_point());
        }
        printf("%s dt %.3f: way %.3f fastest %.5f phi %.2f the %.2f\n", GetParam().c_str(), dt, way(at), fastest, flt[0].phi, flt[0].the);
        EXPECT_LT(way(at), 0.3);
        EXPECT_LT(fastest, 0.005f);
    }
}

INSTANTIATE_TEST_SUITE_P(content, every_aircraft, ::testing::ValuesIn(test::aircraft_names()));
}  // namespace
