// gallery: the pictures that show what the simulator looks like.
#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "../flightlab/options.h"
#include "../scene_view/scene_draw.h"
#include "../simulator/simulator.h"
#include "app/init_sim.h"
#include "jpeg_file.h"
#include "scenes.h"

namespace {
const char* const usage =
    "gallery FOLDER [NAME]...    writes FOLDER/NAME.jpg of all scenes, or of those named\n"
    "\n"
    "Needs a display; it may be a virtual one.\n"
    "Exit status: 0 good, 1 a picture cannot be written, 2 wrong use.\n";

int run(int argc, char** argv) {
    constexpr unsigned long most_bytes = 290000;
    if (argc == 2 && strcmp(argv[1], "--help") == 0) return fputs(usage, stdout), exit_good;
    if (argc < 2) throw wrong_use("expected FOLDER");
    const std::string folder = argv[1];
    const std::vector<std::string> names(argv + 2, argv + argc);
    std::filesystem::create_directories(folder);
    start_simulator("gallery", true);
    for (const char* line : gallery_scenes) {
        const scene_struct scene = read_scene(line);
        if (!names.empty() && std::find(names.begin(), names.end(), scene.name) == names.end()) continue;
        draw_scene(scene);
        const std::string path = folder + "/" + scene.name + ".jpg";
        if (!save_jpeg(path, most_bytes)) throw std::runtime_error(path + ": cannot be written");
    }
    MACIBM_finishup(0);
    return exit_good;
}
}  // namespace

int main(int argc, char** argv) { return run_program("gallery", run, argc, argv); }
