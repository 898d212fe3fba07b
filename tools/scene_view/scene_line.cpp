// Parsing of scene lines.
#include "scene_line.h"

#include <stdio.h>

#include <sstream>

#include "../flightlab/options.h"

const char* const scene_keys_help =
    "A line is a name and settings as key=value; # begins a remark. Keys and their presets:\n"
    "  planet=earth       or mars\n"
    "  lat=34.0 lon=-117.5 height=1000      place, degrees and metres above sea level\n"
    "  start=             runway or final of the default airport, instead of a place\n"
    "  heading=0 pitch=0 roll=0             of the aircraft, degrees, true\n"
    "  aircraft=          part of the path of one in the install folder\n"
    "  speed=50           true, m/s\n"
    "  orbit=             the eye outside: PSI,THE,DISTANCE around the aircraft, degrees and metres\n"
    "  day=80 hour=12     days since January 1st; hours of the sun at the place\n"
    "  vis=20             reported visibility, nautical miles\n"
    "  clouds=0,2000,2500 kind of the lower layer (5 is overcast), base and top, metres\n"
    "  rain=0 snow=0 ice=0  at the aircraft, ice on the windshield, 0 to 1\n"
    "  fov=60             field of view, degrees\n"
    "  aurora=0           1: northern lights\n"
    "  night_vision=0     1: through night-vision goggles\n"
    "  lamps=0            1: landing light and others on\n";

namespace {
double number_of(const std::string& key, const std::string& text) {
    double value = 0.0;
    if (!read_number(text.c_str(), &value)) throw wrong_use(key + ": \"" + text + "\" is no number");
    return value;
}

void set_clouds(scene_struct& scene, const std::string& text) {
    int kind = 0;
    double base = 0.0, top = 0.0;
    if (sscanf(text.c_str(), "%d,%lf,%lf", &kind, &base, &top) != 3) throw wrong_use("clouds=KIND,BASE,TOP");
    scene.cloud = kind, scene.base = base, scene.top = top;
}

void set_orbit(scene_struct& scene, const std::string& text) {
    if (sscanf(text.c_str(), "%lf,%lf,%lf", &scene.orbit_psi, &scene.orbit_the, &scene.orbit_dist) != 3)
        throw wrong_use("orbit=PSI,THE,DISTANCE");
    scene.orbits = 1;
}

void set_key(scene_struct& scene, const std::string& key, const std::string& value) {
    if (key == "planet") return void(scene.planet = value == "mars");
    if (key == "clouds") return set_clouds(scene, value);
    if (key == "orbit") return set_orbit(scene, value);
    if (key == "start") return void(scene.start = value);
    if (key == "aircraft") return void(scene.aircraft = value);
    const double number = number_of(key, value);
    const struct {
        const char* key;
        double* to;
    } doubles[] = {{"lat", &scene.lat},         {"lon", &scene.lon},     {"height", &scene.height},
                   {"heading", &scene.heading}, {"pitch", &scene.pitch}, {"roll", &scene.roll},
                   {"hour", &scene.hour},       {"vis", &scene.vis},     {"fov", &scene.fov},
                   {"rain", &scene.rain},       {"snow", &scene.snow},   {"ice", &scene.ice},
                   {"speed", &scene.speed}};
    for (const auto& row : doubles)
        if (key == row.key) return void(*row.to = number);
    const struct {
        const char* key;
        int* to;
    } ints[] = {{"day", &scene.day}, {"aurora", &scene.aurora}, {"night_vision", &scene.night_vision}, {"lamps", &scene.lamps}};
    for (const auto& row : ints)
        if (key == row.key) return void(*row.to = static_cast<int>(number));
    throw wrong_use("no such key: " + key);
}
}  // namespace

scene_struct read_scene(const std::string& line) {
    std::istringstream words(line.substr(0, line.find('#')));
    scene_struct scene;
    if (!(words >> scene.name)) return scene;
    for (std::string word; words >> word;) {
        const size_t equals = word.find('=');
        if (equals == std::string::npos) throw wrong_use("expected key=value: " + word);
        set_key(scene, word.substr(0, equals), word.substr(equals + 1));
    }
    return scene;
}
