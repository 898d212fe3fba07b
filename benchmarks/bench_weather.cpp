// The air in the loop of the flight model: wind at an element, density, the step of a frame.
// The reference is nine sines, which is what the turbulence field cannot go below. And the sky's light and
// colours.
#include <benchmark/benchmark.h>

#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/seams.h"
#include "core/records/records.h"
#include "weather/atmosphere.h"
#include "weather/sky/skyc.h"
#include "weather/weather_step.h"
#include "weather/wind.h"

static void start(float turbulence) {
    clear_records();
    init_con();
    seams_headless();
    init_rand_rat();
    set_planet_specs(0);
    init_weather_defaults();
    mnw.prd_FM = 0.02f;
    flt[0].cos_psi = flt[0].cos_the = flt[0].cos_phi = 1.0f;
    flt[0].dob_x = 20000.0, flt[0].dob_y = 1000.0, flt[0].dob_z = -35000.0;
    wind_reset();
    wind.final_trb_rat = turbulence;
}

static void nine_sines(benchmark::State& state) {
    start(0.0f);
    float d = 20000.0f;
    for (auto _ : state) {
        float sum = 0.0f;
        for (int i = 0; i < 9; ++i) sum += sinf(d * (0.06f + 0.01f * i));
        benchmark::DoNotOptimize(sum);
        d += 0.1f;
    }
}
BENCHMARK(nine_sines);

// range 0: tenths of turbulence
static void ret_wind_acf(benchmark::State& state) {
    start(0.1f * state.range(0));
    float x = 0.0f, vx, vy, vz;
    for (auto _ : state) {
        wind.ret_wind_acf(x, 0.5f, -1.0f, &vx, &vy, &vz);
        benchmark::DoNotOptimize(vx + vy + vz);
        x = x < 30.0f ? x + 0.1f : -30.0f;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(ret_wind_acf)->Arg(0)->Arg(3);

static void standard_rho(benchmark::State& state) {
    start(0.0f);
    float h = 0.0f;
    for (auto _ : state) {
        benchmark::DoNotOptimize(find_standard_rho(0, h));
        h = h < 40000.0f ? h + 97.0f : 0.0f;
    }
}
BENCHMARK(standard_rho);

// range 0: sets of colours that are mixed, 1 or 2
static void sky_conditions(benchmark::State& state) {
    start(0.0f);
    reset_skyc();
    atm.vis_rep = (state.range(0) == 1 ? 20.0f : 8.0f) * con.nmtomtrs;
    ren.view_ele_msl = ren.view_ele_agl = 500.0f;
    mnw.locl_time = mnw.zulu_time = 18.0f * 3600.0f;
    for (auto _ : state) {
        ren.final_psi = fltwrap(ren.final_psi + 1.0f, 0.0f, 360.0f);
        skyc.conditions_update({0.0f, 1, 0, -1.0f, [](float, float) { return 0.0f; }});
        benchmark::DoNotOptimize(skyc.sky_256);
    }
}
BENCHMARK(sky_conditions)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

static void air_of_a_frame(benchmark::State& state) {
    start(0.0f);
    for (auto _ : state) {
        weather_step();
        local_air_step();
    }
}
BENCHMARK(air_of_a_frame);

BENCHMARK_MAIN();
