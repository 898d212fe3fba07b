// nav_make: compiles the navigation tables of a planet from hand-made airports.
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "nav_check.h"
#include "nav_own.h"
#include "nav_write.h"

namespace {
enum exit_code : int { exit_good = 0, exit_bad_source = 1, exit_bad_usage = 2 };

const char* const usage =
    "nav_make earth|mars FOLDER FILE.toml...   compile the tables of a planet into a folder\n"
    "nav_make --help                           show this text\n"
    "\n"
    "Exit status: 0 good, 1 fault in a source or its tables, 2 wrong use.\n";

int print_all(const std::vector<std::string>& faults) {
    for (const std::string& fault : faults) fprintf(stderr, "%s\n", fault.c_str());
    return exit_bad_source;
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
    for (int n = 3; n < argc; ++n) read_own(argv[n], world, faults);
    if (!faults.empty()) return print_all(faults);
    sort_aids(world);
    faults = check_world(world);
    if (!faults.empty()) return print_all(faults);
    std::vector<std::string> backups;
    std::string fault;
    if (!write_nav_tables(nav_tables_text(world, built_origin), argv[2], &backups, &fault))
        return print_all({fault});
    for (const std::string& backup : backups) printf("kept %s\n", backup.c_str());
    return exit_good;
}
