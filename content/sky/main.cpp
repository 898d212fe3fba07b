// Draws the bodies of the sky.
#include <stdio.h>

#include <exception>
#include <string>

#include "sky_bodies.h"

int main(int argc, char** argv) {
    const std::string what = argc == 3 ? argv[1] : "", to = argc == 3 ? argv[2] : "";
    try {
        if (what == "moons")
            draw_moons(to);
        else if (what == "lights")
            draw_lights(to);
        else if (what == "sun_glow")
            draw_sun_glow(to);
        else if (what == "auroras")
            draw_auroras(to);
        else {
            fputs(
                "usage: sky_bodies_make moons|auroras FOLDER\n       sky_bodies_make lights|sun_glow "
                "TARGET\n",
                stderr);
            return 2;
        }
    } catch (const std::exception& e) {
        fprintf(stderr, "sky_bodies_make: %s\n", e.what());
        return 1;
    }
    return 0;
}
