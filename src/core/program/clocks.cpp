// The clocks.
#include "core/program/clocks.h"

clocks_struct clocks;
void reset_clocks() { clocks = {}; }
