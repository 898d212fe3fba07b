// Systems and failures of the user's aircraft.
#include "flight/systems.h"

#include "core/records/records.h"

void fail_it(int slot) { flt[0].fail_stat[slot] = fail_active; }
