// world_make: writes a small world as a scenery package.
#include <stdio.h>
#include <string.h>

#include <exception>

#include "world_make.h"

namespace {
void list_worlds(FILE* to) {
    fprintf(to, "world_make NAME FOLDER    writes a world as a scenery package into a folder\n\n");
    for (const world_entry& world : all_worlds()) fprintf(to, "  %-8s%s\n", world.name, world.about);
}
}  // namespace

int main(int argc, char** argv) {
    if (argc == 1 || (argc == 2 && strcmp(argv[1], "--help") == 0)) {
        list_worlds(stdout);
        return 0;
    }
    if (argc != 3) {
        list_worlds(stderr);
        return 1;
    }
    try {
        make_world(argv[1], argv[2]);
    } catch (const std::exception& fault) {
        fprintf(stderr, "world_make: %s\n", fault.what());
        return 1;
    }
    return 0;
}
