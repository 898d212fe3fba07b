// Aircraft files to the air: a compiled aircraft with fields overwritten is read, completed, derived, started
// in the air and flown for three half steps. It ends in a finite state or in one of the system's own texts.
#include <cmath>
#include <fstream>
#include <iterator>

#include "acf_mutation.h"
#include "aircraft/derive.h"
#include "app/frame.h"
#include "app/headless.h"
#include "app/lab.h"
#include "core/paths.h"
#include "core/upward.h"
#include "flight/half_step.h"
#include "flight/stepper.h"
#include "memory_file.h"
#include "support.h"
#include "weather/weather_step.h"

namespace {
using fuzzing::must;

// Texts with which the system may end a flight, by the start of their first line.
const char* const fixed_texts[] = {
    "duh-oh!",
    "neg cd in post con-def lookup!",
    "Neg cd at end of all calcs!",
    "Finite wing reduction fail!",
    "I have found a part with no frontal area!",
    "An airfoil file could not be found!",
    "Out of bounds e-search!",
};

bool is_fixed_text(const alert_lines& text) {
    if (text.line[3].rfind("Fix this problem in Hullwright.", 0) == 0) return true;
    for (const char* known : fixed_texts)
        if (text.line[0].rfind(known, 0) == 0) return true;
    return false;
}

std::string read_all(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

const std::string& sound_file(int which) {
    static const std::string folder = std::string(INSTALL_FOLDER) + "Aircraft/General Aviation/";
    static const std::string files[2] = {read_all(folder + "Lark 15 Sailplane/Lark 15.acf"),
                                         read_all(folder + "Wren 160 Trainer/Wren 160.acf")};
    must(files[0].size() == 1409905 && files[1].size() == 1409905);
    return files[which];
}

void start_system() {
    static bool started = false;
    if (started) return;
    started = true;
    fuzzing::start();
    headless_start(INSTALL_FOLDER, "", log_to_nothing);
    alert_seam.finish = nullptr;
    lab_still_air();
}

void fly_three_half_steps() {
    init_flt_0(start_airport, place_runway);
    local_air_step();
    mnw.prd_FM = 0.02f;
    mnw.YK_ptch = 0.3f;
    mnw.YK_roll = -0.5f;
    update_with_fullsim1(0);
    for (int i = 0; i < 3; ++i) set_vel_flight(i & 1);
    update_with_fullsim2(0);
    const flt_struct& f = flt[0];
    for (const float v : {f.vx, f.vy, f.vz, f.P, f.Q, f.R, f.psi, f.the, f.phi, f.m_total})
        must(std::isfinite(v));
    must(std::isfinite(f.dob_x) && std::isfinite(f.dob_y) && std::isfinite(f.dob_z));
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    start_system();
    static const fuzzing::memory_file file("fly.acf");
    fuzzing::input in(data, size);
    const std::string bytes = fuzzing::file_bytes(sound_file(static_cast<int>(in.take(1) & 1)), in);
    file.write(bytes.data(), bytes.size());
    snprintf(veh[0].path, sizeof veh[0].path, "%s", file.path().c_str());
    try {
        if (IO_acf(0, 0, 0) && derive_model(0)) fly_three_half_steps();
    } catch (const fuzzing::fatal& end) {
        if (!is_fixed_text(end.text)) fprintf(stderr, "ended with: %s\n", end.text.line[0].c_str());
        must(is_fixed_text(end.text));
    }
    return 0;
}
