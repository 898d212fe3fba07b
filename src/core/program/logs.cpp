// The four text outputs.
#include "core/program/logs.h"

std::ofstream deverr, cyc, dat, xer;

static void open_log(std::ofstream& log, const char* name) {
    log.open(name);
    log << std::fixed;
}

void open_logs() {
    open_log(deverr, "DevError.out");
    open_log(cyc, "Tarvane.out");
    open_log(dat, "Data.out");
    open_log(xer, "Error.out");
}

void close_logs() {
    deverr.close();
    cyc.close();
    dat.close();
    xer.close();
}
