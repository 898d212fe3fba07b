// land_make: draws the ground of made tiles: terrain definitions, their pictures by day and night, and the
// sea.
#include <stdio.h>
#include <string.h>

#include <exception>
#include <filesystem>
#include <stdexcept>

#include "land_pictures.h"
#include "sea_pictures.h"
#include "soft_border.h"

namespace fs = std::filesystem;

void draw_day(land_class which, ground_picture* p) {
    if (land_class_of(which).has_night) return draw_settled(which, false, p);
    if (which < land_airfield) return draw_farmed(which, p);
    if (which < land_desert) return draw_grown(which, p);
    draw_bare(which, p);
}
void draw_night(land_class which, ground_picture* p) { draw_settled(which, true, p); }

namespace {
const char* const usage =
    "land_make FOLDER CLASS    a land class: CLASS.ter and its pictures\n"
    "land_make FOLDER border   the soft edge of classes that lie over others\n"
    "land_make FOLDER sea      water, seven states of the sea\n"
    "land_make list            the names of the classes\n";

void write_definition(const std::string& folder, const land_class_row& row) {
    const std::string path = folder + row.name + ".ter";
    FILE* const file = fopen(path.c_str(), "w");
    if (!file) throw std::runtime_error(path + ": cannot be written");
    fprintf(file, "I\n800\nTERRAIN\n\nBASE_TEX %s.png\n", row.name);
    if (row.has_night)
        fprintf(file, "LIT_TEX %s_LIT.png\n", row.name);
    else
        fprintf(file, "BORDER_TEX soft_border.png\n");
    fprintf(file, "PROJECTED %d %d\nNO_ALPHA\n", row.repeat_metres, row.repeat_metres);
    if (fclose(file) != 0) throw std::runtime_error(path + ": cannot be written");
}

void write_class(const std::string& folder, land_class which) {
    const land_class_row& row = land_class_of(which);
    ground_picture day(row.repeat_metres);
    draw_day(which, &day);
    day.save(folder + row.name + ".png");
    if (row.has_night) {
        ground_picture night(row.repeat_metres);
        draw_night(which, &night);
        night.save(folder + row.name + "_LIT.png");
    }
    write_definition(folder, row);
}

void write_sea(const std::string& folder) {
    const char* const names[sea_states] = {"1 Calm",  "2 Smooth",     "3 Slight", "4 Moderate",
                                           "5 Rough", "6 Very Rough", "7 High"};
    for (int state = 0; state < sea_states; ++state) {
        const std::string to = folder + "water/" + names[state] + "/";
        fs::create_directories(to);
        draw_sea(state, to);
    }
}

void write(const std::string& folder, const std::string& what) {
    fs::create_directories(folder);
    if (what == "sea") return write_sea(folder);
    if (what == "border") return draw_soft_border(folder + "soft_border.png");
    for (int i = 0; i < land_classes_DIM; ++i)
        if (what == land_class_of(static_cast<land_class>(i)).name)
            return write_class(folder, static_cast<land_class>(i));
    throw std::runtime_error(what + ": no such land class");
}
}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && strcmp(argv[1], "list") == 0) {
        for (int i = 0; i < land_classes_DIM; ++i) puts(land_class_of(static_cast<land_class>(i)).name);
        return 0;
    }
    if (argc != 3) {
        const bool asked = argc == 2 && strcmp(argv[1], "--help") == 0;
        fputs(usage, asked ? stdout : stderr);
        return asked ? 0 : 1;
    }
    try {
        write(std::string(argv[1]) + "/", argv[2]);
    } catch (const std::exception& fault) {
        fprintf(stderr, "land_make: %s\n", fault.what());
        return 1;
    }
    return 0;
}
