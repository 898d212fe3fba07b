#include "flying.h"

#include <math.h>

#include <filesystem>
#include <map>

#include "aircraft/derive/derive.h"
#include "app/lab/headless.h"
#include "core/math/axes.h"
#include "core/program/seams.h"
#include "platform/window.h"
#include "weather/atmosphere.h"

namespace test {

// Every aircraft of the content stands in a folder of its own: name, then path.
static std::map<std::string, std::string> all_aircraft() {
    namespace fs = std::filesystem;
    std::map<std::string, std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(std::string(INSTALL_FOLDER) + "Aircraft"))
        if (entry.path().extension() == ".acf") found[entry.path().stem().string()] = entry.path().string();
    return found;
}

std::vector<std::string> aircraft_names() {
    std::vector<std::string> names;
    for (const auto& [name, path] : all_aircraft())
        if (name != "United-Air") names.push_back(name);  // a copy of another
    return names;
}

void fly_aircraft(const std::string& name) {
    record_alerts();
    headless_start(INSTALL_FOLDER, name.empty() ? "" : all_aircraft().at(name));
    record_alerts();
    lab_still_air();
}

void fly_glider(const std::string& name) {
    fly_aircraft(name);
    veh[0].num_engines = veh[0].num_thrustpoints = 0;
}

void fly_bare_mass() {
    fly_aircraft("Lark 15");
    clear_acf(0);
    snprintf(veh[0].name, sizeof veh[0].name, "bare mass");
    veh[0].m_empty = 1000.0f;
    veh[0].Jxx_unitmass = 1.0f;
    veh[0].Jyy_unitmass = 4.0f;
    veh[0].Jzz_unitmass = 9.0f;
    veh[0].Vne_kts = 9999.0f;
    veh[0].ail1_vmax = 9999.0f;
    const double x = flt[0].dob_x, y = flt[0].dob_y, z = flt[0].dob_z;
    clear_flt(0);
    flt[0].dob_x = x;
    flt[0].dob_y = y;
    flt[0].dob_z = z;
    lab_place({.speed = 0.0f, .altitude = 200000.0f});
}

void run_frames(float seconds, float dt) {
    const int frames = static_cast<int>(lroundf(seconds / dt));
    for (int i = 0; i < frames; ++i) lab_frame(dt);
}

double specific_energy() {
    const flt_struct& f = flt[0];
    const double R = con.planet_rad, y = R + f.dob_y;
    const double r = sqrt(f.dob_x * f.dob_x + y * y + f.dob_z * f.dob_z);
    const double kinetic = 0.5 * (static_cast<double>(f.vx) * f.vx + static_cast<double>(f.vy) * f.vy +
                                  static_cast<double>(f.vz) * f.vz);
    return kinetic - con.planet_mu / r;
}

}  // namespace test
