// A flight's start, and the search among all the runways of the world.
#include <benchmark/benchmark.h>

#include "app/lab/headless.h"
#include "core/math/random.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "scenery/nav/nav_tables.h"

namespace {
constexpr int runways_of_the_world = 30000;

void fill_world() {
    rand_seed(1);
    for (int i = 0; i < runways_of_the_world; ++i) {
        if (i % 2 == 0) vec_apt.emplace_back();
        vec_rwy_struct& rwy = vec_apt.back().rwy.emplace_back();
        rwy.lat = flt_rand(-80.0f, 80.0f), rwy.lon = flt_rand(-180.0f, 180.0f);
        rwy.len = 1000.0f;
        rwy.surf_tex = static_cast<unsigned char>(int_rand(113, 122));
        snprintf(rwy.num_str, sizeof rwy.num_str, "%s", "09x");
    }
}

void start_up() {
    headless_start(INSTALL_FOLDER, INSTALL_FOLDER "Aircraft/General Aviation/Wren 160 Trainer/Wren 160.acf",
                   log_to_nothing);
    if (vec_apt.empty()) fill_world();
}

// In the region that is there.
void start(benchmark::State& state) {
    start_up();
    stg.cus_alt = 1000.0f;
    for (auto _ : state) init_flt_0(static_cast<int>(state.range(0)), place_runway);
}
BENCHMARK(start)->Arg(start_airport)->Arg(start_custom)->Arg(start_water)->Unit(benchmark::kMillisecond);

// Nothing but the search and the start: the strip that was found is the nearest again.
void nearest_strip(benchmark::State& state) {
    start_up();
    for (auto _ : state) init_flt_0(start_grass, 0);
}
BENCHMARK(nearest_strip)->Unit(benchmark::kMillisecond);
}  // namespace

BENCHMARK_MAIN();
