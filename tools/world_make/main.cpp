// world_make: makes tiles of real land, and small worlds as scenery packages.
#include <math.h>
#include <signal.h>
#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include "../flightlab/options.h"
#include "core/disk/paths.h"
#include "earth_tile.h"
#include "mars_tile.h"
#include "world_make.h"

namespace {
const char* const usage =
    "world_make [--mars] LAT LON [TILES] [--out FOLDER]    tiles of the Earth, or of Mars, about a place\n"
    "world_make [--mars] --box SOUTH WEST NORTH EAST       tiles whose corners lie in a box, both ends "
    "included; it may cross the date line\n"
    "world_make --mars                                     the region round Melas\n"
    "world_make NAME FOLDER                                a small world as a scenery package\n"
    "\n"
    "LAT and LON lie in the tile, degrees; TILES is the side of a square of tiles about it, 1 by default, at "
    "most 20.\n"
    "Tiles go to \"Resources\" of the installation, where the simulator looks for them, or to FOLDER.\n"
    "Exit status: 0 good, 1 the data are missing or a file cannot be written, 2 wrong use.\n\n";

void list_worlds(FILE* to) {
    fputs(usage, to);
    for (const world_entry& world : all_worlds()) fprintf(to, "  %-8s%s\n", world.name, world.about);
}

std::string told(double value) {
    char text[32];
    snprintf(text, sizeof text, "%g", value);
    return text;
}

double number_in(const std::string& text, double lowest, double highest) {
    double value = 0.0;
    if (!read_number(text, &value) || value < lowest || value > highest)
        throw wrong_use("\"" + text.substr(0, 40) + "\" is no number from " + told(lowest) + " to " +
                        told(highest));
    return value;
}

// The corner of the tile that a place lies in. The pole belongs to the last row, the date line to the eastern
// side.
int corner_of_lat(const std::string& text) {
    return std::min(static_cast<int>(floor(number_in(text, -90.0, 90.0))), 89);
}
int corner_of_lon(const std::string& text) {
    const int lon = static_cast<int>(floor(number_in(text, -180.0, 180.0)));
    return lon == 180 ? -180 : lon;
}

struct order {
    std::string folder;
    std::vector<std::string> words;
    bool mars = false, box = false;
};

order read_order(int argc, char** argv) {
    order o;
    o.folder = executable_folder() + "../Orvelle/Resources";
    for (int n = 1; n < argc; ++n) {
        if (strcmp(argv[n], "--out") == 0) {
            if (++n == argc) throw wrong_use("--out needs a folder");
            o.folder = argv[n];
        } else if (strcmp(argv[n], "--mars") == 0) {
            o.mars = true;
        } else if (strcmp(argv[n], "--box") == 0) {
            o.box = true;
        } else if (strncmp(argv[n], "--", 2) == 0) {
            throw wrong_use(std::string("there is no option ") + argv[n]);
        } else {
            o.words.push_back(argv[n]);
        }
    }
    return o;
}

// The region round the landing ground in the canyon.
constexpr int mars_box[4] = {-14, -79, -7, -68};

std::vector<tile_place> tiles_of(const order& o) {
    if (o.mars && o.words.empty()) return box_of_tiles(mars_box[0], mars_box[1], mars_box[2], mars_box[3]);
    const int lat = corner_of_lat(o.words[0]), lon = corner_of_lon(o.words[1]);
    if (o.box) {
        const int north = corner_of_lat(o.words[2]);
        if (north < lat) throw wrong_use("NORTH lies south of SOUTH");
        const int east = corner_of_lon(o.words[3]);
        if (east < lon && lon - east < 180) throw wrong_use("EAST lies west of WEST");
        return box_of_tiles(lat, lon, north, east);
    }
    constexpr double most_side = 20.0;
    const double side = o.words.size() > 2 ? number_in(o.words[2], 1.0, most_side) : 1.0;
    if (side != floor(side)) throw wrong_use("TILES is a whole number");
    return block_of_tiles(lat, lon, static_cast<int>(side));
}

void make_land(const order& o) {
    const bool whole_region = o.mars && !o.box && o.words.empty();
    if (!whole_region && (o.box ? o.words.size() != 4 : o.words.size() < 2 || o.words.size() > 3))
        throw wrong_use(o.box ? "expected --box SOUTH WEST NORTH EAST" : "expected LAT LON [TILES]");
    const std::vector<tile_place> tiles = tiles_of(o);
    size_t done = 0;
    const tile_progress progress = {[&](const tile_place& t) {
                                        printf("%zu of %zu  %+03d%+04d ", ++done, tiles.size(), t.lat, t.lon);
                                        fflush(stdout);
                                    },
                                    [](const made_tile& t) {
                                        printf(" %.1f s  %.1f MB\n", t.seconds,
                                               static_cast<double>(t.bytes) / 1.0e6);
                                        fflush(stdout);
                                    }};
    const std::string tables = executable_folder() + "../Orvelle/Resources/";
    try {
        if (o.mars)
            make_mars_tiles(tiles, o.folder, tables + "Mars nav data/apt.dat", progress);
        else
            make_earth_tiles(tiles, o.folder, tables + "Earth nav data/apt.dat", progress);
    } catch (...) {
        if (done > 0) printf("\n");  // the line of the tile that was begun
        fflush(stdout);
        throw;
    }
}

int run(int argc, char** argv) {
    if (argc == 1 || (argc == 2 && strcmp(argv[1], "--help") == 0)) return list_worlds(stdout), exit_good;
    const order o = read_order(argc, argv);
    double number = 0.0;
    if (o.box || o.mars || (!o.words.empty() && read_number(o.words[0], &number))) {
        make_land(o);
        return exit_good;
    }
    if (o.words.size() != 2) throw wrong_use("expected LAT LON [TILES], or NAME FOLDER");
    if (o.words[1].empty()) throw wrong_use("the folder has no name");
    make_world(o.words[0], o.words[1]);
    return exit_good;
}
}  // namespace

int main(int argc, char** argv) {
    signal(SIGXFSZ, SIG_IGN);  // a file that may not grow is told as a full disk is
    return run_program("world_make", run, argc, argv);
}
