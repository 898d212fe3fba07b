// The region: a shift of six tiles of 14,450 and of 130,050 triangles each without display lists, what is
// rotated, lists and menus of a table of 20,000 airports, and what a frame pays when nothing moves.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>

#include "core/disk/paths.h"
#include "core/math/globe.h"
#include "core/program/seams.h"
#include "core/records/records.h"
#include "draw/widgets/menus.h"
#include "scenery/ground/region.h"
#include "scenery/ground/region_shift.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/region/region_lists.h"
#include "scenery/region/region_tiles.h"
#include "scenery/region/survey_land.h"
#include "scenery/tile/tile_load.h"
#include "tile_mesh.h"
#include "weather/atmosphere.h"

namespace fs = std::filesystem;

namespace {
constexpr int south = 33, west = -120, rows = 2, columns = 4;  // a region, and one more column

struct world_struct {
    const std::string folder;
    explicit world_struct(int cells) : folder("/tmp/tarvane-bench-region-" + std::to_string(getpid()) + "/") {
        const std::string pictures = folder + "Resources/bitmaps/";
        fs::create_directories(pictures);
        fs::copy(INSTALL_FOLDER "Resources/bitmaps/blank.png", pictures + "ground.png");
        std::ofstream(pictures + "land.ter")
            << "A\n800 \nTERRAIN\nBASE_TEX ground.png\nPROJECTED 500 400\nNO_ALPHA\n";
        clear_records();
        init_con();
        seams_headless();
        init_paths(folder);
        set_planet_specs(0);
        stg.num_acf = 1;
        for (int lat = south; lat < south + rows; ++lat)
            for (int lon = west; lon < west + columns; ++lon) write(lat, lon, cells);
    }
    ~world_struct() { fs::remove_all(folder); }

private:
    void write(int lat, int lon, int cells) const {
        tile_writer tile(lat, lon);
        mesh_source source;
        source.cells = cells;
        source.patches = 8;
        source.height = [](double at, double on) { return 500.0 + 300.0 * sin(60.0 * at) * cos(50.0 * on); };
        source.land_class = [](double, double) { return 1; };
        source.terrain = {"terrain_Water", "land.ter"};
        write_mesh(&tile, source);
        const std::string path =
            folder + "Resources/Earth nav data/" + return_latlon_str_ENV(lat, lon, ".dsf");
        fs::create_directories(fs::path(path).parent_path());
        std::string error;
        if (!tile.write(path, &error)) throw std::runtime_error(error);
    }
};

void set_region(float lat, float lon) {
    env.lat_sou = lat;
    env.lon_wes = lon;
}

// One degree to the east and back: two shifts.
void there_and_back() {
    check_for_shift(34.0, -117.9);
    check_for_shift(34.0, -118.1);
    if (env.lon_wes != west) std::abort();
}

void shift(benchmark::State& state) {
    const world_struct world(static_cast<int>(state.range(0)));
    region_steps = region_of_scenery;
    set_region(south, west);
    load_region(shift_full_reload);
    for (auto _ : state) there_and_back();
    state.counters["a shift"] = benchmark::Counter(2.0 * static_cast<double>(state.iterations()),
                                                   benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// What a headless flight pays for the same.
void shift_over_survey_land(benchmark::State& state) {
    clear_records();
    init_con();
    set_planet_specs(0);
    set_region(south, west);
    stand_on_survey_land();
    for (auto _ : state) there_and_back();
}
void keep_survey_land(benchmark::State& state) {
    for (auto _ : state) stand_on_survey_land();
}

void rotate_ten_aircraft(benchmark::State& state) {
    set_region(south, west);
    stg.num_acf = 10;
    int way = shift_east;
    for (auto _ : state) {
        shift_region(way);
        way = way == shift_east ? shift_west : shift_east;
    }
    stg.num_acf = 1;
}

// 60 of the airports lie in the region, by their number on the land of the planet.
void lists_of_20000_airports(benchmark::State& state) {
    constexpr int airports = 20000, local = 60;
    MACIBM_clear_menus(1);
    std::mt19937 random(1);
    std::uniform_real_distribution<float> unit(0.0f, 1.0f);
    for (int i = 0; i < airports; ++i) {
        vec_apt_struct& apt = vec_apt.emplace_back();
        apt.apt_name = "Some Municipal Airport";
        const bool is_local = i % (airports / local) == 0;
        const float lat = is_local ? south + 2.0f * unit(random) : 120.0f * unit(random) - 60.0f;
        const float lon = is_local ? west + 3.0f * unit(random) : 360.0f * unit(random) - 180.0f;
        for (const char* name : {"14L", "09x", "xxx", "xxx"}) {
            vec_rwy_struct& rwy = apt.rwy.emplace_back();
            rwy.lat = lat, rwy.lon = lon, rwy.len = 2000.0f;
            snprintf(rwy.num_str, sizeof rwy.num_str, "%s", name);
        }
        apt.sta.resize(3, {lat, lon, 0.0f, "Ramp"});
    }
    set_region(south, west);
    for (auto _ : state) {
        MACIBM_clear_menus(3);
        finish_region();
    }
    state.counters["in the region"] = apt_lcl_max + 1;
    forget_nav_tables();
}

void nothing_moves(benchmark::State& state) {
    region_steps = region_of_nothing;
    set_region(south, west);
    double lat = 34.0;
    for (auto _ : state) {
        check_for_shift(lat, -118.5);
        lat = 68.0 - lat;
        benchmark::DoNotOptimize(flt[0].dob_lat);
    }
}

constexpr auto ms = benchmark::kMillisecond;
constexpr auto us = benchmark::kMicrosecond;
BENCHMARK(shift)->ArgName("cells")->Arg(85)->Arg(255)->Unit(ms);
BENCHMARK(shift_over_survey_land)->Unit(ms);
BENCHMARK(keep_survey_land)->Unit(us);
BENCHMARK(rotate_ten_aircraft)->Unit(us);
BENCHMARK(lists_of_20000_airports)->Unit(ms);
BENCHMARK(nothing_moves);
}  // namespace

BENCHMARK_MAIN();
