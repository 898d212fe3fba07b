// A flight's start by every code; those of strips search all the runways of the world.
#include <benchmark/benchmark.h>

#include "app/lab/headless.h"
#include "core/math/random.h"
#include "core/program/alert.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "scenery/nav/nav_tables.h"

namespace {
constexpr int runways_of_the_world = 30000;

void fill_world() {
    rand_seed(1);
    vec_apt.clear();
    for (int i = 0; i < runways_of_the_world; ++i) {
        if (i % 2 == 0) vec_apt.emplace_back();
        vec_rwy_struct& rwy = vec_apt.back().rwy.emplace_back();
        rwy.lat = flt_rand(-80.0f, 80.0f), rwy.lon = flt_rand(-180.0f, 180.0f);
        rwy.len = 1000.0f;
        rwy.surf_tex = static_cast<unsigned char>(int_rand(113, 122));
        snprintf(rwy.num_str, sizeof rwy.num_str, "%s", "09x");
    }
    apt_hash[apt_id_key("KEDW")] = 0;
}

// Ships and a fire in the region that is there.
void set_scene() {
    for (int ship = 0; ship < boatDIM; ++ship) env.boat_x[ship] = 1000.0f, env.boat_z[ship] = 100.0f;
    scn.fire_avail = scn.fire_on[0] = 1;
    stg.cus_alt = 1000.0f;
}

void start_up() {
    headless_start(INSTALL_FOLDER, INSTALL_FOLDER "Aircraft/General Aviation/Wren 160 Trainer/Wren 160.acf",
                   log_to_nothing);
    alert_seam.show = [](int, const alert_lines&, int) {};
    fill_world();
    set_scene();
}

// Without the region, which is there after the first, and without aircraft: slot 1 is another user's. The
// shuttle comes with its file each time.
void start(benchmark::State& state) {
    start_up();
    const int code = static_cast<int>(state.range(0)), place = static_cast<int>(state.range(1));
    init_flt_0(code, place);
    net.use_ip[0] = 1;
    for (auto _ : state) {
        flt[1].last_time_rcvd = mnw.real_time;
        init_flt_0(code, place);
    }
    net.use_ip[0] = 0;
}
BENCHMARK(start)
    ->ArgsProduct({{608}, {600, 601, 602, 603}})
    ->ArgsProduct({{1200, 4200, 4201, 4202, 4203, 4204, 4205, 4206, 4207, 4500, 4501,
                    4502, 4503, 4800, 4801, 4802, 4803, 4804, 4806, 4807, 4808, 4809},
                   {0}})
    ->Unit(benchmark::kMillisecond);
}  // namespace

BENCHMARK_MAIN();
