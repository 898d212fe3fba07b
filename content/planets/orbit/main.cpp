// Draws the squares of the Earth that are seen from orbit, and the ocean between them.
#include <stdio.h>

#include <exception>

#include "data_file.h"
#include "orbit_tile.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        fputs("usage: orbit_make PHOTOGRAPH.jpg FOLDER\n", stderr);
        return 2;
    }
    try {
        const std::string folder = argv[2];
        const shores coast;
        const elevation heights(world_data_folder() + "elevation.z");
        globe_map photograph;
        photograph_earth(photograph, argv[1]);
        const colour_layers colours(photograph, land_parts(coast, {-90, -180, 180, 360, globe_dx, globe_dy}));
        int drawn = 0;
        for (int south = -90; south < 90; south += square_degrees)
            for (int west = -180; west < 180; west += square_degrees)
                drawn += draw_square({coast, heights, colours}, south, west, folder);
        draw_ocean(colours, folder + "/ocean.png");
        printf("%d squares\n", drawn);
    } catch (const std::exception& e) {
        fprintf(stderr, "orbit_make: %s\n", e.what());
        return 1;
    }
    return 0;
}
