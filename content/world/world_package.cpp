// Files of a scenery package. Whatever goes wrong is thrown as a std::runtime_error.
#include "world_package.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "land_objects.h"
#include "soft_border.h"

namespace {
const char* stem(ground kind) {
    switch (kind) {
        case ground::grass:
            return "grass";
        case ground::scrub:
            return "scrub";
        case ground::rock:
            return "rock";
        case ground::sand:
            return "sand";
        case ground::mars:
            return "mars_soil";
    }
    return "";
}

void write_text(const std::string& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary);
    out << text;
    if (!out.flush()) throw std::runtime_error("cannot write " + path);
}

// Folders are made when they are needed, so that a package has none that is empty.
const std::string& made(const std::string& folder) {
    std::filesystem::create_directories(folder);
    return folder;
}
}  // namespace

world_package::world_package(const std::string& folder)
    : folder_(folder + (folder.empty() || folder.back() == '/' ? "" : "/")),
      textures_(folder_ + "custom terrain textures/"),
      objects_(folder_ + "custom objects/"),
      object_textures_(folder_ + "custom object textures/") {
    made(folder_.empty() ? "." : folder_);
}

std::string world_package::ground_name(ground kind) { return std::string(stem(kind)) + ".ter"; }

void world_package::add_ground(ground kind, int repeat_metres, bool with_border) {
    const std::string name = stem(kind), repeat = std::to_string(repeat_metres);
    draw_ground(kind, made(textures_) + name + ".png");
    if (with_border) draw_soft_border(textures_ + "soft_border.png");
    write_text(textures_ + ground_name(kind), "I\n800\nTERRAIN\n\nBASE_TEX " + name + ".png\n" +
                                                  (with_border ? "BORDER_TEX soft_border.png\n" : "") +
                                                  "PROJECTED " + repeat + " " + repeat + "\nNO_ALPHA\n");
}

// Other packages may use them too.
void world_package::add_land_objects() {
    write_land_objects(made(objects_), made(object_textures_));
    std::string exports = "I\n800\nLIBRARY\n\n";
    for (const std::string& name : land_object_names())
        exports += "EXPORT lib/countryside/" + name + ".obj custom objects/" + name + ".obj\n";
    write_text(folder_ + "library.txt", exports);
}

void world_package::add_woods() {
    write_text(
        made(objects_) + "woods.for",
        "I\n800\nFOREST\n\nTREE oak.obj 8 14 100\nDENSITY 1.0\nNOISE_CURVE 0.5\nX_SPACE 14\nY_SPACE 14\n");
}

void world_package::add_road() {
    draw_road(made(textures_) + "road.png");
    write_text(made(objects_) + "country_road.net",
               "I\n800\nROADS\n\nTEXTURE 2 road.png\n\nROAD_TYPE " + std::to_string(country_road) +
                   " 9.0 24.0 0 0.4 0.4 0.4\nSEGMENT 0 12000 0.0 0.4 0.0 1.0 0.4 1.0\n");
}

void world_package::add_tile(const tile_writer& tile, bool is_mars) {
    borders_.write(tile, folder_ + (is_mars ? "Mars nav data/" : "Earth nav data/"));
}
