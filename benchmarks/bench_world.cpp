// Tiles as they are loaded: the file alone, its assembly, its display lists; seams, the water tile; and
// queries of the ground from where an asker was, from its patch, from another one and from where there is
// nothing.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "../tests/support/xvfb.h"
#include "core/con.h"
#include "core/globe.h"
#include "core/mapfile.h"
#include "core/mnw.h"
#include "core/paths.h"
#include "core/random.h"
#include "core/records.h"
#include "core/seams.h"
#include "draw/gl_facts.h"
#include "draw/ogl.h"
#include "draw/tman.h"
#include "platform/window.h"
#include "scenery/dsf.h"
#include "scenery/library.h"
#include "scenery/terrain_query.h"
#include "scenery/tile.h"
#include "scenery/tile_edge.h"
#include "scenery/tile_load.h"
#include "tile_mesh.h"
#include "weather/atmosphere.h"

namespace {
// The region has two rows of three tiles; the large one lies beside it.
constexpr int region_lat = 33, region_lon = -119, home_lat = 34, home_lon = -118, home_row = 1,
              home_column = 1;
constexpr int large_lat = 33, large_lon = -116, large_row = 0, large_column = 2;

double hills(double lat, double lon) { return 600.0 + 300.0 * std::sin(lat * 90.0) * std::cos(lon * 70.0); }

struct stage_struct {
    test::xvfb screen;
    std::string folder = "/tmp/tarvane-bench-world-" + std::to_string(getpid()) + "/";

    stage_struct() {
        std::filesystem::create_directories(folder + "Resources/bitmaps");
        std::filesystem::copy(INSTALL_FOLDER "Resources/bitmaps/blank.png",
                              folder + "Resources/bitmaps/ground.png");
        std::ofstream(folder + "Resources/bitmaps/land.ter")
            << "A\n800 \nTERRAIN\nBASE_TEX ground.png\nPROJECTED 500 400\nNO_ALPHA\n";
        init_con();
        seams_headless();
        init_paths(folder);
        set_planet_specs(0);
        env.lat_sou = region_lat, env.lon_wes = region_lon;
        find_region_extents();
        mnw.x_res_now = 1024, mnw.y_res_now = 768, mnw.tex_res = 5;
        if (!MACIBM_getcontext()) std::abort();
        window_fixed_gl_state();
        read_gl_facts();
        OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
        write_tile(large_lat, large_lon, 255);
        for (int lat = 33; lat < 35; ++lat)
            for (int lon = -119; lon < -116; ++lon) write_tile(lat, lon, 85);
    }
    ~stage_struct() {
        forget_all();
        window_close();
        std::filesystem::remove_all(folder);
    }
    std::string file_of(int lat, int lon) const {
        return folder + "Resources/Earth nav data/" + return_latlon_str_ENV(lat, lon, ".dsf");
    }
    void write_tile(int lat, int lon, int cells) const {
        std::filesystem::create_directories(std::filesystem::path(file_of(lat, lon)).parent_path());
        tile_writer tile(lat, lon);
        mesh_source source;
        source.cells = cells;
        source.height = hills;
        source.land_class = [](double, double) { return 1; };
        source.terrain = {"terrain_Water", "land.ter"};
        write_mesh(&tile, source);
        std::string error;
        if (!tile.write(file_of(lat, lon), &error)) std::abort();
    }
    static void forget_all() {
        for (auto& column : xdeg)
            for (xdeg_struct& tile : column) clear_degree(&tile);
        handle_edge(0, 0, nullptr, nullptr, edge_clear);
    }
};

stage_struct& stage() {
    static stage_struct made;
    return made;
}

// Argument of the tile's benchmarks: cells each way.
bool is_large(const benchmark::State& state) { return state.range(0) == 255; }

void count_triangles(benchmark::State& state, double tiles) {
    const double cells = static_cast<double>(state.range(0));
    state.counters["triangles"] =
        benchmark::Counter(2.0 * cells * cells * tiles, benchmark::Counter::kIsIterationInvariantRate);
}

void decode_alone(benchmark::State& state) {
    const std::string path =
        is_large(state) ? stage().file_of(large_lat, large_lon) : stage().file_of(home_lat, home_lon);
    DSFCallbacks_t callbacks = {};
    callbacks.AcceptTerrainDef_f = callbacks.AcceptObjectDef_f = callbacks.AcceptPolygonDef_f =
        callbacks.AcceptNetworkDef_f = [](const char*, void*) {};
    callbacks.AcceptProperty_f = [](const char*, const char*, void*) {};
    callbacks.BeginPatch_f = [](unsigned, double, double, unsigned char, float*, float*, int, void*) {};
    callbacks.BeginPrimitive_f = [](int, void*) {};
    callbacks.AddPatchVertex_f = [](double*, void*) {};
    callbacks.EndPrimitive_f = callbacks.EndPatch_f = [](void*) {};
    for (auto _ : state) {
        XMappedFile file;
        if (!file.retry(path.c_str())) std::abort();
        const int error = DSFReadMem(reinterpret_cast<const char*>(file.begin()),
                                     reinterpret_cast<const char*>(file.end()), &callbacks, nullptr);
        if (error != dsf_ErrOK) std::abort();
    }
    count_triangles(state, 1.0);
}

void load(benchmark::State& state, bool with_lists) {
    stage();
    const bool large = is_large(state);
    for (auto _ : state) {
        seam.has_display = with_lists;
        const int good = large ? read_new_env(large_lat, large_row, large_lon, large_column)
                               : read_new_env(home_lat, home_row, home_lon, home_column);
        if (!good) std::abort();
        state.PauseTiming();
        stage_struct::forget_all();
        seam.has_display = 1;
        state.ResumeTiming();
    }
    count_triangles(state, 1.0);
}
void assemble(benchmark::State& state) { load(state, false); }
void assemble_with_lists(benchmark::State& state) { load(state, true); }

void six_tiles(benchmark::State& state) {
    stage();
    for (auto _ : state) {
        for (int lat = 33; lat < 35; ++lat)
            for (int lon = -119; lon < -116; ++lon) read_env(lat, lat - region_lat, lon, lon - region_lon);
        state.PauseTiming();
        stage_struct::forget_all();
        state.ResumeTiming();
    }
}

void water_tile(benchmark::State& state) {
    stage();
    for (auto _ : state) {
        make_def_env(30, home_row, -118, home_column);
        state.PauseTiming();
        stage_struct::forget_all();
        state.ResumeTiming();
    }
}

// An edge of so many vertices, kept by a tile and taken by its neighbour.
void seam_of_1024(benchmark::State& state) {
    stage();
    for (auto _ : state) {
        d3_struct nrm = {{0.0f, 1.0f, 0.0f}};
        for (const int op : {edge_keep_right, edge_take_left})
            for (int i = 0; i < 1024; ++i) {
                d3_struct at = {{1000.0f, 5.0f, 100.0f * static_cast<float>(i)}};
                handle_edge(op == edge_keep_right ? 1 : 2, 1, &at, &nrm, op);
                benchmark::DoNotOptimize(at);
            }
        handle_edge(0, 0, nullptr, nullptr, edge_clear);
    }
}

// -- queries

class ground {
public:
    ground() {
        stage();
        read_new_env(home_lat, home_row, home_lon, home_column);
        xdob_xyz_with_latlonel(&x, &y, &z, 34.5012, -117.4987, 0.0);
    }
    ~ground() { stage_struct::forget_all(); }
    double x, y, z;
};

void ask(benchmark::State& state, double step) {
    const ground land;
    int n = 0;
    for (auto _ : state) {
        n = (n + 1) & 1;
        benchmark::DoNotOptimize(
            return_terrain_y(static_cast<float>(land.x + n * step), static_cast<float>(land.z), 30));
    }
}
void query_same_triangle(benchmark::State& state) { ask(state, 0.1); }
void query_same_patch(benchmark::State& state) { ask(state, 3000.0); }
void query_other_patch(benchmark::State& state) { ask(state, 20000.0); }
void query_where_nothing_is(benchmark::State& state) { ask(state, 60000.0); }

// What a query cannot do without: three sides and a plane.
void three_sides_and_a_plane(benchmark::State& state) {
    float g[9] = {0.0f, 10.0f, 0.0f, 500.0f, 20.0f, 900.0f, 900.0f, 15.0f, -200.0f};
    float x = 400.0f, z = 200.0f;
    for (auto _ : state) {
        benchmark::DoNotOptimize(g);
        benchmark::DoNotOptimize(x);
        const auto side = [&](int a, int b) {
            return (x - g[a]) * (g[b + 2] - g[a + 2]) - (z - g[a + 2]) * (g[b] - g[a]) <= 0.0f;
        };
        const float run = (g[6] - g[0]) * (g[5] - g[2]) - (g[3] - g[0]) * (g[8] - g[2]);
        const float nx = ((g[7] - g[1]) * (g[5] - g[2]) - (g[4] - g[1]) * (g[8] - g[2])) / run;
        const float nz = ((g[7] - g[1]) * (g[3] - g[0]) - (g[4] - g[1]) * (g[6] - g[0])) / run;
        const int in = side(0, 3) + side(3, 6) + side(6, 0);
        benchmark::DoNotOptimize(static_cast<float>(in) + g[1] - (x - g[0]) * nx - (z - g[2]) * nz);
    }
}

// Ten wheels, two metres apart, roll a kilometre at 0.1 m a step.
void taxi_a_kilometre(benchmark::State& state) {
    const ground land;
    ren.num_fas_finds = ren.num_slo_finds = 0;
    for (auto _ : state)
        for (int step = 0; step < 10000; ++step)
            for (int wheel = 0; wheel < 10; ++wheel)
                benchmark::DoNotOptimize(return_terrain_y(static_cast<float>(land.x + 0.1 * step),
                                                          static_cast<float>(land.z + 2.0 * wheel),
                                                          1 + wheel));
    state.SetItemsProcessed(state.iterations() * 100000);
    state.counters["fast"] =
        static_cast<double>(ren.num_fas_finds) / static_cast<double>(ren.num_fas_finds + ren.num_slo_finds);
}

// Corners take 36 bytes of each triangle.
void bytes_a_collision_triangle(benchmark::State& state) {
    const ground land;
    size_t bytes = 0, triangles = 0;
    const ytest_patch_buckets& buckets = xdeg[home_column][home_row].ytest_buckets;
    for (auto _ : state)
        for (unsigned level = 0; level < buckets.GetLayerCount(); ++level)
            buckets.IterateBucketLayer(
                level, [&](XBucketID, const std::vector<ytest_patch_struct*>& patches) {
                    for (const ytest_patch_struct* patch : patches) {
                        bytes += sizeof *patch + sizeof patch +
                                 patch->ytest_pol.capacity() * sizeof(ytest_pol_struct);
                        for (const ytest_pol_struct& pol : patch->ytest_pol) {
                            bytes += pol.geo.capacity() * sizeof(d3_struct);
                            triangles += pol.geo.size() / 3;
                        }
                    }
                });
    state.counters["bytes"] = static_cast<double>(bytes) / static_cast<double>(triangles);
}
}  // namespace

BENCHMARK(decode_alone)->Arg(85)->Arg(255)->Unit(benchmark::kMillisecond);
BENCHMARK(assemble)->Arg(85)->Arg(255)->Unit(benchmark::kMillisecond);
BENCHMARK(assemble_with_lists)->Arg(85)->Arg(255)->Unit(benchmark::kMillisecond);
BENCHMARK(six_tiles)->Unit(benchmark::kMillisecond);
BENCHMARK(water_tile)->Unit(benchmark::kMillisecond);
BENCHMARK(seam_of_1024)->Unit(benchmark::kMillisecond);
BENCHMARK(three_sides_and_a_plane);
BENCHMARK(query_same_triangle);
BENCHMARK(query_same_patch);
BENCHMARK(query_other_patch);
BENCHMARK(query_where_nothing_is);
BENCHMARK(taxi_a_kilometre)->Unit(benchmark::kMillisecond);
BENCHMARK(bytes_a_collision_triangle);
BENCHMARK_MAIN();
