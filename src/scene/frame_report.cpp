// Counters of the drawing: one line of the file a frame, means of half a second on the screen.
#include "scene/frame_report.h"

#include <stdio.h>

#include <algorithm>
#include <iterator>

#include "core/math/num.h"
#include "core/program/logs.h"
#include "core/records/mnw.h"
#include "core/records/ren.h"
#include "draw/gl/colours.h"
#include "draw/gl/frame_counts.h"
#include "draw/gl/ogl.h"
#include "draw/type.h"

namespace {
struct value_row {
    const char* csv;    // column, with its unit
    const char* label;  // on the screen
    float (*now)();
};
template <frame_section which>
float ms_of() {
    return section_ms[which];
}
float frame_ms() {
    float sum = 0.0f;
    for (const float ms : section_ms) sum += ms;
    return sum;
}
template <int frame_counts_struct::*field>
float count_of() {
    return static_cast<float>(frame_counts.*field);
}
template <int ren_struct::*field>
float drawn_of() {
    return static_cast<float>(ren.*field);
}

constexpr value_row rows[] = {
    {"triangles", "triangles", count_of<&frame_counts_struct::triangles>},
    {"list_calls", "list calls", count_of<&frame_counts_struct::lists>},
    {"state_changes", "state changes", count_of<&frame_counts_struct::states>},
    {"binds", "textures bound", count_of<&frame_counts_struct::binds>},
    {"buckets_seen", "buckets seen", count_of<&frame_counts_struct::seen>},
    {"buckets_culled", "buckets culled", count_of<&frame_counts_struct::culled>},
    {"terrain_buckets", "buckets of terrain", drawn_of<&ren_struct::num_terrain_buckets>},
    {"object_buckets", "buckets of objects", drawn_of<&ren_struct::num_object_buckets>},
    {"patches", "patches", drawn_of<&ren_struct::num_patches>},
    {"objects", "objects", drawn_of<&ren_struct::num_objects>},
    {"elsewhere_ms", "elsewhere, ms", ms_of<section_elsewhere>},
    {"sky_ms", "sky, ms", ms_of<section_sky>},
    {"terrain_ms", "terrain, ms", ms_of<section_terrain>},
    {"objects_ms", "objects, ms", ms_of<section_objects>},
    {"effects_ms", "effects, ms", ms_of<section_effects>},
    {"marks_ms", "marks, ms", ms_of<section_marks>},
    {"frame_ms", "frame, ms", frame_ms},
};
constexpr size_t first_time_row = 10;

struct report_struct {
    FILE* csv = nullptr;
    int frame = 0;
    float sum[std::size(rows)] = {}, shown[std::size(rows)] = {};
    int summed = 0;
    float since = 0.0f;  // real_time
};
report_struct report;

void begin() {
    report = {};
    report.since = mnw.real_time;
    report.csv = fopen("Frames.csv", "w");
    if (!report.csv) {
        xer << "Frames.csv cannot be written: the counters show on the screen alone\n";
        return;
    }
    fputs("frame,time_s", report.csv);
    for (const value_row& row : rows) fprintf(report.csv, ",%s", row.csv);
    fputc('\n', report.csv);
}

void end() {
    if (report.csv) {
        const bool failed = ferror(report.csv) != 0;
        if (fclose(report.csv) != 0 || failed) xer << "Frames.csv is cut off: the disk has no room\n";
    }
    report = {};
}

void write_line() {
    if (!report.csv) return;
    fprintf(report.csv, "%d,%.3f", report.frame, static_cast<double>(mnw.real_time));
    for (const value_row& row : rows)
        fprintf(report.csv, &row < rows + first_time_row ? ",%.0f" : ",%.3f", static_cast<double>(row.now()));
    fputc('\n', report.csv);
}

void take_means() {
    constexpr float span = 0.5f;  // s
    for (size_t i = 0; i < std::size(rows); ++i) report.sum[i] += rows[i].now();
    ++report.summed;
    const float passed = mnw.real_time - report.since;
    if (report.frame > 0 && passed >= 0.0f && passed < span) return;
    for (size_t i = 0; i < std::size(rows); ++i) {
        report.shown[i] = report.sum[i] / static_cast<float>(report.summed);
        report.sum[i] = 0.0f;
    }
    report.summed = 0;
    report.since = mnw.real_time;
}

void show() {
    constexpr float left = 12.0f, below_menu = 60.0f, line = 13.0f, right = 190.0f;
    float y = mnw.y2_pix - below_menu;
    OGL_view_2d();
    for (size_t i = 0; i < std::size(rows); ++i, y -= line) {
        char number[32];
        const float value = report.shown[i];
        snprintf(number, sizeof number, i < first_time_row ? "%.0f" : "%.1f", static_cast<double>(value));
        OGL_string(col_white, mnw.x1_pix + left, y, rows[i].label, no_wrap, charset_text);
        OGL_string(col_white, mnw.x1_pix + right - str_dx(number), y, number, no_wrap, charset_text);
    }
}
}  // namespace

void frame_report_draw() {
    const bool wanted = mnw.track_cpu != 0;
    if (wanted && sections_timed) {
        write_line();
        take_means();
        ++report.frame;
        show();
    } else if (wanted) {
        begin();  // the next frame is the first that is timed as a whole
    } else if (sections_timed) {
        end();
    }
    sections_timed = wanted;
    frame_counts = {};
    std::fill(std::begin(section_ms), std::end(section_ms), 0.0f);
    if (wanted) end_section(section_elsewhere);
    section_ms[section_elsewhere] = 0.0f;
}

void reset_frame_report() {
    end();
    sections_timed = false;
}
