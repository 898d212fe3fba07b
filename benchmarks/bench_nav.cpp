// The world's navigation tables: how fast the readers are against a walk over the same bytes, a world's load,
// and look-ups.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <vector>

#include "core/disk/paths.h"
#include "core/math/random.h"
#include "core/program/jobs.h"
#include "core/records/con.h"
#include "core/records/env.h"
#include "core/records/records.h"
#include "scenery/nav/apt_file.h"
#include "scenery/nav/nav_files.h"
#include "scenery/nav/nav_lookup.h"

namespace {
// A world of the given size in an install folder of its own.
class world {
public:
    world(int airports, int runways, int navaids, int fixes, int legs)
        : path_("/tmp/tarvane-bench-nav-" + std::to_string(getpid()) + "-" + std::to_string(airports) + "/") {
        std::filesystem::create_directories(path_ + "Resources/Earth nav data");
        rand_seed(1);
        write("apt.dat", "715", airports, [runways](int n) {
            std::string rows = line("1 %d 1 0 %c%c%c%c Field number %d\n", n % 9000, letter(n / 17576),
                                    letter(n / 676), letter(n / 26), letter(n), n);
            for (int r = 0; r < runways; ++r)
                rows += line("10 %.6f %.6f %02d%c %.2f %d 0.0000 0.0000 150 111111 1 0 0 0.25 0\n", lat(),
                             lon(), r % 18 + 1, r < 18 ? 'L' : 'R', r * 10.0, 5000 + r);
            for (int i = 0; i < 4; ++i) rows += line("15 %.6f %.6f %d.00 Ramp %d\n", lat(), lon(), i * 90, i);
            return rows + line("54 %d Tower\n53 %d Ground\n", 11800 + n % 1000, 12100 + n % 90);
        });
        write("nav.dat", "740", navaids, [](int n) {
            return line("3 %.6f %.6f %d %d 130 0.0 %c%c%c Navaid number %d\n", lat(), lon(), n % 9000,
                        10800 + n % 1000, letter(n / 676), letter(n / 26), letter(n), n);
        });
        write("fix.dat", "600", fixes, [](int n) {
            return line("%.6f %.6f %c%c%c%c%c\n", lat(), lon(), letter(n / 456976), letter(n / 17576),
                        letter(n / 676), letter(n / 26), letter(n));
        });
        write("awy.dat", "640", legs, [](int n) {
            return line("AAAAA %.6f %.6f BBBBB %.6f %.6f %d %d V%d\n", lat(), lon(), lat(), lon(), n % 2 + 1,
                        n, n);
        });
        use();
    }
    ~world() { std::filesystem::remove_all(path_); }
    void use() const {
        init_con();
        init_paths(path_);
        env.planet = 0;
    }
    std::vector<char> bytes(const std::string& name) const {
        std::ifstream in(path_ + "Resources/Earth nav data/" + name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

private:
    static double lat() { return flt_rand(-90.0f, 90.0f); }
    static double lon() { return flt_rand(-180.0f, 180.0f); }
    static char letter(int n) { return static_cast<char>('A' + n % 26); }
    template <class... values>
    static std::string line(const char* form, values... v) {
        char text[300];
        snprintf(text, sizeof text, form, v...);
        return text;
    }
    template <class row>
    void write(const std::string& name, const std::string& version, int count, row make) const {
        std::ofstream out(path_ + "Resources/Earth nav data/" + name, std::ios::binary);
        out << "I\n" << version << " Version\n\n";
        for (int n = 0; n < count; ++n) out << make(n);
        out << "99\n";
    }
    std::string path_;
};

const world& real_sized() {
    static const world w(20000, 2, 10000, 100000, 50000);
    w.use();
    return w;
}
const world& large() {
    static const world w(20000, 35, 0, 1000000, 0);
    w.use();
    return w;
}

void walk(benchmark::State& state, const char* name) {
    const std::vector<char> bytes = large().bytes(name);
    for (auto _ : state) benchmark::DoNotOptimize(std::accumulate(bytes.begin(), bytes.end(), 0));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(bytes.size()));
}
BENCHMARK_CAPTURE(walk, reference_sum_of_the_bytes, "apt.dat")->Unit(benchmark::kMillisecond);

void read_large(benchmark::State& state, const char* name, int (*read)()) {
    const size_t size = large().bytes(name).size();
    for (auto _ : state) read();
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(size));
}
BENCHMARK_CAPTURE(read_large, airports_of_35_runways, "apt.dat", [] {
    return IO_apt(0, "");
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(read_large, fixes_a_million, "fix.dat", [] {
    return IO_fix(0);
})->Unit(benchmark::kMillisecond);

void read_real_sized(benchmark::State& state) {
    real_sized();
    for (auto _ : state) {
        IO_fix(0);
        IO_awy(0);
        IO_nav(0);
        IO_apt(0, "");
    }
}
BENCHMARK(read_real_sized)->Unit(benchmark::kMillisecond);

void look_up(benchmark::State& state, int type, const char* id) {
    real_sized();
    IO_fix(0);
    IO_nav(0);
    IO_apt(0, "");
    int index = 0;
    for (auto _ : state) benchmark::DoNotOptimize(get_index_from_id(id, type, &index, 34.0f, -117.0f));
}
BENCHMARK_CAPTURE(look_up, an_airport, targ_apt, "ABCD")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(look_up, a_navaid, nav_vor, "ABC")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(look_up, a_fix, targ_fix, "ABCDE")->Unit(benchmark::kMicrosecond);
}  // namespace

BENCHMARK_MAIN();
