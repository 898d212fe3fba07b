// The ground scene: a walk over a full tree of buckets, one test of a sphere, and whole pictures of the
// flying view at three heights and visibilities, with what they asked of OpenGL. The land is that of the
// install folder where it has tiles round the place, else a small world made here.
#include <GL/gl.h>
#include <benchmark/benchmark.h>
#include <math.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>

#include "../tests/support/xvfb.h"
#include "app/init_sim.h"
#include "core/disk/paths.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/alert.h"
#include "core/program/seams.h"
#include "core/records/records.h"
#include "draw/gl/frame_counts.h"
#include "draw/images/screenshot.h"
#include "platform/window.h"
#include "scene/dome.h"
#include "scene/world.h"
#include "scenery/draw/terrain_draw.h"
#include "scenery/ground/region.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/packages/library.h"
#include "scenery/tile/tile_edge.h"
#include "scenery/tile/tile_load.h"
#include "weather/sky/skyc.h"
#include "world_make.h"

namespace {
// -- culling, without a window

// Every bucket of every level has a sphere, and the eye sees all of them or what lies in its view.
void full_tree(xdeg_struct* tile) {
    constexpr double side = 111000.0;  // m
    for (uint32_t level = 0; level < bucket_levels; ++level) {
        const uint32_t n = 1u << level;
        const double step = side / n;
        for (uint32_t y = 0; y < n; ++y)
            for (uint32_t x = 0; x < n; ++x)
                tile->sphere_hash[XBucket_Compose(level, x, y)] = {{(x + 0.5) * step, 0.0, (y + 0.5) * step},
                                                                   0.75 * step};
    }
    tile->visibles.Reset(bucket_levels);
}

void cull_full_tile(benchmark::State& state) {
    xdeg_struct tile;
    full_tree(&tile);
    xcam_class camera;
    const bool all = state.range(0) != 0;
    camera.SetupFrustum(-1.0, 1.0, -1.0, 1.0, 1.0, 1e6);
    if (!all) camera.SetFakeFarClippingPlane(18520.0);
    if (all)
        camera.LookAtPtFromPt({55000.0, 0.0, 55000.0}, {55000.0, 200000.0, 55000.0}, {0.0, 0.0, -1.0});
    else
        camera.LookAtPtFromPt({55000.0, 0.0, 30000.0}, {55000.0, 1500.0, 60000.0}, {0.0, 1.0, 0.0});
    int seen = 0;
    for (auto _ : state) seen = tile.visibles.Cull(&camera, &tile);
    state.counters["seen"] = seen;
}
BENCHMARK(cull_full_tile)->Arg(1)->Arg(0)->Unit(benchmark::kMicrosecond);

void sphere_in_view(benchmark::State& state) {
    xcam_class camera;
    camera.SetupFrustum(-0.5, 0.5, -0.4, 0.4, 1.0, 50000.0);
    camera.Rotate(30.0, 0.0, 1.0, 0.0);
    Sphere3 spheres[1024];
    rand_seed(1);
    for (Sphere3& s : spheres)
        s = {{flt_rand(-3e4f, 3e4f), flt_rand(-2e3f, 2e3f), flt_rand(-3e4f, 3e4f)}, flt_rand(10.0f, 1e3f)};
    int seen = 0;
    for (auto _ : state)
        for (const Sphere3& s : spheres) seen += camera.SphereInView(s.c.x, s.c.y, s.c.z, s.radius);
    benchmark::DoNotOptimize(seen);
    state.SetItemsProcessed(state.iterations() * 1024);
}
BENCHMARK(sphere_in_view);

// -- pictures

struct place_struct {
    double lat, lon;
};
constexpr place_struct places[] = {{34.09, -117.31}, {33.60, -118.40}};  // beside the default airport; at sea

struct stage_struct {
    test::xvfb screen;
    std::string folder = "/tmp/tarvane-bench-ground-" + std::to_string(getpid()) + "/";
    std::string home = std::filesystem::current_path().string();

    stage_struct() {
        std::filesystem::create_directory(folder);
        std::filesystem::current_path(folder);
        seams_headless();
        seam.has_display = 1;
        init_sim(INSTALL_FOLDER);
        alert_seam.show = [](int, const alert_lines&, int) {};
        if (!has_land()) {
            make_world("scene", folder + "scene");
            cus_path = app_path + std::filesystem::relative(folder, app_path).string() + "/";
            DSF_ScanSceneryFolder();
        }
        load_land();
    }
    ~stage_struct() {
        MACIBM_finishup(0);
        std::filesystem::current_path(home);
        std::filesystem::remove_all(folder);
    }

    static bool has_land() {
        return std::filesystem::exists(set_dir_chars(ear_path + return_latlon_str_ENV(34, -118, ".dsf")));
    }
    static void load_land() {
        env.planet = 0;
        centre_region_on(places[0].lat, places[0].lon);
        find_region_extents();
        handle_edge(0, 0, nullptr, nullptr, edge_clear);
        const int south = static_cast<int>(env.lat_sou), west = static_cast<int>(env.lon_wes);
        for (int lat = 0; lat < lat_secs[0]; ++lat)
            for (int lon = 0; lon < lon_secs[0]; ++lon) {
                clear_degree(&xdeg[lon][lat]);
                read_env(south + lat, lat, west + lon, lon);
                finish_degree(&xdeg[lon][lat]);
            }
        stg.draw_objs_05 = 3;
        stg.LOD_bias_rat = 1.0f;
    }
    static void place_eye(const place_struct& place, float height) {
        constexpr int checker = 27;
        flt_struct& f = flt[0];
        xdob_xyz_with_latlonel(&f.dob_x, &f.dob_y, &f.dob_z, place.lat, place.lon, 0.0);
        const float ground =
            return_terrain_y(static_cast<float>(f.dob_x), static_cast<float>(f.dob_z), checker);
        f.dob_y = ground + height;
        f.dob_ele = height;
        f.y_agl_mtr = height;
        f.psi = 0.0f, f.the = -5.0f, f.phi = 0.0f;
    }
};

stage_struct& stage() {
    static stage_struct made;
    return made;
}

void picture(benchmark::State& state) {
    stage().place_eye(places[state.range(2)], static_cast<float>(state.range(0)));
    atm.vis_rep = atm.vis_ground = static_cast<float>(state.range(1)) * con.nmtomtrs;
    mnw.top_win = win_fly;
    WORLD_scene_all_cases();
    glFinish();
    frame_counts_struct counts = {};
    for (auto _ : state) {
        mnw.real_time += 0.03f;
        frame_counts = {};
        WORLD_scene_all_cases();
        glFinish();
    }
    // the view clears its counts when it ends: those of the ground alone are counted here
    frame_counts = {};
    OGL_terrain_grid(0, 0);
    counts = frame_counts;
    state.counters["triangles"] = counts.triangles;
    state.counters["lists"] = counts.lists;
    state.counters["states"] = counts.states;
    state.counters["binds"] = counts.binds;
    if (const char* pictures = getenv("BENCH_PICTURES"); pictures) {
        WORLD_scene_all_cases();
        save_screenshot(std::string(pictures) + "/ground_" + std::to_string(state.range(0)) + "_" +
                        std::to_string(state.range(1)) + (state.range(2) ? "_sea.png" : ".png"));
    }
}
void set_hour(float hour) {
    mnw.zulu_time = fltwrap(hour * 3600.0f - static_cast<float>(flt[0].dob_lon) * 240.0f, 0.0f, 86400.0f);
    mnw.locl_time = locl_from_zulu();
}

// The sky alone, into the same window: dome, stars, bodies, band. range 0: hour of the sun; 1: northern
// lights.
void sky_stages(benchmark::State& state) {
    stage().place_eye(places[0], 1500.0f);
    atm.plot_aurora = static_cast<int>(state.range(1));
    mnw.locl_date_jan1 = 80;
    set_hour(static_cast<float>(state.range(0)));
    for (int settle = 0; settle < 2; ++settle) scene_state_step();
    for (auto _ : state) {
        draw_sky();
        glFinish();
    }
}

// Six hundred frames of a dawn, from stars to full day: the worst of them against their mean.
void sky_dawn(benchmark::State& state) {
    constexpr int frames = 600;
    stage().place_eye(places[0], 1500.0f);
    atm.plot_aurora = 0;
    mnw.locl_date_jan1 = 80;
    double worst = 0.0, sum = 0.0;
    for (auto _ : state)
        for (int i = 0; i < frames; ++i) {
            const auto start = std::chrono::steady_clock::now();
            set_hour(5.0f + 2.0f * static_cast<float>(i) / frames);
            scene_state_step();
            draw_sky();
            glFinish();
            const double ms =
                std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
            worst = std::max(worst, ms), sum += ms;
        }
    state.counters["worst_ms"] = worst;
    state.counters["mean_ms"] = sum / (frames * static_cast<double>(state.iterations()));
}
BENCHMARK(sky_stages)
    ->ArgNames({"hour", "aurora"})
    ->ArgsProduct({{6, 12, 18, 0}, {0}})
    ->Args({0, 1})
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(sky_dawn)->Iterations(3)->UseRealTime()->Unit(benchmark::kMillisecond);

BENCHMARK(picture)
    ->ArgNames({"height_m", "visibility_nm", "sea"})
    ->ArgsProduct({{2, 300, 1500, 6000}, {5, 10, 25}, {0, 1}})
    ->MeasureProcessCPUTime()  // software OpenGL draws in threads
    ->Unit(benchmark::kMillisecond);
}  // namespace

BENCHMARK_MAIN();
