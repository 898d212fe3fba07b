// flightlab: an aircraft measured and flown without a window.
#include <cstdio>
#include <cstring>

#include "commands.h"
#include "options.h"

namespace {
const char* const usage =
    "flightlab report FILE    dimensions, balance and glide of an aircraft\n"
    "flightlab tunnel FILE    coefficients over angles of attack and sideslip\n"
    "flightlab bench FILE     engines on a stand: a cold start, and curves over height and speed\n"
    "flightlab trim FILE      controls and attitude of steady flights, helicopters too\n"
    "flightlab fly [FILE]     flights with a script of the controls, in parallel if wanted\n"
    "flightlab stall FILE     a stall with the engines idle, and the way out\n"
    "flightlab spin FILE      a spin, and the way out\n"
    "flightlab hash [FILE]    the state after a number of frames as one number\n"
    "flightlab COMMAND --help\n"
    "\n"
    "FILE is an .acf or the .toml it is made from.\n"
    "Exit status: 0 good, 1 fault in the aircraft or its flight, 2 wrong use.\n";

struct command_row {
    const char* name;
    int (*run)(int argc, char** argv);
};
constexpr command_row commands[] = {
    {"report", report_command}, {"tunnel", tunnel_command}, {"bench", bench_command}, {"trim", trim_command},
    {"fly", fly_command},       {"stall", stall_command},   {"spin", spin_command},   {"hash", hash_command},
};
}  // namespace

int main(int argc, char** argv) {
    const char* first = argc > 1 ? argv[1] : "";
    if (!strcmp(first, "--help")) return fputs(usage, stdout), exit_good;
    for (const command_row& command : commands) {
        if (strcmp(first, command.name) != 0) continue;
        try {
            return command.run(argc - 1, argv + 1);
        } catch (const wrong_use& mistake) {
            fprintf(stderr, "flightlab %s: %s\nTry: flightlab %s --help\n", first, mistake.what(), first);
            return exit_wrong_use;
        } catch (const flight_fault& fault) {
            fprintf(stderr, "flightlab: %s\n", fault.what());
            return exit_fault;
        }
    }
    fputs(usage, stderr);
    return exit_wrong_use;
}
