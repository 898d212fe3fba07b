// Computes the sky colour images and light tables.
#include <stdio.h>

#include <exception>

#include "pictures.h"

int main(int argc, char** argv) {
    const std::string verb = argc > 1 ? argv[1] : "";
    const bool sheet = argc == 3 && verb == "--sheet", views = argc == 3 && verb == "--views";
    if (!sheet && !views && (argc != 2 || verb[0] == '-')) {
        fputs(
            "usage: sky_make FOLDER          the images below FOLDER/Earth and FOLDER/Mars\n"
            "       sky_make --sheet FILE    all sets over the day as one PNG\n"
            "       sky_make --views FOLDER  each set as the sky all round, a PNG each\n",
            stderr);
        return 2;
    }
    try {
        const std::vector<sky_set> sets = make_sets();
        if (sheet)
            save_sheet(sets, argv[2]);
        else
            for (const sky_set& set : sets)
                if (views)
                    save_views(set, std::string(argv[2]) + "/" + set.name + ".png");
                else
                    save_set(set, argv[1]);
    } catch (const std::exception& e) {
        fprintf(stderr, "sky_make: %s\n", e.what());
        return 1;
    }
    return 0;
}
