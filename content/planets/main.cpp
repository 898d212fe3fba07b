// Draws the planets of the orbital view, each as two halves.
#include <stdio.h>
#include <string.h>

#include <exception>

#include "globe_map.h"

int main(int argc, char** argv) {
    const bool earth = argc == 4 && !strcmp(argv[1], "earth"), mars = argc == 3 && !strcmp(argv[1], "mars");
    if (!earth && !mars) {
        fputs("usage: planet_make earth PHOTOGRAPH.jpg FOLDER\n       planet_make mars FOLDER\n", stderr);
        return 2;
    }
    try {
        globe_map map;
        if (earth)
            photograph_earth(map, argv[2]);
        else
            draw_mars(map);
        save_halves(map, argv[argc - 1], argv[1]);
    } catch (const std::exception& e) {
        fprintf(stderr, "planet_make: %s\n", e.what());
        return 1;
    }
    return 0;
}
