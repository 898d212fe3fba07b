// tile_view: loads one tile of a scenery package as the simulator does and saves pictures of it.
#include <math.h>
#include <stdio.h>
#include <string.h>

#include <stdexcept>
#include <vector>

#include "../flightlab/options.h"
#include "../simulator/simulator.h"
#include "app/init_sim.h"
#include "core/records/mnw.h"
#include "core/records/stg.h"
#include "draw/images/screenshot.h"
#include "scenery/draw/object_draw.h"
#include "tile_picture.h"

namespace {
const char* const usage =
    "tile_view PACKAGE LAT LON FILE.png [EYE]...    pictures of a tile of a scenery package\n"
    "\n"
    "LAT and LON are the tile's south-west corner in whole degrees. An EYE is five numbers: latitude, "
    "longitude,\n"
    "height above the ground in metres, true heading, pitch (up is positive). Without one it looks north "
    "over the\n"
    "tile's middle. Pictures of several eyes are FILE_1.png and on. Needs a display; it may be a virtual "
    "one.\n"
    "Exit status: 0 good, 1 the tile is not there or not sound, or a picture cannot be written, 2 wrong "
    "use.\n";

struct order {
    std::string package, file;
    int lat = 0, lon = 0;
    std::vector<eye_place> eyes;
};

double number_in(const char* text, double lowest, double highest) {
    double value = 0.0;
    if (!read_number(text, &value) || value < lowest || value > highest) {
        char words[160];
        snprintf(words, sizeof words, "\"%.40s\" is no number from %g to %g", text, lowest, highest);
        throw wrong_use(words);
    }
    return value;
}

order read_order(int argc, char** argv) {
    constexpr int numbers_of_eye = 5;
    if (argc < 5 || (argc - 5) % numbers_of_eye != 0)
        throw wrong_use("expected PACKAGE LAT LON FILE.png and five numbers for each eye");
    order o;
    o.package = argv[1];
    o.lat = static_cast<int>(floor(number_in(argv[2], -90.0, 89.0)));
    o.lon = static_cast<int>(floor(number_in(argv[3], -180.0, 179.0)));
    o.file = argv[4];
    for (int i = 5; i < argc; i += numbers_of_eye)
        o.eyes.push_back({number_in(argv[i], -90.0, 90.0), number_in(argv[i + 1], -180.0, 180.0),
                          number_in(argv[i + 2], 0.0, 30000.0), number_in(argv[i + 3], -360.0, 360.0),
                          number_in(argv[i + 4], -90.0, 90.0)});
    if (o.eyes.empty()) o.eyes.push_back({o.lat + 0.3, o.lon + 0.5, 1500.0, 0.0, -12.0});
    return o;
}

void start_finest() {
    start_simulator("tile_view", true);
    constexpr int all_objects = 6;
    stg.draw_objs_05 = all_objects;
    mnw.puff05 = 0;
    mnw.totl_time = 0.0f;
    object_calls.lites_on = [](int) { return 0; };
}

std::string picture_name(const order& o, size_t eye) {
    if (o.eyes.size() == 1) return o.file;
    const size_t dot = o.file.rfind('.'), slash = o.file.rfind('/');
    const bool has_ending = dot != std::string::npos && (slash == std::string::npos || dot > slash);
    const size_t end = has_ending ? dot : o.file.size();
    return o.file.substr(0, end) + "_" + std::to_string(eye + 1) + o.file.substr(end);
}

void save_pictures(const order& o, int planet) {
    const package_seat seat(o.package);
    if (!load_tile(planet, o.lat, o.lon, o.eyes.front()))
        throw std::runtime_error("the tile is not sound: Error.out tells why");
    for (size_t eye = 0; eye < o.eyes.size(); ++eye) {
        draw_tile(o.eyes[eye]);
        const std::string name = picture_name(o, eye);
        if (!save_screenshot(name)) throw std::runtime_error(name + ": cannot be written");
    }
}

int run(int argc, char** argv) {
    if (argc == 2 && strcmp(argv[1], "--help") == 0) return fputs(usage, stdout), exit_good;
    const order o = read_order(argc, argv);
    const int planet = planet_of_tile(o.package, o.lat, o.lon);
    if (planet < 0)
        throw std::runtime_error(o.package + ": has no tile " + std::to_string(o.lat) + ", " +
                                 std::to_string(o.lon));
    start_finest();
    try {
        save_pictures(o, planet);
    } catch (...) {
        MACIBM_finishup(0);
        throw;
    }
    MACIBM_finishup(0);
    return exit_good;
}
}  // namespace

int main(int argc, char** argv) { return run_program("tile_view", run, argc, argv); }
