// One number for a whole flight, to compare compilers and changes that must not alter it.
#include <cstdio>

#include "app/lab/headless.h"
#include "commands.h"
#include "start.h"

static const char* const usage =
    "flightlab hash [FILE] [options]\n"
    "Runs the frame with nobody at the controls and prints a hash of the state in hexadecimal.\n"
    "Two programs that fly alike, bit for bit, print the same.\n";

int hash_command(int argc, char** argv) {
    const options from(usage, {{"passes", "N", "frames of 1/64 s (1000)"}, install_option}, argc, argv);
    if (from.wants_help()) return from.print_help(), 0;
    const int passes = from.whole("passes", 1000, 0, 100000000);
    start_lab(from, from.file());
    for (int i = 0; i < passes; ++i) headless_frame();
    printf("%016llx\n", flight_state_hash());
    return 0;
}
