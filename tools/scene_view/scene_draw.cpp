// Places, hours and weathers put before the eye.
#include "scene_draw.h"

#include <stdio.h>

#include <algorithm>
#include <filesystem>
#include <vector>

#include "../flightlab/options.h"
#include "app/init_sim.h"
#include "core/disk/paths.h"
#include "core/math/axes.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "scene/aurora.h"
#include "scene/dome.h"
#include "scene/world.h"
#include "scenery/nav/planet_nav.h"
#include "ui/views/zoom.h"
#include "weather/atmosphere.h"

namespace {
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

void take_aircraft(const std::string& part) {
    namespace fs = std::filesystem;
    static std::string now;
    if (part.empty() || part == now) return;
    std::vector<std::string> paths;
    for (const auto& entry : fs::recursive_directory_iterator(set_dir_chars(acf_path)))
        if (entry.path().extension() == ".acf" && entry.path().string().find(part) != std::string::npos)
            paths.push_back(entry.path().string());
    if (paths.empty()) throw wrong_use("no such aircraft: " + part);
    std::sort(paths.begin(), paths.end());
    snprintf(veh[0].path, sizeof veh[0].path, "%s", paths[0].c_str());
    if (!load_plane(0)) throw wrong_use(paths[0] + ": cannot be flown");
    now = part;
}

void place(const scene_struct& scene) {
    take_aircraft(scene.aircraft);
    stg.cus_lat = static_cast<float>(scene.lat), stg.cus_lon = static_cast<float>(scene.lon);
    stg.cus_alt = static_cast<float>(scene.height), stg.cus_psi = static_cast<float>(scene.heading),
    stg.cus_v = static_cast<float>(scene.speed);
    if (scene.start == "runway") return init_flt_0(start_airport, place_runway);
    if (scene.start == "final") return init_flt_0(start_airport, place_final_3);
    init_flt_0(start_custom, 0);
    flt_struct& f = flt[0];
    f.psi = static_cast<float>(scene.heading), f.the = static_cast<float>(scene.pitch),
    f.phi = static_cast<float>(scene.roll);
    init_quaternion(f.psi, f.the, f.phi, f.q);
    cache_attitude(0);
}

// Inside without a cockpit, or around the aircraft.
void set_eye(const scene_struct& scene) {
    constexpr double rad = M_PI / 180.0;
    mnw.top_win = win_fly;  // with a window open the aircraft would be seen
    ren.FOV = static_cast<float>(scene.fov);
    ren.view_type_act = scene.orbits ? view_circle : view_fwd_bare;
    ren.night_vision_on = scene.night_vision;
    if (!scene.orbits) return;
    zoom.poke_psi_the_rad(static_cast<float>(scene.orbit_psi * rad), static_cast<float>(scene.orbit_the * rad));
    zoom.Pcirc_dist = static_cast<float>(scene.orbit_dist);
}

// After the weather of the flight, which would work out its own.
void set_surroundings(const scene_struct& scene) {
    atm.rain_rat_acf = static_cast<float>(scene.rain), atm.snow_rat_acf = static_cast<float>(scene.snow);
    flt_struct& f = flt[0];
    f.window_ice = static_cast<float>(scene.ice);
    f.lan_lite = f.nav_lite = f.bea_lite = f.tax_lite = scene.lamps;
}
}  // namespace

void draw_scene(const scene_struct& scene) {
    constexpr int settled = 400;  // steps until northern lights and an eye outside have found their place
    go_to_planet(scene.planet);
    place(scene);
    set_hour(scene);
    set_weather(scene);
    set_eye(scene);
    set_surroundings(scene);
    stg.draw_planet = 1;
    mnw.prd_FM = 0.05f;
    if (scene.aurora)
        for (int i = 0; i < settled; ++i) aurora_step();
    if (scene.orbits)
        for (int i = 0; i < settled; ++i) zoom.update_per_frame();
    mnw.first_miss_cycle = 1;  // all airports are looked for at once
    for (int pass = 0; pass < 3; ++pass) {  // glare follows by a frame
        scene_state_step();
        WORLD_scene_per_dome();
    }
    mnw.first_miss_cycle = 0;
}
