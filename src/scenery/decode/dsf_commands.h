// The command stream of a tile.
#pragma once
#include "scenery/decode/dsf.h"
#include "scenery/decode/dsf_pools.h"

// Runs the commands to their end. Returns a dsf_error and prints what is wrong.
int run_dsf_commands(const XAtomPackedData& commands, const dsf_pools& pools, const DSFCallbacks_t& callbacks,
                     void* ref);
