// sky_view: pictures of the flying view at given places, hours and weathers.
#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "../flightlab/options.h"
#include "../scene_view/scene_draw.h"
#include "../simulator/simulator.h"
#include "app/init_sim.h"
#include "draw/images/screenshot.h"

namespace {
const char* const usage =
    "sky_view FILE FOLDER [NAME]...    pictures of the flying view, one for each line of a file\n"
    "\n";
const char* const usage_end =
    "Writes FOLDER/name.png of all lines, or of those named. Needs a display; it may be a virtual one.\n"
    "Exit status: 0 good, 1 a picture cannot be written, 2 wrong use.\n";

std::vector<scene_struct> read_scenes(const std::string& path) {
    std::ifstream file(path);
    if (!file) throw wrong_use(path + ": cannot be read");
    std::vector<scene_struct> scenes;
    for (std::string line; std::getline(file, line);)
        if (scene_struct scene = read_scene(line); !scene.name.empty()) scenes.push_back(scene);
    return scenes;
}

void draw(const scene_struct& scene, const std::string& folder) {
    draw_scene(scene);
    const std::string path = folder + "/" + scene.name + ".png";
    if (!save_screenshot(path)) throw std::runtime_error(path + ": cannot be written");
}

int run(int argc, char** argv) {
    if (argc == 2 && strcmp(argv[1], "--help") == 0)
        return fputs(usage, stdout), fputs(scene_keys_help, stdout), fputs(usage_end, stdout), exit_good;
    if (argc < 3) throw wrong_use("expected FILE and FOLDER");
    const std::vector<scene_struct> scenes = read_scenes(argv[1]);
    const std::vector<std::string> names(argv + 3, argv + argc);
    start_simulator("sky_view", true);
    for (const scene_struct& scene : scenes)
        if (names.empty() || std::find(names.begin(), names.end(), scene.name) != names.end())
            draw(scene, argv[2]);
    MACIBM_finishup(0);
    return exit_good;
}
}  // namespace

int main(int argc, char** argv) { return run_program("sky_view", run, argc, argv); }
