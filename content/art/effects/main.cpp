// effects_make: draws the pictures of effects.
#include <stdio.h>

#include <exception>
#include <filesystem>
#include <future>

#include "effects.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "%s FOLDER    draws pictures into FOLDER/clouds, FOLDER/fire, ...\n", argv[0]);
        return 2;
    }
    try {
        const std::string folder = std::string(argv[1]) + "/";
        for (const char* sub : {"clouds", "fire", "overlays", "lites", "buildings", "balloons", "maps"})
            std::filesystem::create_directories(folder + sub);
        auto clouds = std::async(std::launch::async, [&folder] { draw_clouds(folder); });
        for (const auto draw : {draw_fires, draw_glass, draw_overlays, draw_things, draw_movie, draw_maps})
            draw(folder);
        clouds.get();
    } catch (const std::exception& fault) {
        fprintf(stderr, "effects_make: %s\n", fault.what());
        return 1;
    }
    return 0;
}
