#include "flying.h"

#include <math.h>

#include "aircraft/derive.h"
#include "app/frame.h"
#include "app/headless.h"
#include "core/axes.h"
#include "core/seams.h"
#include "platform/window.h"
#include "weather/atmosphere.h"

namespace test {

static std::string path_of(const std::string& name) {
    if (name.empty()) return "";
    const std::string folder = name == "Lark 15" ? "Lark 15 Sailplane" : "Wren 160 Trainer";
    return std::string(INSTALL_FOLDER) + "Aircraft/General Aviation/" + folder + "/" + name + ".acf";
}

std::vector<std::string> aircraft_names() { return {"Lark 15", "Wren 160"}; }

void fly_aircraft(const std::string& name) {
    record_alerts();
    headless_start(INSTALL_FOLDER, path_of(name));
    record_alerts();
    lab_still_air();
}

void fly_bare_mass() {
    fly_aircraft("Lark 15");
    const char* name = "bare mass";
    clear_acf(0);
    snprintf(veh[0].name, sizeof veh[0].name, "%s", name);
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
    lab_flight at;
    at.altitude = 200000.0f;
    at.speed = 0.0f;
    lab_place(at);
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
