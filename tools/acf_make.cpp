// acf_make: compiles an aircraft from its text.
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>

#include "aircraft/derive/derive.h"
#include "aircraft/file/acf_file.h"
#include "aircraft/file/acf_layout.h"
#include "aircraft/file/acf_toml_read.h"
#include "aircraft/io_acf.h"
#include "app/lab/headless.h"
#include "app/lab/lab.h"
#include "core/disk/paths.h"
#include "core/program/alert.h"
#include "core/program/jobs.h"
#include "core/records/con.h"

namespace fs = std::filesystem;

namespace {
constexpr int source_slot = 1;  // not the user's slot, in which a faulty design would end the program
constexpr int loaded_slot = 2;
enum exit_code : int { exit_good = 0, exit_bad_aircraft = 1, exit_bad_usage = 2 };

const char* const usage =
    "acf_make [--quiet] [--install DIR] IN.toml OUT.acf    compile an aircraft\n"
    "acf_make --fields                                     list every section and field with its meaning\n"
    "acf_make --help                                       show this text\n"
    "\n"
    "Only fields that are not zero need to be named; units are feet, pounds, knots and degrees.\n"
    "The left wings and the pylons of further engines are copies unless they have a table of their own.\n"
    "A body may list stations = [{ z = 0, y = 0, w = 1, h = 1.2, n = 2 }, ...] in place of geo_xyz.\n"
    "The result is loaded again, range-checked and checked as a design; then it is loaded whole with its\n"
    "airfoils, and areas, balance and stall speed are shown; --quiet shows faults alone. The airfoils are\n"
    "those below DIR; without --install below the folder in whose Aircraft the result lies, else in "
    "Orvelle/\n"
    "beside the tools. Only a result without fault takes the place of OUT.acf.\n"
    "Exit status: 0 good, 1 fault in the aircraft, 2 wrong use.\n";

void list_record(const char* heading, const veh_field_list& fields) {
    if (heading) printf("\n%s\n", heading);
    for (int r = 0; r < fields.count; ++r) {
        const veh_field_struct& row = fields.rows[r];
        if (!acf_is_designers(row)) continue;
        std::string dims;
        for (const int dim : row.dims)
            if (dim) dims += "[" + std::to_string(dim) + "]";
        const char* type = row.type == 'f' ? "number" : row.type == 'i' ? "whole" : "text";
        printf("  %-28s %-6s %s\n", (row.name + dims).c_str(), type, row.doc);
        const std::string kinds = acf_kind_names(row.name);
        if (!kinds.empty()) printf("  %-28s %-6s one of %s\n", "", "", kinds.c_str());
    }
}

// One section of the block as a list of its own.
veh_field_list run_of(const acf_section_struct& run) {
    veh_field_list list = veh_block_list();
    const veh_field_struct* end = list.rows + list.count;
    while (list.rows < end && strcmp(list.rows->name, run.first) != 0) ++list.rows;
    list.count = 1;
    while (list.rows + list.count < end && strcmp(list.rows[list.count - 1].name, run.last) != 0)
        ++list.count;
    return list;
}

int list_fields() {
    std::string section;
    for (const acf_section_struct& run : acf_sections()) {
        const std::string heading = "[" + std::string(run.section) + "]";
        list_record(section == run.section ? nullptr : heading.c_str(), run_of(run));
        section = run.section;
    }
    list_record("[[engine]] thrust point, with the fields of its hub and blade below", veh_engn_list());
    list_record(
        "[surface.NAME], [[engine]] wing-like part, with the place fields below; foil, foil_root and "
        "foil_tip "
        "set several airfoil names at once",
        veh_wing_list());
    list_record("[body.NAME], [surface.NAME], [[engine]] place and body", veh_part_list());
    list_record("[[gear]]", veh_gear_list());
    list_record("[[door]] and [[speedbrake]]", veh_door_list());
    list_record("[[weapon]]", veh_watt_list());
    printf("\n[[instrument]]\n  type, x, y, size (1)\n\nNames of parts\n ");
    for (int en = part_wing_first; en < partDIM; ++en) printf(" %s", acf_part_name(en).c_str());
    printf("\n");
    return exit_good;
}

bool set_path(int p, const std::string& path) {
    if (path.size() >= strDIM) return false;
    memcpy(veh[p].path, path.c_str(), path.size() + 1);
    return true;
}

bool same_bytes(int p, int q) {
    const auto written = acf_arrays(p), read = acf_arrays(q);
    for (size_t i = 0; i < written.size(); ++i)
        if (memcmp(written[i].first, read[i].first,
                   static_cast<size_t>(written[i].count) * written[i].size) != 0)
            return false;
    return true;
}

// The result is made beside its place and takes it only when all is well. Global: a fatal alert ends the
// program without unwinding.
struct result_struct {
    std::string out;                     // as the user named it
    std::string making;                  // where it is made, in the same folder, whose airfoils it finds
    std::string user_name, making_name;  // both without the folder
};
result_struct result;

std::string name_of(const std::string& path) {
    size_t at = path.size();
    while (at > 0 && !is_a_dir_char(path[at - 1])) --at;
    return path.substr(at);
}

void choose_places(const std::string& out) {
    result.out = out;
    result.user_name = name_of(out);
    result.making_name = ".making " + result.user_name;
    result.making = out.substr(0, out.size() - result.user_name.size()) + result.making_name;
}

void give_up_result() { remove(set_dir_chars(result.making).c_str()); }

// Alerts speak of the file that the user named.
void show_on_stderr(int, const alert_lines& text, int) {
    for (std::string line : text.line) {
        for (size_t at = 0; (at = line.find(result.making_name, at)) != std::string::npos;)
            line.replace(at, result.making_name.size(), result.user_name);
        if (!line.empty()) fprintf(stderr, "acf_make: %s\n", line.c_str());
    }
}

// The file as any reader finds it: the same record, and a design that can fly.
bool loads_well(const std::string& path) {
    set_path(loaded_slot, path);
    if (!acf_read_record(loaded_slot)) {
        fprintf(stderr, "%s: cannot be read back\n", result.out.c_str());
        return false;
    }
    memset(veh[source_slot].path, 0, sizeof veh[source_slot].path);
    if (!same_bytes(source_slot, loaded_slot)) {
        fprintf(stderr, "%s: reads back otherwise than it was written\n", result.out.c_str());
        return false;
    }
    set_path(loaded_slot, path);
    return IO_acf(0, loaded_slot, 1);  // a faulty design has been shown by now
}

void remind(int p) {
    for (int en = 0; en < wingDIM; ++en)
        if (veh[p].wing[en].varinc)
            printf("%s: incidence varies; inc2 is half the wanted travel, since it acts twice\n",
                   acf_part_name(en).c_str());
}

// The install folder with a closing "/": the one named, else the one in whose Aircraft the file lies, else
// the one that is built beside the tools, else none.
std::string install_folder(const std::string& named, const std::string& acf) {
    fs::path folder = named;
    if (named.empty())
        for (fs::path up = fs::absolute(acf).parent_path(); up.has_relative_path(); up = up.parent_path())
            if (up.filename() == "Aircraft") folder = up.parent_path();
    const std::string beside = executable_folder() + "../Orvelle";
    if (folder.empty() && fs::is_directory(beside)) folder = beside;
    return folder.empty() ? "" : fs::absolute(folder).string() + "/";
}

// The file as the user's own aircraft. A fault ends the program with its text.
void load_whole(const std::string& install, const std::string& acf) {
    alert_seam.end = [](const alert_lines&) {
        give_up_result();
        _exit(exit_bad_aircraft);
    };
    headless_start(install, acf, log_to_nothing);
}

int keep_result() {
    std::error_code fault;
    fs::rename(set_dir_chars(result.making), set_dir_chars(result.out), fault);
    if (!fault) return exit_good;
    fprintf(stderr, "%s: %s\n", result.out.c_str(), fault.message().c_str());
    give_up_result();
    return exit_bad_aircraft;
}

void summarise() {
    lab_still_air();
    const aircraft_summary_struct size = aircraft_summary(0);
    printf("wing area       %8.2f m2  %8.1f sq ft\n", size.S_ref, size.S_ref * con.smtrtosf);
    printf("mean chord      %8.3f m   %8.2f ft\n", size.mean_chord, size.mean_chord * con.mtrstoft);
    printf("neutral point   %8.3f m   %8.2f ft aft of the centre of gravity\n", size.z_neutral,
           size.z_neutral * con.mtrstoft);
    printf("static margin   %8.1f %%   of the mean chord, wings and tail\n", 100.0f * size.static_margin);
    constexpr float sea_level = 100.0f;  // m; clear of ground effect
    const float stall = lab_performance(sea_level).stall_speed;
    printf("stall speed     %8.1f m/s %8.1f kt at %.0f kg\n", stall, stall * con.msctokts, lab_mass());
}

struct order {
    std::string in, out, install;
    bool quiet = false;
};

int make(const order& job) {
    const std::string &in = job.in, &out = job.out;
    std::string error;
    if (!acf_design_from_toml(in, source_slot, &error)) {
        fputs(error.c_str(), stderr);
        return exit_bad_aircraft;
    }
    remind(source_slot);
    choose_places(out);
    alert_seam.show = show_on_stderr;
    set_path(source_slot, result.making);
    if (!IO_acf(1, source_slot, 1)) return exit_bad_aircraft;
    if (!loads_well(result.making)) {
        give_up_result();
        return exit_bad_aircraft;
    }
    const std::string install = install_folder(job.install, out);
    if (install.empty() || !fs::is_directory(install + "Airfoils")) {
        if (!job.quiet)
            printf("No folder of airfoils is known (--install): areas and balance are left out.\n");
        return keep_result();
    }
    load_whole(install, fs::absolute(set_dir_chars(result.making)).string());
    if (!job.quiet) summarise();
    return keep_result();
}

int wrong_use() {
    fputs(usage, stderr);
    return exit_bad_usage;
}

bool is_acf_name(const std::string& out) {
    return out.size() >= 5 && out.compare(out.size() - 4, 4, ".acf") == 0 && out.size() <= path_len_max - 20;
}
}  // namespace

int main(int argc, char** argv) {
    order job;
    int next = 1;
    for (; next < argc && strncmp(argv[next], "--", 2) == 0; ++next) {
        const std::string option = argv[next];
        if (option == "--help") return fputs(usage, stdout), exit_good;
        if (option == "--fields") return list_fields();
        if (option == "--quiet")
            job.quiet = true;
        else if (option == "--install" && next + 1 < argc)
            job.install = argv[++next];
        else
            return wrong_use();
    }
    if (argc - next != 2 || !is_acf_name(argv[next + 1])) return wrong_use();
    job.in = argv[next];
    job.out = argv[next + 1];
    THREAD_Init();
    init_con();
    return make(job);
}
