// nav_make: compiles the navigation tables of a planet from hand-made airports and, for the rest of the
// world, a list of places.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "nav_airways.h"
#include "nav_check.h"
#include "nav_generate.h"
#include "nav_own.h"
#include "nav_plant.h"
#include "nav_write.h"

namespace {
enum exit_code : int { exit_good = 0, exit_bad_source = 1, exit_bad_usage = 2 };

const char* const usage =
    "nav_make earth|mars FOLDER FILE...   compile the tables of a planet into a folder\n"
    "nav_make --help                      show this text\n"
    "\n"
    "A FILE.toml holds hand-made airports and radio aids; a FILE.csv.gz lists further airports, which get\n"
    "runways and radio aids by rule. Fixes and airways follow from the radio aids.\n"
    "Exit status: 0 good, 1 fault in a source or its tables, 2 wrong use.\n";

int print_all(const std::vector<std::string>& faults) {
    for (const std::string& fault : faults) fprintf(stderr, "%s\n", fault.c_str());
    return exit_bad_source;
}

// Aids on Mars stand a continent apart.
constexpr airway_rules mars_rules = {900, 4000, 150, 300, 600, 8, 90, 100};

void read_source(const std::string& path, nav_world& world, std::vector<listed_airport>& list,
                 std::vector<std::string>& faults) {
    if (!path.ends_with(".csv.gz")) return read_own(path, world, faults);
    std::string fault;
    if (!read_list(path, list, fault)) faults.push_back(fault);
}
}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && strcmp(argv[1], "--help") == 0) return fputs(usage, stdout), exit_good;
    const bool earth = argc > 1 && strcmp(argv[1], "earth") == 0,
               mars = argc > 1 && strcmp(argv[1], "mars") == 0;
    if (argc < 4 || !(earth || mars)) return fputs(usage, stderr), exit_bad_usage;
    nav_world world;
    world.globe = earth ? earth_globe : mars_globe;
    std::vector<std::string> faults;
    std::vector<listed_airport> list;
    for (int n = 3; n < argc; ++n) read_source(argv[n], world, list, faults);
    if (!faults.empty()) return print_all(faults);
    generate_airports(world, list);
    plant_aids(world, list);
    std::sort(world.airports.begin(), world.airports.end(),
              [](const nav_airport& a, const nav_airport& b) { return a.id < b.id; });
    sort_aids(world);
    add_airways(world, earth ? airway_rules{} : mars_rules);
    faults = check_world(world);
    if (!faults.empty()) return print_all(faults);
    std::vector<std::string> backups;
    std::string fault;
    if (!write_nav_tables(nav_tables_text(world, built_origin), argv[2], &backups, &fault))
        return print_all({fault});
    for (const std::string& backup : backups) printf("kept %s\n", backup.c_str());
    return exit_good;
}
