// The flight model: its inner pieces, a half step, and whole headless frames. Each figure stands beside a
// reference measured in the same run: calls of the math library, which bound the element loop.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <cstdio>

#include "aircraft/derive/derive.h"
#include "aircraft/design/autoset.h"
#include "aircraft/design/exists.h"
#include "aircraft/foil/afl_file.h"
#include "aircraft/io_acf.h"
#include "app/lab/headless.h"
#include "app/lab/lab.h"
#include "app/lab/lab_steady.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/records/records.h"
#include "flight/air/coeffs.h"
#include "flight/half_step.h"
#include "flight/power/shafts.h"
#include "weather/wind.h"

namespace {
const std::string install = INSTALL_FOLDER;
const std::string sailplane = install + "Aircraft/General Aviation/Lark 15 Sailplane/Lark 15.acf";
const std::string trainer = install + "Aircraft/General Aviation/Wren 160 Trainer/Wren 160.acf";

const std::string helicopter = install + "Aircraft/Helicopters/Plover 420 Helicopter/Plover 420.acf";
const std::string airliner = install + "Aircraft/Heavy Metal/Shearwater 870 Airliner/Shearwater 870.acf";

// What the benchmarks fly, by their argument, and how fast, m/s.
struct flown {
    const std::string& file;
    float speed;
};
const flown fleet[] = {{sailplane, 32.0f}, {trainer, 50.0f}, {helicopter, 25.0f}, {airliner, 130.0f}};

void start(const std::string& file) {
    headless_start(install, file, log_to_nothing);
    lab_still_air();
    lab_fly_trim(lab_trim_glide(32.0f, 2000.0f), 2000.0f);
}

// Level flight under power; a glide without engines.
lab_steady trimmed;
void start(const flown& f) {
    headless_start(install, f.file, log_to_nothing);
    lab_still_air();
    lab_steady_order order;
    order.speed = f.speed;
    order.altitude = 2000.0f;
    order.power = veh[0].num_engines ? -1.0f : 0.0f;
    trimmed = lab_find_steady(order);
    lab_fly_steady(trimmed);
}

// Seconds of 25 calls of the math library, what an element needs at the least.
double seconds_of_25_calls() {
    static const double seconds = [] {
        volatile float x = 0.3f, sink = 0.0f;
        constexpr int rounds = 200000;
        const auto began = std::chrono::steady_clock::now();
        for (int i = 0; i < rounds; ++i) {
            float sum = 0.0f;
            for (int k = 0; k < 11; ++k) sum += sinf(x + k) + cosf(x + k);
            for (int k = 0; k < 3; ++k) sum += atan2f(x + k, 0.7f);
            sink = sum;
        }
        benchmark::DoNotOptimize(sink);
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count() / rounds;
    }();
    return seconds;
}

int elements() {
    int count = 0;
    for (int en = part_wing_first; en <= part_pylo_last; ++en)
        if (veh[0].part[en].part_eq) count += veh[0].wing[en].els;
    for (int en = 0; en < veh[0].num_thrustpoints; ++en)
        if (has_this_thru(0, en, thru_disc)) count += bladDIM * veh[0].wing[en].els;
    return count;
}

void compare_with_calls(benchmark::State& state, int count) {
    state.counters["elements"] = count;
    state.counters["ref_us"] = 1e6 * seconds_of_25_calls() * count;
    state.counters["x_of_ref"] =
        benchmark::Counter(seconds_of_25_calls() * count,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void interp_and_check(benchmark::State& state) {
    float x = 0.1f;
    for (auto _ : state) {
        x = interp(0.0f, 0.0f, 1.0f, 0.999f, x) + 0.001f;
        check_val(x);
        benchmark::DoNotOptimize(x);
    }
}
BENCHMARK(interp_and_check);

void wind_at_element(benchmark::State& state) {
    start(sailplane);
    if (state.range(0))
        for (float& turbulence : atm.set_turb_inc) turbulence = 3.0f;
    for (int i = 0; i < 200; ++i) wind.per_cycle();
    float x, y, z;
    for (auto _ : state) {
        wind.ret_wind_acf(3.0f, 0.5f, 0.2f, &x, &y, &z);
        benchmark::DoNotOptimize(x);
    }
}
BENCHMARK(wind_at_element)->Arg(0)->Arg(1);

void element_force(benchmark::State& state) {
    start(sailplane);
    if (!state.range(0))
        for (char* name : {veh[0].wing[9].Rafl1, veh[0].wing[9].Tafl0, veh[0].wing[9].Tafl1})
            snprintf(name, 40, "%s", veh[0].wing[9].Rafl0);
    else
        snprintf(veh[0].wing[9].Tafl0, 40, "other root"), snprintf(veh[0].wing[9].Tafl1, 40, "other tip");
    float lift, drag, momt;
    for (auto _ : state) {
        F_el_force(0.0f, 0.0f, 0.0f, &lift, &drag, &momt, 9, 2, 0);
        benchmark::DoNotOptimize(lift);
    }
}
BENCHMARK(element_force)->Arg(0)->Arg(1);

void half_step(benchmark::State& state) {
    start(fleet[state.range(0)]);
    mnw.prd_FM = 1e-7f;  // the state hardly moves
    for (auto _ : state) set_vel_flight(0);
    compare_with_calls(state, elements());
}
BENCHMARK(half_step)->DenseRange(0, 3)->Unit(benchmark::kMicrosecond);

// Discs alone: one propeller, main and tail rotor, and eight propellers of ten elements.
void all_props(benchmark::State& state) {
    start(fleet[state.range(0) == 2 ? 2 : 1]);
    if (state.range(0) == 8) {
        veh[0].num_thrustpoints = veh[0].num_engines = engnDIM;
        veh[0].wing[0].els = elDIM;
        for (int el = 8; el < elDIM; ++el) {
            veh[0].wing[0].el_s[el] = veh[0].wing[0].el_s[7];
            veh[0].engn[0].ringarea[el] = veh[0].engn[0].ringarea[7];
        }
        for (int en = 1; en < engnDIM; ++en) {
            veh[0].engn[en] = veh[0].engn[0];
            veh[0].wing[en] = veh[0].wing[0];
            veh[0].afl[en] = veh[0].afl[0];
            flt[0].engn[en] = flt[0].engn[0];
        }
    }
    mnw.prd_FM = 1e-7f;
    int places = 0;
    for (int en = 0; en < veh[0].num_thrustpoints; ++en)
        if (has_this_thru(0, en, thru_disc)) places += bladDIM * veh[0].wing[en].els;
    for (auto _ : state) do_all_props();
    compare_with_calls(state, places);
}
BENCHMARK(all_props)->Arg(1)->Arg(2)->Arg(8)->Unit(benchmark::kMicrosecond);

// Forty-eight surfaces of ten elements, copies of the sailplane's inner wing along the fuselage.
void half_step_480_elements(benchmark::State& state) {
    start(sailplane);
    for (int en = part_wing_first; en <= part_pylo_last; ++en) {
        veh[0].wing[en] = veh[0].wing[9];
        veh[0].part[en] = veh[0].part[9];
        veh[0].afl[en] = veh[0].afl[9];
        veh[0].wing[en].els = 10;
        for (int el = 0; el < 10; ++el) {
            veh[0].wing[en].el_s[el] = 0.1f;
            veh[0].wing[en].mac[el] = 0.8f;
        }
        veh[0].wing[en].element_len = 0.4f;
        flt[0].wing[en] = flt[0].wing[9];
    }
    mnw.prd_FM = 1e-7f;
    for (auto _ : state) set_vel_flight(0);
    compare_with_calls(state, elements());
}
BENCHMARK(half_step_480_elements)->Unit(benchmark::kMicrosecond);

void headless_frames(benchmark::State& state) {
    start(fleet[state.range(0)]);
    int frames = 0;
    for (auto _ : state) {
        headless_frame();
        if (++frames % 500 != 0) continue;
        state.PauseTiming();
        lab_fly_steady(trimmed);
        state.ResumeTiming();
    }
    state.counters["times_real_time"] =
        benchmark::Counter(static_cast<double>(frames) * headless_pass, benchmark::Counter::kIsRate);
}
BENCHMARK(headless_frames)->DenseRange(0, 3)->Unit(benchmark::kMicrosecond);

void read_and_derive(benchmark::State& state) {
    start(sailplane);
    for (auto _ : state) {
        snprintf(veh[0].path, sizeof veh[0].path, "%s", (state.range(0) ? trainer : sailplane).c_str());
        IO_acf(0, 0, 0);
        derive_model(0);
    }
}
BENCHMARK(read_and_derive)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void airfoil_load(benchmark::State& state) {
    start(sailplane);
    static afl_struct afl;
    const std::string path = install + "Airfoils/NACA 2412 Re 6 million.afl";
    for (auto _ : state) benchmark::DoNotOptimize(IO_afl(0, &afl, 0, 0, path));
}
BENCHMARK(airfoil_load)->Unit(benchmark::kMicrosecond);
}  // namespace

BENCHMARK_MAIN();
