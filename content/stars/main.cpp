// Writes the stars of a planet's sky.
#include <stdio.h>
#include <string.h>

#include <exception>
#include <fstream>
#include <stdexcept>

#include "star_table.h"

int main(int argc, char** argv) {
    const bool mars = argc == 4 && !strcmp(argv[1], "mars");
    if (argc != 4 || (!mars && strcmp(argv[1], "earth") != 0)) {
        fputs("usage: stars_make earth|mars STARS.csv.gz TARGET\n", stderr);
        return 2;
    }
    try {
        std::vector<star_row> stars = catalogue_stars(argv[2]);
        if (mars) turn_to_mars(&stars);
        std::ofstream out(argv[3], std::ios::binary);
        out << star_table_text(stars);
        if (!out.flush()) throw std::runtime_error(std::string(argv[3]) + ": cannot be written");
    } catch (const std::exception& e) {
        fprintf(stderr, "stars_make: %s\n", e.what());
        return 1;
    }
    return 0;
}
