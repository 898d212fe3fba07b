// The simulator under a tool.
#include "simulator.h"

#include <stdio.h>
#include <unistd.h>

#include <filesystem>

#include "../flightlab/options.h"
#include "app/init_sim.h"
#include "core/disk/paths.h"
#include "core/program/alert.h"
#include "core/program/seams.h"
#include "core/records/mnw.h"

static const char* name = "";

static void show_on_stderr(int, const alert_lines& text, int) {
    fprintf(stderr, "%s:", name);
    for (const std::string& words : text.line)
        if (!words.empty()) fprintf(stderr, " %s", words.c_str());
    fputc('\n', stderr);
}

static void end_with_fault(const alert_lines&) { _exit(exit_fault); }

static void take_fine_textures() {
    constexpr int finest = 5;
    mnw.tex_res = finest;
}

void start_simulator(const char* tool, bool fine_textures) {
    name = tool;
    alert_seam.end = end_with_fault;
    seams_headless();
    seam.has_display = 1;
    init_sim(std::filesystem::canonical(executable_folder() + "../Orvelle").string() + "/",
             fine_textures ? take_fine_textures : nullptr);
    alert_seam.show = show_on_stderr;
}
