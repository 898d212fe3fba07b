#include "support.h"

#include <fenv.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "core/math/random.h"
#include "core/program/jobs.h"
#include "core/program/seams.h"
#include "core/records/ren.h"
#include "draw/gl/colours.h"
#include "scenery/draw/scenery_gl.h"
#include "scenery/ground/region.h"
#include "scenery/ground/tile.h"

namespace test {

std::vector<shown_alert> alerts;

void record_alerts() {
    alerts.clear();
    alert_seam.show = [](int, const alert_lines& text, int type) { alerts.push_back({text, type}); };
    alert_seam.finish = nullptr;
    alert_seam.end = [](const alert_lines& text) { throw fatal(text); };
}

void fresh() {
    record_alerts();
    THREAD_Init();
    clear_records();
    init_con();
    ren.current_alpha = 1.0f;
    colours_init();
    scenery_draw = scenery_draw_gl;
    seams_headless();
    rand_seed(1);
    init_rand_rat();
    // Earth; spelled out, so that the tests of the core need no weather
    con.planet_mu = 3.986012e14f;
    con.planet_rad = 6378145.0f;
    con.planet_deg_mtrs = 111120.0f;
    con.planet_mu_air = 1.7894e-05f;
    con.planet_rho_water = 1000.0f;
    con.sl_T_cel = 15.0f;
    con.sl_P_pas = 101325.0f;
    con.sl_r_met = 1.225f;
    env.lat_sou = 33.0f;
    env.lon_wes = -119.0f;
    find_region_extents();
    reset_region();
    region_steps = region_of_nothing;
    g_done = 0;
}

alert_lines expect_fatal(const std::function<void()>& call) {
    try {
        call();
    } catch (const fatal& f) {
        return f.lines;
    }
    ADD_FAILURE() << "no fatal alert";
    return {};
}

fp_traps::fp_traps() : before_(fegetexcept()) {
    feclearexcept(FE_ALL_EXCEPT);
    feenableexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW);
}
fp_traps::~fp_traps() {
    fedisableexcept(FE_ALL_EXCEPT);
    feclearexcept(FE_ALL_EXCEPT);
    feenableexcept(before_);
}

temp_folder::temp_folder() {
    std::string name = std::filesystem::temp_directory_path() / "tarvane-test-XXXXXX";
    if (!mkdtemp(name.data())) throw std::runtime_error("cannot make the folder " + name);
    path_ = name + "/";
}
temp_folder::~temp_folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}
std::string temp_folder::write(const std::string& name, const std::string& bytes) const {
    const std::string full = path_ + name;
    std::filesystem::create_directories(std::filesystem::path(full).parent_path());
    std::ofstream(full, std::ios::binary) << bytes;
    return full;
}

std::string read_file(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

bool comes(const std::function<bool()>& so, double patience) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(patience);
    while (!so()) {
        if (std::chrono::steady_clock::now() > end) return false;
        usleep(100);
    }
    return true;
}

run_result run(const std::string& command) {
    FILE* p = popen(("{ " + command + "; } 2>&1").c_str(), "r");
    run_result result{-1, ""};
    char part[512];
    while (p && fgets(part, sizeof part, p)) result.output += part;
    const int status = p ? pclose(p) : -1;
    if (WIFEXITED(status)) result.status = WEXITSTATUS(status);
    return result;
}

}  // namespace test
