// Textures: from a PNG file into OpenGL against libpng alone, the work on pixels against copying them, and
// what a bind costs that has nothing to do or something.
#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "../tests/draw/pictures.h"
#include "../tests/support/xvfb.h"
#include "core/disk/paths.h"
#include "core/program/seams.h"
#include "core/records/con.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "draw/gl/gl_facts.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "platform/window.h"

namespace {
constexpr int side = 1024;

// A screen without hardware, a window, and pictures of soft noise with a third of their pixels clear.
struct stage_struct {
    test::xvfb screen;
    std::string folder = "/tmp/tarvane-bench-draw-" + std::to_string(getpid()) + "/";
    std::string png;

    stage_struct() {
        std::filesystem::create_directory(folder);
        init_con();
        seams_headless();
        init_paths(folder);
        mnw.x_res_now = 1024, mnw.y_res_now = 768, mnw.tex_res = 5;
        compute_screen_scale();
        if (!MACIBM_getcontext()) std::abort();
        window_fixed_gl_state();
        read_gl_facts();
        OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
        test::bytes samples;
        for (int i = 0; i < side * side; ++i) {
            const int x = i % side, y = i / side, soft = (x / 3 + y / 5 + (x * y >> 9)) & 255;
            const bool clear = ((x / 40) + (y / 25)) % 3 == 0;
            for (const int c : {soft, soft / 2, 255 - soft, clear ? 0 : 255})
                samples.push_back(static_cast<unsigned char>(c));
        }
        png = test::png_bytes({side, side, PNG_COLOR_TYPE_RGB_ALPHA, samples});
        std::ofstream(folder + "a.png", std::ios::binary) << png;
    }
    ~stage_struct() {
        window_close();
        std::filesystem::remove_all(folder);
    }
};

stage_struct& stage() {
    static stage_struct made;
    return made;
}

void count_pixels(benchmark::State& state) {
    state.counters["MPixel/s"] = benchmark::Counter(
        static_cast<double>(state.iterations()) * side * side / 1e6, benchmark::Counter::kIsRate);
}

void png_by_libpng_alone(benchmark::State& state) {
    const std::string& file = stage().png;
    std::vector<unsigned char> pixels(side * side * 4);
    for (auto _ : state) {
        const char* at = file.data();
        png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
        png_infop info = png_create_info_struct(png);
        png_set_read_fn(png, &at, [](png_structp from, png_bytep to, size_t count) {
            const char** place = static_cast<const char**>(png_get_io_ptr(from));
            memcpy(to, *place, count);
            *place += count;
        });
        png_read_info(png, info);
        for (int y = 0; y < side; ++y) png_read_row(png, &pixels[y * side * 4], nullptr);
        png_destroy_read_struct(&png, &info, nullptr);
    }
    count_pixels(state);
}
void png_to_texture(benchmark::State& state, int filter, int tex_res) {
    const std::string path = stage().folder + "a.png";
    mnw.tex_res = tex_res;
    for (auto _ : state) tman.load_texture(1, load_ogl, tex_fire, filter, path);
    glFinish();
    mnw.tex_res = 5;
    count_pixels(state);
}
BENCHMARK(png_by_libpng_alone)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(png_to_texture, plain, filter_rgb, 5)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(png_to_texture, edges_and_levels, filter_rgba_mip, 5)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(png_to_texture, quarter_size_edges_and_levels, filter_rgba_mip, 3)
    ->Unit(benchmark::kMillisecond);

void pixels_copied(benchmark::State& state) {
    for (auto _ : state) {
        memcpy(scratch_array_temp, scratch_array, scratch_size);
        benchmark::ClobberMemory();
    }
    count_pixels(state);
}
// One pixel in so many is clear.
void edges_cleaned(benchmark::State& state) {
    const uint64_t every = static_cast<uint64_t>(state.range(0));
    constexpr uint64_t mix = 7919, period = 100003;
    for (uint64_t i = 0; i < side * side; ++i) scratch_array[4 * i + 3] = i * mix % period % every ? 255 : 0;
    for (auto _ : state) {
        clean_edges(scratch_array, side, side);
        benchmark::ClobberMemory();
    }
    count_pixels(state);
}
void halved(benchmark::State& state) {
    for (auto _ : state) {
        shrink_half(scratch_array, side, side, static_cast<int>(state.range(0)));
        benchmark::ClobberMemory();
    }
    count_pixels(state);
}
BENCHMARK(pixels_copied)->Unit(benchmark::kMillisecond);
BENCHMARK(edges_cleaned)->Arg(1)->Arg(2)->Arg(20)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(halved)->Arg(3)->Arg(4)->Unit(benchmark::kMillisecond);

void load_two() {
    const std::string path = stage().folder + "a.png";
    mnw.tex_res = 0;
    for (const int ref : {tex_fire + 0, tex_fence + 0})
        tman.load_texture(1, load_ogl, ref, filter_rgba, path);
    mnw.tex_res = 5;
}
void bind_what_is_bound(benchmark::State& state) {
    load_two();
    for (auto _ : state) tman.bind_ref(tex_fire, 0, 0);
}
void bind_two_in_turn(benchmark::State& state) {
    load_two();
    int n = 0;
    for (auto _ : state) tman.bind_ref(++n & 1 ? tex_fire : tex_fence, 0, 0);
}
void bind_two_in_turn_bare(benchmark::State& state) {
    load_two();
    int n = 0;
    for (auto _ : state) glBindTexture(GL_TEXTURE_2D, ++n & 1 ? tex_fire : tex_fence);
    tman.reset_bind();
}
void bind_two_modes_in_turn(benchmark::State& state) {
    load_two();
    int n = 0;
    for (auto _ : state) tman.bind_ref(tex_fire, 1, ++n & 1 ? combine_border : combine_over);
}
BENCHMARK(bind_what_is_bound);
BENCHMARK(bind_two_in_turn_bare);
BENCHMARK(bind_two_in_turn);
BENCHMARK(bind_two_modes_in_turn);
}  // namespace

BENCHMARK_MAIN();
