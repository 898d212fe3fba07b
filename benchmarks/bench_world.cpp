// Worlds: tiles of 14,450 and of 130,050 triangles from their files to what is stood on and drawn, decoding,
// assembly and display lists apart; seams between tiles; water tiles; and what a question about the terrain
// costs, on runways too, against the bare test of a triangle and a plain walk over a patch's triangles.
#include <GL/gl.h>
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "../tests/support/xvfb.h"
#include "core/disk/paths.h"
#include "core/math/globe.h"
#include "core/program/seams.h"
#include "core/records/con.h"
#include "core/records/mnw.h"
#include "core/records/records.h"
#include "draw/gl/gl_facts.h"
#include "draw/gl/ogl.h"
#include "platform/window.h"
#include "scenery/airports/strips.h"
#include "scenery/decode/dsf.h"
#include "scenery/draw/scenery_gl.h"
#include "scenery/draw/terrain_list.h"
#include "scenery/ground/runways.h"
#include "scenery/ground/surfaces.h"
#include "scenery/ground/terrain_query.h"
#include "scenery/ground/tile.h"
#include "scenery/nav/nav_tables.h"
#include "scenery/packages/library.h"
#include "scenery/tile/tile_default.h"
#include "scenery/tile/tile_defs.h"
#include "scenery/tile/tile_edge.h"
#include "scenery/tile/tile_load.h"
#include "scenery/tile/tile_mesh.h"
#include "scenery/tile/tile_state.h"
#include "tile_mesh.h"
#include "weather/atmosphere.h"

namespace fs = std::filesystem;

namespace {
// -- the world: six tiles of 85 cells in the default folder, and in a package one of 255 cells in place of
// the middle one

constexpr int south = 33, west = -119, rows = 2, columns = 3;
constexpr int middle_row = 1, middle_column = 1, middle_lat = south + middle_row,
              middle_lon = west + middle_column;
constexpr int small_cells = 85, large_cells = 255, patches = 8;

double hills(double lat, double lon) { return 500.0 + 300.0 * sin(60.0 * lat) * cos(50.0 * lon); }

std::string tile_path(const std::string& folder, int lat, int lon) {
    return folder + "Earth nav data/" + return_latlon_str_ENV(lat, lon, ".dsf");
}

void write_tile(const std::string& folder, int lat, int lon, int cells) {
    tile_writer tile(lat, lon);
    mesh_source source;
    source.cells = cells;
    source.patches = patches;
    source.height = hills;
    source.land_class = [](double, double) { return 1; };
    source.terrain = {"terrain_Water", "land.ter"};
    write_mesh(&tile, source);
    const std::string path = tile_path(folder, lat, lon);
    fs::create_directories(fs::path(path).parent_path());
    std::string error;
    if (!tile.write(path, &error)) throw std::runtime_error(error);
}

struct stage_struct {
    test::xvfb screen;
    std::string folder = "/tmp/tarvane-bench-world-" + std::to_string(getpid()) + "/";
    std::string package = folder + "large/";

    stage_struct() {
        const std::string pictures = folder + "Resources/bitmaps/";
        fs::create_directories(pictures);
        fs::copy(INSTALL_FOLDER "Resources/bitmaps/blank.png", pictures + "ground.png");
        std::ofstream(pictures + "land.ter")
            << "A\n800 \nTERRAIN\nBASE_TEX ground.png\nPROJECTED 500 400\nNO_ALPHA\n";
        init_con();
        scenery_draw = scenery_draw_gl;
        seams_headless();
        init_paths(folder);
        open_window();
        set_planet_specs(0);
        env.lat_sou = south;
        env.lon_wes = west;
        find_region_extents();
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < columns; ++column)
                write_tile(folder + "Resources/", south + row, west + column, small_cells);
        write_tile(package, middle_lat, middle_lon, large_cells);
    }
    ~stage_struct() {
        window_close();
        fs::remove_all(folder);
    }

private:
    static void open_window() {
        mnw.x_res_now = 1024, mnw.y_res_now = 768, mnw.tex_res = 5;
        compute_screen_scale();
        if (!MACIBM_getcontext()) std::abort();
        window_fixed_gl_state();
        read_gl_facts();
        OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
    }
};

stage_struct& stage() {
    static stage_struct made;
    return made;
}

void forget_world() {
    for (auto& column : xdeg)
        for (xdeg_struct& tile : column) clear_degree(&tile);
    handle_edge(0, 0, nullptr, nullptr, edge_clear);
}

// An empty world to load into, with lists or without, and an empty one behind it.
struct world_struct {
    explicit world_struct(bool with_lists, int cells = small_cells) {
        scenery_packages.clear();
        if (cells == large_cells)
            scenery_packages.push_back(stage().package);
        else
            stage();
        seam.has_display = with_lists;
    }
    ~world_struct() { forget_world(); }

    void load_middle() { read_env(middle_lat, middle_row, middle_lon, middle_column); }
    void load_all(void (*load)(int, int, int, int)) {
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < columns; ++column) load(south + row, row, west + column, column);
    }
};

std::string middle_path(int cells) {
    return tile_path(cells == large_cells ? stage().package : stage().folder + "Resources/", middle_lat,
                     middle_lon);
}

// -- loading

xdeg_struct& middle_tile() { return xdeg[middle_column][middle_row]; }

template <class Function>
void each_collision_patch(const xdeg_struct& tile, Function function) {
    for (unsigned level = 0; level < tile.ytest_buckets.GetLayerCount(); ++level)
        tile.ytest_buckets.IterateBucketLayer(level,
                                              [&](XBucketID, const std::vector<ytest_patch_struct*>& found) {
                                                  for (ytest_patch_struct* patch : found) function(*patch);
                                              });
}

std::vector<d3_struct> corners_of(const ytest_patch_struct& patch) {
    std::vector<d3_struct> all;
    for (const ytest_pol_struct& pol : patch.ytest_pol) all.insert(all.end(), pol.geo.begin(), pol.geo.end());
    return all;
}

// Bytes that a tile's collision mesh takes for each triangle; its three corners alone are 36.
double bytes_a_triangle(const xdeg_struct& tile, size_t* triangles) {
    size_t bytes = 0;
    *triangles = 0;
    each_collision_patch(tile, [&](const ytest_patch_struct& patch) {
        bytes += sizeof patch + patch.ytest_pol.capacity() * sizeof(ytest_pol_struct);
        for (const ytest_pol_struct& pol : patch.ytest_pol) {
            bytes += pol.geo.capacity() * sizeof(d3_struct);
            *triangles += pol.geo.size() / 3;
        }
    });
    return static_cast<double>(bytes) / static_cast<double>(*triangles);
}

// A strip for each row of a patch.
int64_t vertices_of(int cells) { return int64_t{2} * cells * (cells + patches); }

void count_vertices(benchmark::State& state, int64_t each) {
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * each);
}

void decode_alone(benchmark::State& state) {
    DSFCallbacks_t tell{};
    tell.AcceptTerrainDef_f = [](const char*, void*) {};
    tell.AcceptProperty_f = [](const char*, const char*, void*) {};
    tell.BeginPatch_f = [](unsigned, double, double, unsigned char, float*, float*, int, void*) {};
    tell.BeginPrimitive_f = [](int, void*) {};
    tell.AddPatchVertex_f = [](double* c, void* count) {
        benchmark::DoNotOptimize(*c);
        ++*static_cast<int64_t*>(count);
    };
    tell.EndPrimitive_f = tell.EndPatch_f = [](void*) {};
    const std::string path = middle_path(static_cast<int>(state.range(0)));
    int64_t vertices = 0;
    for (auto _ : state)
        if (DSFReadFile(path.c_str(), &tell, &vertices)) std::abort();
    if (vertices != static_cast<int64_t>(state.iterations()) * vertices_of(static_cast<int>(state.range(0))))
        state.SkipWithError("vertices are missing");
    state.SetItemsProcessed(vertices);
}

void load_tile(benchmark::State& state, bool with_lists) {
    const int cells = static_cast<int>(state.range(0));
    world_struct world(with_lists, cells);
    for (auto _ : state) {
        world.load_middle();
        state.PauseTiming();
        size_t triangles = 0;
        state.counters["B/triangle"] = bytes_a_triangle(middle_tile(), &triangles);
        if (triangles != static_cast<size_t>(2 * cells * cells)) std::abort();
        forget_world();
        state.ResumeTiming();
    }
    count_vertices(state, vertices_of(cells));
}
void assembly(benchmark::State& state) { load_tile(state, false); }
void assembly_and_lists(benchmark::State& state) { load_tile(state, true); }

// The patches of a tile as the decoder's callbacks leave them, with geometry but no lists.
std::unique_ptr<DSF_LoadState> gather_patches(int cells) {
    g_lat_file = middle_lat, g_lon_file = middle_lon;
    g_lat_os = middle_row, g_lon_os = middle_column;
    DSFCallbacks_t tell{};
    tell.AcceptTerrainDef_f = DSF_AcceptTerrainDef;
    tell.AcceptProperty_f = DSF_AcceptProperty;
    tell.BeginPatch_f = DSF_BeginPatch;
    tell.BeginPrimitive_f = DSF_BeginPrimitive;
    tell.AddPatchVertex_f = DSF_AddPatchVertex;
    tell.EndPrimitive_f = DSF_EndPrimitive;
    tell.EndPatch_f = DSF_EndPatch;
    auto gathered = std::make_unique<DSF_LoadState>(&middle_tile());
    if (DSFReadFile(middle_path(cells).c_str(), &tell, gathered.get())) std::abort();
    return gathered;
}

void display_lists(benchmark::State& state) {
    const int cells = static_cast<int>(state.range(0));
    const world_struct world(true, cells);
    for (auto _ : state) {
        state.PauseTiming();
        auto gathered = gather_patches(cells);
        state.ResumeTiming();
        for (const scene_DSF_PatchInfo& info : gathered->scene_patches)
            UTIL_build_DL(&middle_tile().tex_layers[info.layer], info.patch);
        glFinish();
        state.PauseTiming();
        for (const scene_DSF_PatchInfo& info : gathered->scene_patches) destroy_patch_list(info.patch);
        gathered.reset();
        forget_world();
        state.ResumeTiming();
    }
    count_vertices(state, vertices_of(cells));
}

void six_tiles(benchmark::State& state, void (*load)(int, int, int, int)) {
    world_struct world(state.range(0) != 0);
    for (auto _ : state) {
        world.load_all(load);
        state.PauseTiming();
        forget_world();
        state.ResumeTiming();
    }
    state.counters["tiles/s"] = benchmark::Counter(static_cast<double>(state.iterations()) * rows * columns,
                                                   benchmark::Counter::kIsRate);
}
void load_six(benchmark::State& state) { six_tiles(state, read_env); }
void water_six(benchmark::State& state) {
    six_tiles(state, [](int lat_file, int lat_os, int lon_file, int lon_os) {
        make_def_env(lat_file, lat_os, lon_file, lon_os);
    });
}

void water_one(benchmark::State& state) {
    const world_struct world(state.range(0) != 0);
    for (auto _ : state) {
        make_def_env(middle_lat, middle_row, middle_lon, middle_column);
        state.PauseTiming();
        forget_world();
        state.ResumeTiming();
    }
}

// -- seams

constexpr int edge_vertices = 1024;

std::vector<d3_struct> long_edge() {
    std::vector<d3_struct> edge;
    for (int i = 0; i < edge_vertices; ++i)
        edge.push_back({0.01f * static_cast<float>(i), 500.0f, 108.0f * static_cast<float>(i)});
    return edge;
}

// What any search of a list of points comes down to: the nearest of all, by the square of the distance.
void edge_by_plain_walk(benchmark::State& state) {
    const std::vector<d3_struct> edge = long_edge();
    for (auto _ : state)
        for (const d3_struct& at : edge) {
            float best = 1.0e10f;
            const d3_struct* nearest = nullptr;
            for (const d3_struct& kept : edge) {
                const float dx = kept.x - at.x, dz = kept.z - at.z;
                const float distance = dx * dx + dz * dz;
                if (distance < best) best = distance, nearest = &kept;
            }
            benchmark::DoNotOptimize(nearest);
        }
    count_vertices(state, edge_vertices);
}

void edge_by_handle_edge(benchmark::State& state) {
    std::vector<d3_struct> edge = long_edge();
    d3_struct normal = {0.0f, 1.0f, 0.0f};
    handle_edge(0, 0, nullptr, nullptr, edge_clear);
    for (d3_struct& at : edge) handle_edge(0, 0, &at, &normal, edge_keep_right);
    for (auto _ : state)
        for (d3_struct& at : edge) {
            handle_edge(1, 0, &at, &normal, edge_take_left);
            benchmark::DoNotOptimize(at);
        }
    handle_edge(0, 0, nullptr, nullptr, edge_clear);
    count_vertices(state, edge_vertices);
}

// -- questions about the terrain

constexpr int asker = 26;  // of bare terrain
constexpr size_t questions = 1024;

struct place_struct {
    float x, z;
};

place_struct place_of(double lat, double lon) {
    double x = 0, y = 0, z = 0;
    xdob_xyz_with_latlonel(&x, &y, &z, lat, lon, 0.0);
    return {static_cast<float>(x), static_cast<float>(z)};
}

std::mt19937& dice() {
    static std::mt19937 made(1);
    return made;
}
double between(double low, double high) { return std::uniform_real_distribution(low, high)(dice()); }

place_struct place_in_tile(int row, int column) {
    constexpr double rim = 0.05;  // degrees, out of the region's own rim
    return place_of(south + row + between(rim, 1.0 - rim), west + column + between(rim, 1.0 - rim));
}

place_struct place_in_triangle(const d3_struct* g) {
    float a = static_cast<float>(between(0.01, 0.98)), b = static_cast<float>(between(0.0, 0.98));
    if (a + b > 0.99f) a = 0.99f - 0.5f * a, b = 0.005f;
    const auto at = [&](int axis) {
        return g[0].at(axis) + a * (g[1].at(axis) - g[0].at(axis)) + b * (g[2].at(axis) - g[0].at(axis));
    };
    return {at(0), at(2)};
}

// The patch around the middle of the middle tile.
const ytest_patch_struct& some_patch() {
    const place_struct at = place_of(middle_lat + 0.53, middle_lon + 0.53);
    if (!find_terrain_poly(at.x, at.z, asker)) std::abort();
    return *ren.i_patch[asker];
}

std::vector<place_struct> places_in_patch(const ytest_patch_struct& patch) {
    const std::vector<d3_struct> corners = corners_of(patch);
    std::vector<place_struct> places;
    for (size_t i = 0; i < questions; ++i) {
        const size_t triangle = std::uniform_int_distribution<size_t>(0, corners.size() / 3 - 1)(dice());
        places.push_back(place_in_triangle(&corners[3 * triangle]));
    }
    return places;
}

// No two after each other in one patch.
std::vector<place_struct> places_in_other_patches() {
    std::vector<place_struct> places;
    const ytest_patch_struct* last = nullptr;
    while (places.size() < questions) {
        const place_struct at = place_in_tile(middle_row, middle_column);
        if (!find_terrain_poly(at.x, at.z, asker)) std::abort();
        if (ren.i_patch[asker] != last) places.push_back(at);
        last = ren.i_patch[asker];
    }
    return places;
}

// In turn in one of the other tiles.
std::vector<place_struct> places_in_other_tiles() {
    std::vector<place_struct> places;
    for (size_t i = 0; i < questions; ++i) {
        const int tile = static_cast<int>(i) % (rows * columns);
        places.push_back(place_in_tile(tile / columns, tile % columns));
    }
    return places;
}

std::vector<place_struct> places_in_middle() {
    std::vector<place_struct> places;
    for (size_t i = 0; i < questions; ++i) places.push_back(place_in_tile(middle_row, middle_column));
    return places;
}

// One question each iteration.
void ask(benchmark::State& state, const std::vector<place_struct>& places) {
    size_t i = 0;
    for (auto _ : state) {
        const place_struct& at = places[i++ % questions];
        benchmark::DoNotOptimize(return_terrain_y(at.x, at.z, asker));
    }
}

// Questions of a kind must be answered in the way that is measured.
void expect_finds(const std::vector<place_struct>& places, bool fast, bool slow) {
    ren.num_fas_finds = ren.num_slo_finds = 0;
    for (const place_struct& at : places) find_terrain_poly(at.x, at.z, asker);
    const int others = static_cast<int>(questions) - 1;  // all but the first, whose asker was elsewhere
    if ((ren.num_fas_finds >= others) != fast || (ren.num_slo_finds >= others) != slow) std::abort();
}

bool plain_inside(const d3_struct& a, const d3_struct& b, const place_struct& at) {
    return (at.x - a.x) * (b.z - a.z) - (at.z - a.z) * (b.x - a.x) <= 0.0f;
}

// Three edges and the height on the plane of the corners; below all ground where it lies outside.
float plain_height(const d3_struct* g, const place_struct& at) {
    if (!plain_inside(g[0], g[1], at) || !plain_inside(g[1], g[2], at) || !plain_inside(g[2], g[0], at))
        return -1.0e6f;
    const float ax = g[1].x - g[0].x, ay = g[1].y - g[0].y, az = g[1].z - g[0].z;
    const float bx = g[2].x - g[0].x, by = g[2].y - g[0].y, bz = g[2].z - g[0].z;
    const float nx = ay * bz - az * by, ny = az * bx - ax * bz, nz = ax * by - ay * bx;
    return g[0].y - ((at.x - g[0].x) * nx + (at.z - g[0].z) * nz) / ny;
}

std::vector<place_struct> places_in_one_triangle(std::vector<d3_struct>* triangle) {
    *triangle = corners_of(some_patch());
    triangle->resize(3);
    std::vector<place_struct> places;
    for (size_t i = 0; i < questions; ++i) places.push_back(place_in_triangle(triangle->data()));
    return places;
}

void bare_triangle(benchmark::State& state) {
    world_struct world(false);
    world.load_middle();
    std::vector<d3_struct> triangle;
    const std::vector<place_struct> places = places_in_one_triangle(&triangle);
    size_t i = 0;
    for (auto _ : state) benchmark::DoNotOptimize(plain_height(triangle.data(), places[i++ % questions]));
}

void ask_same_triangle(benchmark::State& state) {
    world_struct world(false);
    world.load_middle();
    std::vector<d3_struct> triangle;
    const std::vector<place_struct> places = places_in_one_triangle(&triangle);
    expect_finds(places, true, false);
    ask(state, places);
}

void walk_over_patch(benchmark::State& state) {
    world_struct world(false, static_cast<int>(state.range(0)));
    world.load_middle();
    const std::vector<d3_struct> corners = corners_of(some_patch());
    const std::vector<place_struct> places = places_in_patch(some_patch());
    size_t i = 0;
    for (auto _ : state) {
        const place_struct& at = places[i++ % questions];
        float y = -1.0e6f;
        for (size_t n = 0; n < corners.size() && y < -1.0e5f; n += 3) y = plain_height(&corners[n], at);
        benchmark::DoNotOptimize(y);
    }
}

void ask_same_patch(benchmark::State& state) {
    world_struct world(false, static_cast<int>(state.range(0)));
    world.load_middle();
    const std::vector<place_struct> places = places_in_patch(some_patch());
    expect_finds(places, true, false);
    ask(state, places);
}

void ask_other_patch(benchmark::State& state) {
    world_struct world(false, static_cast<int>(state.range(0)));
    world.load_middle();
    const std::vector<place_struct> places = places_in_other_patches();
    expect_finds(places, false, true);
    ask(state, places);
}

void ask_other_tile(benchmark::State& state) {
    world_struct world(false);
    world.load_all(read_env);
    const std::vector<place_struct> places = places_in_other_tiles();
    expect_finds(places, false, true);
    ask(state, places);
}

// Nothing lies there: the asker's own surroundings and all tiles are searched in vain.
void ask_where_nothing_is(benchmark::State& state) {
    world_struct world(false);
    world.load_all(read_env);
    clear_degree(&middle_tile());
    const place_struct before = place_of(south + 0.5, west + 0.5);
    if (!find_terrain_poly(before.x, before.z, asker)) std::abort();
    const std::vector<place_struct> places = places_in_middle();
    for (const place_struct& at : places)
        if (find_terrain_poly(at.x, at.z, asker)) std::abort();
    ask(state, places);
}

// One runway and thirty taxiways beside it, as a large airport has them.
void found_airport() {
    constexpr int pieces = 31;
    vec_apt_struct& apt = vec_apt.emplace_back();
    for (int i = 0; i < pieces; ++i) {
        vec_rwy_struct& rwy = apt.rwy.emplace_back();
        snprintf(rwy.num_str, sizeof rwy.num_str, i ? "xxx" : "36x");
        rwy.lat = middle_lat + 0.5f, rwy.lon = middle_lon + 0.5f + 0.001f * static_cast<float>(i);
        rwy.len = 3000.0f, rwy.width = i ? 23.0f : 45.0f, rwy.surf_tex = surface_asphalt, rwy.markings = 3;
    }
    UTIL_build_runways(0);
}

void leave_airport() {
    clear_strips();
    vec_apt.clear();
}

void strips_of_an_airport(benchmark::State& state) {
    world_struct world(false);
    world.load_middle();
    found_airport();
    for (auto _ : state) UTIL_build_runways(0);
    size_t rows = 0;
    for (const vec_rwy_geo_struct& strip : vec_rwy_geo) rows += strip.vec_rwy_pol.size();
    state.counters["rows"] = static_cast<double>(rows);
    leave_airport();
}

// A tyre: on one piece of a runway; from end to end of it; between the taxiways.
void ask_as_a_tyre(benchmark::State& state) {
    world_struct world(false);
    world.load_middle();
    found_airport();
    const place_struct middle = place_of(middle_lat + 0.5, middle_lon + 0.5);
    const float east = state.range(0) == 2 ? 960.0f : 0.0f, step = state.range(0) == 0 ? 0.02f : 2.0f;
    std::vector<place_struct> places;
    for (size_t i = 0; i < questions; ++i)
        places.push_back({middle.x + east, middle.z + step * (static_cast<float>(i) - questions / 2)});
    env.over_rwy_this = 0;
    size_t i = 0;
    for (auto _ : state) {
        const place_struct& at = places[i++ % questions];
        benchmark::DoNotOptimize(return_terrain_y(at.x, at.z, checker_tire_first));
    }
    if (env.over_rwy_this == (state.range(0) == 2)) std::abort();
    leave_airport();
}

// Ten wheels of a large aircraft, as they stand: metres to the right of its path and behind its nose wheels.
constexpr place_struct wheels[] = {{-0.5f, 0.0f},  {0.5f, 0.0f},   {-6.0f, 26.0f}, {-5.0f, 26.0f},
                                   {-6.0f, 28.0f}, {-5.0f, 28.0f}, {5.0f, 26.0f},  {6.0f, 26.0f},
                                   {5.0f, 28.0f},  {6.0f, 28.0f}};

// A kilometre to the north-east, over the border of four patches half way.
void taxi(benchmark::State& state) {
    world_struct world(false, static_cast<int>(state.range(0)));
    world.load_middle();
    constexpr int steps = 10000;
    constexpr float step = 0.1f, heading = 0.7f;  // metres, radians
    const float east = sinf(heading), north = cosf(heading);
    const double border =
        (4 * static_cast<int>(state.range(0)) / patches) / static_cast<double>(state.range(0));
    const place_struct half_way = place_of(middle_lat + border, middle_lon + border);
    ren.num_fas_finds = ren.num_slo_finds = 0;
    for (auto _ : state)
        for (int i = 0; i < steps; ++i)
            for (size_t wheel = 0; wheel < std::size(wheels); ++wheel) {
                const float along = step * static_cast<float>(i - steps / 2) - wheels[wheel].z;
                const float x = half_way.x + along * east + wheels[wheel].x * north;
                const float z = half_way.z - along * north + wheels[wheel].x * east;
                benchmark::DoNotOptimize(
                    return_terrain_y(x, z, checker_tire_first + static_cast<int>(wheel)));
            }
    state.counters["fast %"] = 100.0 * ren.num_fas_finds / (ren.num_fas_finds + ren.num_slo_finds);
    state.counters["slow/km"] = ren.num_slo_finds / static_cast<double>(state.iterations());
    count_vertices(state, steps * static_cast<int64_t>(std::size(wheels)));
}

constexpr auto ms = benchmark::kMillisecond, us = benchmark::kMicrosecond;
BENCHMARK(decode_alone)->Arg(small_cells)->Arg(large_cells)->Unit(ms);
BENCHMARK(assembly)->Arg(small_cells)->Arg(large_cells)->Unit(ms);
BENCHMARK(display_lists)->Arg(small_cells)->Arg(large_cells)->Unit(ms);
BENCHMARK(assembly_and_lists)->Arg(small_cells)->Arg(large_cells)->Unit(ms);
BENCHMARK(load_six)->ArgName("lists")->Arg(0)->Arg(1)->Unit(ms);
BENCHMARK(water_one)->ArgName("lists")->Arg(0)->Arg(1)->Unit(ms);
BENCHMARK(water_six)->ArgName("lists")->Arg(0)->Arg(1)->Unit(ms);
BENCHMARK(edge_by_plain_walk)->Unit(ms);
BENCHMARK(edge_by_handle_edge)->Unit(ms);
BENCHMARK(bare_triangle);
BENCHMARK(ask_same_triangle);
BENCHMARK(walk_over_patch)->Arg(small_cells)->Arg(large_cells);
BENCHMARK(ask_same_patch)->Arg(small_cells)->Arg(large_cells);
BENCHMARK(ask_other_patch)->Arg(small_cells)->Arg(large_cells);
BENCHMARK(ask_other_tile);
BENCHMARK(ask_where_nothing_is);
BENCHMARK(strips_of_an_airport)->Unit(us);
BENCHMARK(ask_as_a_tyre)->ArgName("piece, runway, beside")->DenseRange(0, 2);
BENCHMARK(taxi)->Arg(small_cells)->Arg(large_cells)->Unit(ms);
}  // namespace

BENCHMARK_MAIN();
