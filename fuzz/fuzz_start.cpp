// Starts of any codes at any places, a few frames each, over survey land or the install folder's own scenery.
#include "app/lab/headless.h"
#include "core/math/num.h"
#include "core/program/upward.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/nav/planet_nav.h"
#include "scenery/region/region_tiles.h"
#include "scenery/region/survey_land.h"
#include "support.h"

namespace {
using fuzzing::input;
using fuzzing::must;

void start_system() {
    static bool started = false;
    if (!started) {
        headless_start(INSTALL_FOLDER,
                       INSTALL_FOLDER "Aircraft/General Aviation/Wren 160 Trainer/Wren 160.acf",
                       log_to_nothing);
        read_nav_tables();
        started = true;
    }
    fuzzing::catch_alerts();
    seams_headless();
    stg.reset_on_crash = 0;
    stg.num_acf = 1;
}

int read_code(input& in) {
    constexpr int codes[] = {608,  1200, 4200, 4201, 4202, 4203, 4204, 4205, 4206, 4207, 4500, 4501,
                             4502, 4503, 4800, 4801, 4802, 4803, 4804, 4805, 4806, 4807, 4808, 4809};
    const unsigned b = in.byte();
    return b < 250 ? codes[b % std::size(codes)] : in.value<int>();
}

// Any bits, or a place near the starter region.
void read_place(input& in) {
    const auto any = [&] { return in.value<float>(); };
    if (in.byte() % 4 == 0) {
        for (float* to : {&stg.cus_lat, &stg.cus_lon, &stg.cus_alt, &stg.cus_psi, &stg.cus_v}) *to = any();
        return;
    }
    stg.cus_lat = 33.0f + static_cast<float>(in.byte()) / 128.0f;
    stg.cus_lon = -119.0f + static_cast<float>(in.byte()) / 85.0f;
    stg.cus_alt = static_cast<float>(in.word());
    stg.cus_psi = static_cast<float>(in.byte()) * 1.5f;
    stg.cus_v = static_cast<float>(in.byte());
}

void read_world(input& in) {
    const unsigned ways = in.byte();
    region_steps = ways & 1 ? region_of_scenery : region_of_survey_land;
    stg.start_running = (ways & 2) != 0;
    msc.backwards = (ways & 4) != 0;
    scn.fire_avail = (ways & 8) != 0;
    msc.loc_apt_wrl = in.value<short>();
    msc.lcl_rwy_ram = in.value<signed char>();
    for (int s = 0; s < 4; ++s)
        if (ways & 16) env.boat_x[s] = in.value<float>(), env.boat_z[s] = in.value<short>();
}

void check() {
    const flt_struct& f = flt[0];
    fuzzing::must_be_finite({f.dob_x, f.dob_y, f.dob_z, f.dob_lat, f.dob_lon, f.dob_ele, f.vx, f.vy, f.vz,
                             f.psi, f.the, f.phi, f.q[0], f.q[1], f.q[2], f.q[3]});
}
}  // namespace

void fuzz_start(input& in) {
    start_system();
    const int code = read_code(in);
    const int place = in.byte() < 200 ? place_ramp + static_cast<int>(in.byte() % 4) : in.value<int>();
    read_world(in);
    read_place(in);
    try {
        init_flt_0(code, place);
        check();
        must(vec_apt.empty() || intrange(msc.loc_apt_wrl, 0, static_cast<int>(vec_apt.size()) - 1));
        begin_user_flight_steady(code);
        constexpr int passes = 10;
        for (int i = 0; i < passes; ++i) headless_frame();
        check();
    } catch (const fuzzing::fatal& end) {
        must(fuzzing::flight_texts.count(end.text.line[0]) != 0);
    }
}
