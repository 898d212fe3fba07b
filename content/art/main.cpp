// Draws the fixed pictures of the interface into a folder.
#include <stdio.h>

#include <exception>

#include "pictures.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr,
                "usage: art_make FOLDER\nDraws interface.png, blank.png and intro.png into FOLDER.\n");
        return 2;
    }
    const std::string folder = std::string(argv[1]) + "/";
    try {
        canvas interface(interface_size, interface_size);
        draw_interface(interface);
        interface.save(folder + "interface.png", true);

        constexpr int blank_size = 16;
        canvas blank(blank_size, blank_size);
        set_colour(blank.pen(), hex(0xffffff));
        cairo_paint(blank.pen());
        blank.save(folder + "blank.png", true);

        canvas intro(1024, 768);
        draw_intro(intro);
        intro.save(folder + "intro.png", false);

    } catch (const std::exception& e) {
        fprintf(stderr, "art_make: %s\n", e.what());
        return 1;
    }
    return 0;
}
