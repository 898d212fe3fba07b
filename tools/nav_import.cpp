// nav_import: real navigation tables from the CSV files of OurAirports that a user has downloaded.
#include "nav_import.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "core/disk/paths.h"
#include "nav_check.h"
#include "nav_own.h"
#include "nav_write.h"

namespace fs = std::filesystem;

namespace {
enum exit_code : int { exit_good = 0, exit_bad_source = 1, exit_bad_usage = 2, exit_cannot_write = 3 };

const char* const usage =
    "nav_import DIR [--own FILE...] [--out INSTALL_FOLDER]\n"
    "nav_import --help\n"
    "\n"
    "Compiles runways.csv, navaids.csv and airport-frequencies.csv of the folder DIR, as OurAirports "
    "publishes\n"
    "them, into the Earth's tables of airports, radio aids, fixes and airways. With airports.csv beside "
    "them,\n"
    "airports have their names, kinds and elevations, and runways without ends lie on their airport.\n"
    "\n"
    "  --own FILE...          hand-made airports (TOML), which win over the imported ones; without it those\n"
    "                         of the install folder\n"
    "  --out INSTALL_FOLDER   where the simulator is installed; without it the folder of this program, the\n"
    "                         one above, or Orvelle beside that\n"
    "\n"
    "Tables that were there are kept as apt.dat.old1 and so on.\n"
    "Exit status: 0 good, 1 a source is missing or faulty, 2 wrong use, 3 the tables cannot be written.\n";

struct order {
    std::string folder;
    std::vector<std::string> own;
    bool own_given = false;
    fs::path install;
};

bool read_order(int argc, char** argv, order& o) {
    for (int n = 1; n < argc; ++n) {
        const std::string word = argv[n];
        if (word == "--own") {
            o.own_given = true;
            while (n + 1 < argc && argv[n + 1][0] != '-') o.own.push_back(argv[++n]);
        } else if (word == "--out" && n + 1 < argc) {
            o.install = argv[++n];
        } else if (word[0] != '-' && o.folder.empty()) {
            o.folder = word;
        } else {
            return false;
        }
    }
    return !o.folder.empty();
}

fs::path found_install() {
    const fs::path here = executable_folder();
    for (const fs::path& folder : {here, here / "..", here / ".." / "Orvelle"})
        if (fs::is_directory(folder / "Resources")) return folder.lexically_normal();
    return {};
}

// Shown from the third second on, on one line, which a step without a name clears.
void show_progress(const char* step, double part) {
    using clock = std::chrono::steady_clock;
    static const clock::time_point start = clock::now();
    static bool shown = false;
    if (!*step) {
        if (shown) fprintf(stderr, "\r%20s\r", "");
        return;
    }
    shown |= clock::now() - start > std::chrono::seconds(2);
    if (shown) fprintf(stderr, "\r%-12s %3.0f %%", step, 100 * part);
}

void print_sum(const import_job& job, const nav_world& world) {
    const import_counts& c = job.counts;
    printf("runways: %d rows; %d used at %d airports, %d of them rebuilt from middle, heading and length\n",
           c.rows, c.runways, c.airports, c.rebuilt);
    printf(
        "  left out: %d closed, %d without a place, %d no runways, %d named like another of their airport\n",
        c.closed, c.placeless, c.pseudo, c.named_twice);
    printf("  %d airports are hand-made and stay as they are\n", c.own);
    printf("radio aids: %d rows; %d parts no radio tunes, %d hand-made\n", c.aid_rows, c.aids_untunable,
           c.aids_own);
    printf("elevations guessed from neighbours: %d; refused by the check: %d\n", c.guessed_elevations,
           c.faulty);
    for (const std::string& fault : job.faults) printf("  %s\n", fault.c_str());
    if (!job.renamed.empty()) printf("identifiers that became shorter: %zu\n", job.renamed.size());
    for (const auto& [from, to] : job.renamed) printf("  %-10s %s\n", from.c_str(), to.c_str());
    printf("written: %zu airports, %zu radio aids, %zu fixes, %zu airway legs\n", world.airports.size(),
           world.aids.size(), world.fixes.size(), world.legs.size());
}

int complain(int code, const std::string& text) {
    fprintf(stderr, "nav_import: %s\n", text.c_str());
    return code;
}

std::vector<std::string> installed_own(const fs::path& tables) {
    std::vector<std::string> files;
    std::error_code none;
    for (const fs::directory_entry& entry : fs::directory_iterator(tables / "hand-made", none))
        if (entry.path().extension() == ".toml") files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}
}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && strcmp(argv[1], "--help") == 0) return fputs(usage, stdout), exit_good;
    order o;
    if (!read_order(argc, argv, o)) return fputs(usage, stderr), exit_bad_usage;
    if (o.install.empty()) o.install = found_install();
    if (o.install.empty() || !fs::is_directory(o.install))
        return complain(exit_bad_usage, "no install folder: name it with --out");
    if (!fs::is_directory(o.folder)) return complain(exit_bad_source, "no folder " + o.folder);
    const fs::path tables = o.install / "Resources" / "Earth nav data";
    if (!o.own_given) o.own = installed_own(tables);
    nav_world world;
    import_job job;
    job.folder = o.folder;
    job.progress = show_progress;
    show_progress("", 0);
    for (const std::string& file : o.own) read_own(file, world, job.faults);
    if (!job.faults.empty()) return complain(exit_bad_source, job.faults.front());
    std::string fault;
    const bool good = import_world(job, world, fault);
    show_progress("", 1);
    if (!good) return complain(exit_bad_source, fault);
    if (const std::vector<std::string> faults = check_world(world); !faults.empty())
        return complain(exit_bad_source, faults.front());
    std::vector<std::string> backups;
    const std::string origin =
        "Airports and radio aids of OurAirports (public domain), imported; fixes, airways "
        "and landing aids generated.";
    if (!write_nav_tables(nav_tables_text(world, origin), tables, &backups, &fault))
        return complain(exit_cannot_write, fault);
    print_sum(job, world);
    for (const std::string& backup : backups) printf("kept %s\n", backup.c_str());
    return exit_good;
}
