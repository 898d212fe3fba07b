// Draws the fixed pictures of the interface into a folder.
#include <stdio.h>

#include <exception>

#include "pictures.h"

namespace {
void draw_fixed_pictures(const std::string& folder) {
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
}

void draw_korean_glyphs(const std::string& menu_file, const std::string& target) {
    canvas glyphs(korean_size, korean_size);
    draw_korean(glyphs, menu_file);
    glyphs.save(target, true);
}
}  // namespace

int main(int argc, char** argv) {
    const bool korean = argc == 4 && std::string(argv[1]) == "korean";
    if (argc != 2 && !korean) {
        fprintf(stderr,
                "usage: art_make FOLDER\n       art_make korean MENU_FILE TARGET\nDraws interface.png, blank.png and "
                "intro.png into FOLDER, or the glyphs of a Korean menu file into TARGET.\n");
        return 2;
    }
    try {
        if (korean)
            draw_korean_glyphs(argv[2], argv[3]);
        else
            draw_fixed_pictures(std::string(argv[1]) + "/");
    } catch (const std::exception& e) {
        fprintf(stderr, "art_make: %s\n", e.what());
        return 1;
    }
    return 0;
}
