// Makes the package of default objects: FOLDER/library.txt and what it exports.
#include <stdio.h>

#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "objects.h"

namespace {
const char* const navaids[] = {"NDB_1", "NDB_2", "NDB_3", "VOR", "ILS", "glideslope", "Marker1", "Marker2"};
const char* const samples[] = {"chimney", "picture_house", "panel_desk", "landing_deck"};

void write_library(const std::string& path) {
    std::ofstream out(path, std::ios::binary);
    out << "I\n800\nLIBRARY\n\n";
    for (const std::string name : navaids)
        out << "EXPORT lib/airport/NAVAIDS/" << name << ".obj navaids/" << name << ".obj\n";
    for (const std::string& name : airport_object_names())
        out << "EXPORT lib/airport/" << name << ".obj " << name << ".obj\n";
    for (const std::string name : samples)
        out << "EXPORT lib/samples/" << name << ".obj samples/" << name << ".obj\n";
    if (!out.flush()) throw std::runtime_error("cannot write " + path);
}
}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "%s FOLDER    writes the package of default objects\n", argv[0]);
        return 2;
    }
    try {
        const std::string folder = std::string(argv[1]) + "/";
        const std::string textures = folder + "custom object textures/";
        for (const std::string& sub : {folder + "navaids/", folder + "samples/", textures})
            std::filesystem::create_directories(sub);
        draw_pictures(textures);
        draw_sign_pictures(textures);
        write_navaids(folder + "navaids/");
        write_airport_objects(folder);
        write_samples(folder + "samples/");
        write_library(folder + "library.txt");
    } catch (const std::exception& fault) {
        fprintf(stderr, "%s\n", fault.what());
        return 1;
    }
    return 0;
}
