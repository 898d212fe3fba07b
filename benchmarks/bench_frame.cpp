// Whole frames of the flying view in fixed scenes over the starter region, at 1024 x 768 with default
// settings: rate, worst frame, parts, counters; beside them a bare clear with swap, and the first scene with
// one texture unit. With --visibility FILE or --objects FILE instead how frames grow, as CSV; objects need a
// package that holds some.
#include <GL/gl.h>
#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

#include "../tools/flightlab/options.h"
#include "../tools/scene_view/scene_draw.h"
#include "../tools/simulator/simulator.h"
#include "app/init_sim.h"
#include "core/math/num.h"
#include "core/program/seams.h"
#include "core/records/records.h"
#include "draw/gl/frame_counts.h"
#include "platform/window.h"
#include "scene/dome.h"
#include "scene/overlay/overlay.h"
#include "scene/world.h"
#include "scenery/ground/region.h"

namespace {
constexpr int frames = 120, warm = 12;
constexpr const char* part_names[frame_sections] = {"elsewhere", "sky",     "terrain",
                                                    "objects",   "effects", "marks"};

constexpr const char* scenes[] = {
    "final    lat=34.0807 lon=-117.2692 height=475 heading=71 pitch=-4 day=172 hour=10 vis=20",
    "dusk     lat=34.06 lon=-117.42 height=3000 heading=60 pitch=-6 day=80 hour=18.25 vis=25 lamps=1",
    "rain     lat=34.05 lon=-117.45 height=700 heading=70 pitch=-3 day=20 hour=13 vis=6 clouds=5,1400,3200 "
    "rain=0.9",
    "outside  lat=34.06 lon=-117.42 height=700 heading=60 pitch=-3 day=172 hour=10 vis=20 orbit=20,8,60",
};
const std::string valley = "valley lat=34.06 lon=-117.42 height=700 heading=60 pitch=-3 day=172 hour=10 vis=";
const std::string village =
    "village lat=34.0918 lon=-117.3085 height=450 heading=10 pitch=-8 day=172 hour=10 vis=20";

double now_ms() {
    using namespace std::chrono;
    return duration<double, std::milli>(steady_clock::now().time_since_epoch()).count();
}

double middle_of(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

// A slow turn, so that what is in view changes as in flight.
void draw_frame(int) {
    constexpr float turn = 0.5f;  // degrees a frame
    flt[0].psi = fltwrap(flt[0].psi + turn, 0.0f, 360.0f);
    mnw.totl_time += mnw.prd_FM;
    frame_counts = {};
    end_section(section_elsewhere);
    scene_state_step();
    WORLD_scene_per_dome();
    WORLD_scene_2d_overlay();
    end_section(section_marks);
    seam.swap_buffers();
    glFinish();
}

struct measure_struct {
    double median = 0.0, worst = 0.0;   // ms a frame
    double parts[frame_sections] = {};  // ms, means
    frame_counts_struct counts = {};    // the most of any frame
};

template <class draw_type>
measure_struct measure(draw_type draw) {
    measure_struct found;
    for (int frame = 0; frame < warm; ++frame) draw(frame);
    std::vector<double> times;
    for (int frame = 0; frame < frames; ++frame) {
        const double start = now_ms();
        draw(frame);
        times.push_back(now_ms() - start);
        found.counts.triangles = intmax2(found.counts.triangles, frame_counts.triangles);
        found.counts.lists = intmax2(found.counts.lists, frame_counts.lists);
        found.counts.states = intmax2(found.counts.states, frame_counts.states);
    }
    found.median = middle_of(times);
    found.worst = *std::max_element(times.begin(), times.end());
    return found;
}

// The parts wait for the driver, so they are measured apart from the rate.
void measure_parts(measure_struct* to) {
    sections_timed = true;
    for (int frame = 0; frame < frames; ++frame) {
        std::fill(std::begin(section_ms), std::end(section_ms), 0.0f);
        draw_frame(frame);
        for (int part = 0; part < frame_sections; ++part)
            to->parts[part] += static_cast<double>(section_ms[part]) / frames;
    }
    sections_timed = false;
}

void print(const char* name, const measure_struct& m, double bare) {
    printf(
        "%-18s %6.1f frames/s in the median, worst %5.1f ms, %5.1f bare swaps; %5d triangles %3d lists %3d "
        "states\n",
        name, 1000.0 / m.median, m.worst, m.median / bare, m.counts.triangles, m.counts.lists,
        m.counts.states);
    if (m.parts[section_terrain] <= 0.0) return;
    printf("%18s", "ms:");
    for (int part = 0; part < frame_sections; ++part) printf(" %s %.2f", part_names[part], m.parts[part]);
    putchar('\n');
}

measure_struct measure_scene(const std::string& line, bool with_parts) {
    draw_scene(read_scene(line));
    measure_struct found = measure(draw_frame);
    if (with_parts) measure_parts(&found);
    return found;
}

// How frames grow, as CSV: with the visibility, or with the setting of how many objects stand.
void write_costs(const char* what, const char* path) {
    constexpr int kinds_of_density = 6;
    FILE* const out = fopen(path, "w");
    if (!out) throw std::runtime_error(std::string(path) + ": cannot be written");
    fputs("value,frame_ms,triangles,list_calls\n", out);
    const auto row = [out](int value, const std::string& scene) {
        const measure_struct m = measure_scene(scene, false);
        fprintf(out, "%d,%.2f,%d,%d\n", value, m.median, m.counts.triangles, m.counts.lists);
    };
    if (strcmp(what, "--objects") == 0) {
        for (int density = 0; density < kinds_of_density; ++density) {
            stg.draw_objs_05 = density;
            load_region(shift_full_reload);
            row(density, village);
        }
    } else {
        for (const int miles : {1, 2, 5, 10, 15, 20, 25, 30, 40, 60})
            row(miles, valley + std::to_string(miles));
    }
    if (fclose(out)) throw std::runtime_error(std::string(path) + ": cannot be written");
}

int run(int argc, char** argv) {
    start_simulator("bench_frame");
    platform_install_seams();
    if (argc == 3) {
        write_costs(argv[1], argv[2]);
        MACIBM_finishup(0);
        return exit_good;
    }
    const double bare = measure([](int) {
                            glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
                            seam.swap_buffers();
                            glFinish();
                        }).median;
    printf("%-18s %6.1f frames/s\n", "bare clear", 1000.0 / bare);
    for (const char* line : scenes) print(read_scene(line).name.c_str(), measure_scene(line, true), bare);
    const int units = ren.num_tex_units;
    ren.num_tex_units = 1;
    print("final, one unit", measure_scene(scenes[0], false), bare);
    ren.num_tex_units = units;
    MACIBM_finishup(0);
    return exit_good;
}
}  // namespace

int main(int argc, char** argv) { return run_program("bench_frame", run, argc, argv); }
