// sky_view: pictures of the flying view at given places, hours and weathers.
#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "../flightlab/options.h"
#include "../simulator/simulator.h"
#include "app/init_sim.h"
#include "core/math/axes.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "draw/images/screenshot.h"
#include "scene/aurora.h"
#include "scene/dome.h"
#include "scene/world.h"
#include "scenery/nav/planet_nav.h"
#include "weather/atmosphere.h"

namespace {
const char* const usage =
    "sky_view FILE FOLDER [NAME]...    pictures of sky and land, one for each line of a file\n"
    "\n"
    "A line is a name and settings as key=value; # begins a remark. Keys and their presets:\n"
    "  planet=earth       or mars\n"
    "  lat=34.0 lon=-117.5 height=1000      place, degrees and metres above sea level\n"
    "  heading=0 pitch=0 roll=0             of the view, degrees, true\n"
    "  day=80 hour=12     days since January 1st; hours of the sun at the place\n"
    "  vis=20             reported visibility, nautical miles\n"
    "  clouds=0,2000,2500 kind of the lower layer (5 is overcast), base and top, metres\n"
    "  fov=60             field of view, degrees\n"
    "  aurora=0           1: northern lights\n"
    "  night_vision=0     1: through night-vision goggles\n"
    "Writes FOLDER/name.png of all lines, or of those named. Needs a display; it may be a virtual one.\n"
    "Exit status: 0 good, 1 a picture cannot be written, 2 wrong use.\n";

struct scene_struct {
    std::string name;
    int planet = 0, cloud = 0, aurora = 0, night_vision = 0, day = 80;
    double lat = 34.0, lon = -117.5, height = 1000.0, heading = 0.0, pitch = 0.0, roll = 0.0, hour = 12.0,
           vis = 20.0;
    double base = 2000.0, top = 2500.0, fov = 60.0;
};

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

void set_key(scene_struct& scene, const std::string& key, const std::string& value) {
    if (key == "planet") return void(scene.planet = value == "mars");
    if (key == "clouds") return set_clouds(scene, value);
    const double number = number_of(key, value);
    const struct {
        const char* key;
        double* to;
    } doubles[] = {{"lat", &scene.lat},         {"lon", &scene.lon},     {"height", &scene.height},
                   {"heading", &scene.heading}, {"pitch", &scene.pitch}, {"roll", &scene.roll},
                   {"hour", &scene.hour},       {"vis", &scene.vis},     {"fov", &scene.fov}};
    for (const auto& row : doubles)
        if (key == row.key) return void(*row.to = number);
    const struct {
        const char* key;
        int* to;
    } ints[] = {{"day", &scene.day}, {"aurora", &scene.aurora}, {"night_vision", &scene.night_vision}};
    for (const auto& row : ints)
        if (key == row.key) return void(*row.to = static_cast<int>(number));
    throw wrong_use("no such key: " + key);
}

std::vector<scene_struct> read_scenes(const std::string& path) {
    std::ifstream file(path);
    if (!file) throw wrong_use(path + ": cannot be read");
    std::vector<scene_struct> scenes;
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line.substr(0, line.find('#')));
        scene_struct scene;
        if (!(words >> scene.name)) continue;
        for (std::string word; words >> word;) {
            const size_t equals = word.find('=');
            if (equals == std::string::npos) throw wrong_use("expected key=value: " + word);
            set_key(scene, word.substr(0, equals), word.substr(equals + 1));
        }
        scenes.push_back(scene);
    }
    return scenes;
}

void go_to_planet(int planet) {
    if (env.planet == planet) return;
    set_planet_specs(planet);
    set_planet_weather(planet);
    read_planet_nav();
}

void set_hour(const scene_struct& scene) {
    mnw.locl_date_jan1 = scene.day;
    mnw.zulu_time = static_cast<float>(dobwrap((scene.hour - scene.lon / 15.0) * 3600.0, 0.0, 86400.0));
    mnw.locl_time = locl_from_zulu();
}

void set_weather(const scene_struct& scene) {
    atm.vis_rep = static_cast<float>(scene.vis) * con.nmtomtrs;
    atm.vis_frmult = 1.0f;
    atm.prim_layer = 0;
    atm.cld_type[0] = scene.cloud, atm.cld_type[1] = cld_none;
    atm.base_h_MSL[0] = static_cast<float>(scene.base), atm.tops_h_MSL[0] = static_cast<float>(scene.top);
    atm.plot_aurora = scene.aurora;
}

void place(const scene_struct& scene) {
    stg.cus_lat = static_cast<float>(scene.lat), stg.cus_lon = static_cast<float>(scene.lon);
    stg.cus_alt = static_cast<float>(scene.height), stg.cus_psi = static_cast<float>(scene.heading),
    stg.cus_v = 50.0f;
    init_flt_0(start_custom, 0);
    flt_struct& f = flt[0];
    f.psi = static_cast<float>(scene.heading), f.the = static_cast<float>(scene.pitch),
    f.phi = static_cast<float>(scene.roll);
    init_quaternion(f.psi, f.the, f.phi, f.q);
    cache_attitude(0);
}

void draw(const scene_struct& scene, const std::string& folder) {
    go_to_planet(scene.planet);
    place(scene);
    set_hour(scene);
    set_weather(scene);
    ren.FOV = static_cast<float>(scene.fov);
    mnw.top_win = win_fly;  // with a window open the aircraft would be seen
    ren.view_type_act = view_fwd_bare;
    ren.night_vision_on = scene.night_vision;
    stg.draw_planet = 1;
    constexpr int settled = 400;  // steps until the northern lights have taken a shape of their own
    mnw.prd_FM = 0.05f;
    if (scene.aurora)
        for (int i = 0; i < settled; ++i) aurora_step();
    for (int pass = 0; pass < 3; ++pass) {  // glare follows by a frame
        scene_state_step();
        WORLD_scene_per_dome();
    }
    const std::string path = folder + "/" + scene.name + ".png";
    if (!save_screenshot(path)) throw std::runtime_error(path + ": cannot be written");
}

int run(int argc, char** argv) {
    if (argc == 2 && strcmp(argv[1], "--help") == 0) return fputs(usage, stdout), exit_good;
    if (argc < 3) throw wrong_use("expected FILE and FOLDER");
    const std::vector<scene_struct> scenes = read_scenes(argv[1]);
    const std::vector<std::string> names(argv + 3, argv + argc);
    constexpr int finest_textures = 5;
    start_simulator("sky_view");
    mnw.tex_res = finest_textures;
    for (const scene_struct& scene : scenes)
        if (names.empty() || std::find(names.begin(), names.end(), scene.name) != names.end())
            draw(scene, argv[2]);
    MACIBM_finishup(0);
    return exit_good;
}
}  // namespace

int main(int argc, char** argv) { return run_program("sky_view", run, argc, argv); }
