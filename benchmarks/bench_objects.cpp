// Objects: from text to commands, against a walk over the same bytes; and how many instances a second a batch
// draws, small ones and larger ones, against the bare calls of their lists.
#include <GL/gl.h>
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

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
#include "scenery/draw/object_draw.h"
#include "scenery/draw/scenery_gl.h"
#include "scenery/objects/object_build.h"
#include "scenery/objects/object_file.h"

namespace {
const std::string header = "I\n700\nOBJ\n\nnone\n\n";

// Triangles of a hand's width around the origin, as an exporter writes them.
std::string triangles(int count) {
    std::string text = header;
    for (int i = 0; i < count; ++i) {
        char part[200];
        const double x = 0.01 * (i % 97), y = 0.01 * (i % 89);
        snprintf(part, sizeof part,
                 "tri\n%.4f %.4f %.4f\t%.4f %.4f\n%.4f %.4f %.4f\t%.4f %.4f\n%.4f %.4f %.4f\t%.4f %.4f\n\n",
                 x, y, 0.125, 0.25, 0.5, x, y + 0.01, 0.125, 0.25, 0.75, x + 0.01, y, 0.125, 0.5, 0.5);
        text += part;
    }
    return text + "end\n";
}

struct stage_struct {
    test::xvfb screen;
    std::string folder = "/tmp/tarvane-bench-objects-" + std::to_string(getpid()) + "/";
    int small, large;

    stage_struct() {
        std::filesystem::create_directory(folder);
        init_con();
        scenery_draw = scenery_draw_gl;
        seams_headless();
        init_paths(folder);
        mnw.x_res_now = 1024, mnw.y_res_now = 768, mnw.tex_res = 5;
        ren.FOV = 45.0f;
        compute_screen_scale();
        if (!MACIBM_getcontext()) std::abort();
        window_fixed_gl_state();
        read_gl_facts();
        OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
        scratch_dx = scratch_dy = 1;
        tman.load_texture(0, load_ogl, tex_blank, filter_rgb, scratch_name);
        std::ofstream(folder + "small.obj") << triangles(10);
        std::ofstream(folder + "large.obj") << triangles(100);
        small = build_obs("small.obj", 1);
        large = build_obs("large.obj", 1);
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

const std::string& big_file() {
    static const std::string text = triangles(60000);
    return text;
}

void count_bytes(benchmark::State& state) {
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                            static_cast<int64_t>(big_file().size()));
}

void walk_over_the_text(benchmark::State& state) {
    for (auto _ : state) {
        int blanks = 0;
        for (const char c : big_file()) blanks += c == ' ' || c == '\t' || c == '\n';
        benchmark::DoNotOptimize(blanks);
    }
    count_bytes(state);
}

void read_text(benchmark::State& state) {
    const std::string path = stage().folder + "big.obj";
    std::ofstream(path) << big_file();
    for (auto _ : state) {
        vec_mod_struct mod;
        std::string texture;
        if (read_object_file(path, &mod, &texture) != object_good) std::abort();
        find_object_bounds(&mod);
        check_object(mod);
        find_object_normals(&mod);
        keep_object_actions(&mod.vec_lod[0]);
    }
    count_bytes(state);
}

constexpr int batch = 1000;

void start_batch(int M) {
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    OGL_view_3d(45.0f, 1.0f, 10000.0f);
    glTranslatef(0.0f, 0.0f, -2000.0f);
    object_state(M, 0);
}

void count_objects(benchmark::State& state) {
    state.counters["objects/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * batch, benchmark::Counter::kIsRate);
}

void bare_lists(benchmark::State& state) {
    const int M = state.range(0) == 10 ? stage().small : stage().large;
    for (auto _ : state) {
        start_batch(M);
        for (int i = 0; i < batch; ++i) {
            glPushMatrix();
            glTranslatef(static_cast<float>(i % 40), 0.0f, static_cast<float>(i / 40));
            glCallList(static_cast<GLuint>(vec_mod[M].vec_lod[0].dl_day));
            glPopMatrix();
        }
        glFinish();
    }
    count_objects(state);
}

void plot_in_loop(benchmark::State& state) {
    const int M = state.range(0) == 10 ? stage().small : stage().large;
    for (auto _ : state) {
        start_batch(M);
        for (int i = 0; i < batch; ++i)
            plot_obj_inloop(M, 0, static_cast<float>(i % 40), 0.0f, static_cast<float>(i / 40), 30.0f, 0.0f,
                            0.0f, 0);
        glFinish();
    }
    count_objects(state);
}

BENCHMARK(walk_over_the_text)->Unit(benchmark::kMillisecond);
BENCHMARK(read_text)->Unit(benchmark::kMillisecond);
BENCHMARK(bare_lists)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(plot_in_loop)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
}  // namespace

BENCHMARK_MAIN();
