// pavement_make: draws the pictures of runways, taxiways and pads.
#include <stdio.h>

#include <exception>
#include <filesystem>
#include <future>

#include "hard_pictures.h"
#include "other_pictures.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "%s FOLDER    draws pavement into FOLDER/asphalt, FOLDER/concrete, ...\n", argv[0]);
        return 2;
    }
    try {
        const std::string folder = argv[1];
        std::filesystem::create_directories(folder);
        auto other = std::async(std::launch::async, [&folder] { draw_hard_pictures(folder, concrete); });
        draw_hard_pictures(folder, asphalt);
        draw_natural_pictures(folder);
        draw_skids(folder + "/skids.png");
        draw_taxiline(folder + "/taxiline.png");
        other.get();
    } catch (const std::exception& fault) {
        fprintf(stderr, "pavement_make: %s\n", fault.what());
        return 1;
    }
    return 0;
}
