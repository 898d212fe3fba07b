// Loading of an aircraft for the lab.
#include "start.h"

#include <fenv.h>
#include <signal.h>
#include <stdlib.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <vector>

#include "aircraft/deflect.h"
#include "aircraft/file/acf_toml_read.h"
#include "aircraft/io_acf.h"
#include "app/lab/headless.h"
#include "app/lab/lab.h"
#include "app/lab/lab_load.h"
#include "core/disk/paths.h"
#include "core/program/alert.h"
#include "core/program/jobs.h"
#include "core/program/logs.h"
#include "core/records/records.h"

namespace fs = std::filesystem;

const option_row install_option = {"install", "DIR",
                                   "folder that holds Airfoils/ (Orvelle/ beside the tools)"};

namespace {
// Holds what loading needs and nobody wants to keep. A fatal alert ends the process without unwinding,
// so it is global and removed by hand.
fs::path scratch;

void make_scratch() {
    std::string name = (fs::temp_directory_path() / "flightlab-XXXXXX").string();
    if (!mkdtemp(name.data())) throw flight_fault("cannot make a folder for temporary files");
    scratch = name;
}
void remove_scratch() {
    std::error_code ignored;
    if (!scratch.empty()) fs::remove_all(scratch, ignored);
    scratch.clear();
}

// What stands in the scratch folder for what the user named, the longer first.
std::vector<std::pair<std::string, std::string>> scratch_names;

void show_on_stderr(int, const alert_lines& text, int) {
    fflush(stdout);
    for (std::string line : text.line) {
        for (const auto& [scratched, named] : scratch_names)
            for (size_t at = 0; (at = line.find(scratched, at)) != std::string::npos; at += named.size())
                line.replace(at, scratched.size(), named);
        if (!line.empty()) fprintf(stderr, "flightlab: %s\n", line.c_str());
    }
}

void end_with_fault(const alert_lines&) {
    remove_scratch();
    _exit(1);
}

std::string with_slash(std::string folder) {
    if (folder.empty() || folder.back() != '/') folder += '/';
    return folder;
}

std::string install_folder(const options& from) {
    const std::string beside = executable_folder() + "../Orvelle/";
    std::string folder = with_slash(from.text("install", fs::is_directory(beside) ? beside : "./"));
    if (!fs::is_directory(folder + "Airfoils"))
        throw flight_fault(folder +
                           " has no folder Airfoils: build the content, or name the folder with --install");
    return folder;
}

// Compiles a designer's text. Its own airfoils stand beside it, so they are put beside the result.
std::string compile(const fs::path& toml) {
    constexpr int source_slot = 1;  // not the user's slot, in which a fault would end the program
    clear_records();
    THREAD_Init();
    init_con();
    std::string error;
    if (!acf_design_from_toml(toml.string(), source_slot, &error)) throw flight_fault(error);
    const fs::path foils = toml.parent_path() / "airfoils";
    if (fs::is_directory(foils)) fs::create_directory_symlink(foils, scratch / "airfoils");
    const std::string out = (scratch / toml.stem()).string() + ".acf";
    scratch_names = {{out, toml.string()}, {scratch.string(), toml.parent_path().string()}};
    snprintf(veh[source_slot].path, sizeof veh[source_slot].path, "%s", out.c_str());
    if (!IO_acf(1, source_slot, 1)) throw flight_fault("cannot write " + out);
    return out;
}

// The file in a form that the loader finds from anywhere.
std::string loadable(const std::string& file) {
    if (file.empty()) return "";
    if (!fs::is_regular_file(file)) throw flight_fault(file + ": no such file");
    const fs::path path = fs::absolute(file);
    if (path.string().size() > path_len_max - 20) throw flight_fault(file + ": the path is too long");
    return path.extension() == ".toml" ? compile(path) : path.string();
}

// What the reader had to remark on the file.
std::string remarks() {
    deverr.flush();
    std::ostringstream all;
    all << std::ifstream(scratch / "DevError.out").rdbuf();
    return all.str();
}

void load(const std::string& install, const std::string& file) {
    const std::string acf = loadable(file);
    deverr.open(scratch / "DevError.out");
    headless_start(install, acf, log_to_nothing);
    if (!acf.empty() && acf != veh[0].path)
        throw flight_fault(file + ": cannot be read as an aircraft\n" + remarks());
    deverr.close();
}

void float_fault(int) {
    constexpr char text[] = "flightlab: invalid floating-point operation, division by zero or overflow\n";
    if (write(STDERR_FILENO, text, sizeof text - 1) < 0) _exit(3);
    _exit(1);
}
}  // namespace

void start_lab(const options& from, const std::string& file) {
    const std::string install = install_folder(from);
    alert_seam.show = show_on_stderr;
    alert_seam.end = end_with_fault;
    make_scratch();
    try {
        load(install, file);
    } catch (...) {
        remove_scratch();
        throw;
    }
    remove_scratch();
}

void trap_float_faults() {
    signal(SIGFPE, float_fault);
    feclearexcept(FE_ALL_EXCEPT);
    feenableexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW);
}

void start_tunnel(const options& from, const std::string& file) {
    start_lab(from, file);
    trap_float_faults();
    lab_still_air();
    set_load(from);
}

std::vector<option_row> with_load(std::vector<option_row> rows) {
    const std::vector<option_row> load = {
        {"mass", "LB", "mass in all, by the payload (as the simulator loads it)"},
        {"fuel", "RATIO", "fuel, of full tanks (half)"},
        {"cg", "FT", "centre of gravity, aft of the file's (0)"},
        {"fail-engine", "N", "engine N, from 1 on, does not run"},
    };
    rows.insert(rows.end() - 1, load.begin(), load.end());
    return rows;
}

// Negative: leaned.
static double mixture_of(const options& from) {
    return from.text("mixture", "lean") == "lean" ? -1.0 : from.number("mixture", 1.0, 0.0, 1.0);
}

void set_load(const options& from) {
    if (from.has("mixture")) mixture_of(from);  // nonsense is told before anything is measured
    lab_load load;
    if (from.has("mass")) load.mass = static_cast<float>(from.number("mass", 0.0, 2.3, 1e7)) * con.lbstokgs;
    load.fuel = static_cast<float>(from.number("fuel", -1.0, 0.0, 1.0));
    load.cg_aft = static_cast<float>(from.number("cg", 0.0, -100.0, 100.0)) * con.fttomtrs;
    load.failed_engine = from.whole("fail-engine", 0, 1, engnDIM) - 1;
    if (load.failed_engine >= veh[0].num_engines)
        throw wrong_use("--fail-engine: there are " + std::to_string(veh[0].num_engines) + " engines");
    if (!lab_set_load(load)) {
        const float least = lab_mass() - flt[0].m_fixed;
        throw wrong_use("--mass: without payload it weighs " +
                        std::to_string(std::lround(least * con.kgstolbs)) + " lb already; less fuel?");
    }
    if (load.cg_aft < veh[0].cgZ_fwd || load.cg_aft > veh[0].cgZ_aft)
        fprintf(stderr, "flightlab: that centre of gravity lies outside its limits\n");
}

bool set_mixture(const options& from) {
    const double ratio = mixture_of(from);
    if (ratio < 0.0) return false;
    lab_set_mixture(static_cast<float>(ratio));
    return true;
}

void set_flaps_and_brakes(float flaps, float brakes) {
    constexpr int steps = 200;  // of a second: longer than any mechanism takes
    flt[0].handle_rat_req = flaps;
    flt[0].sbrk_rqst = brakes;
    const float before = mnw.prd_FM;
    mnw.prd_FM = 0.25f;
    for (int i = 0; i < steps; ++i) update_def_angles(0);
    mnw.prd_FM = before;
}
