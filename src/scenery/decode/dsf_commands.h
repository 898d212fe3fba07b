// The command stream of a tile.
#pragma once
#include "scenery/decode/dsf.h"
#include "scenery/decode/dsf_pools.h"

// Counts what a tile makes against its limits.
struct dsf_count {
    long made[dsf_made_DIM] = {};
    // False, and told, when that is too many.
    bool add(dsf_made kind, size_t count);
};

// Runs the commands to their end. Returns a dsf_error and prints what is wrong.
int run_dsf_commands(const XAtomPackedData& commands, const dsf_pools& pools, const DSFCallbacks_t& callbacks,
                     dsf_count* count, void* ref);
