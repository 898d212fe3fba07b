// Radio aids by rule for a world that lacks them.
#pragma once
#include <string>
#include <utility>
#include <vector>

#include "nav_list.h"
#include "nav_world.h"

// VORs with distance measuring about 60 nautical miles apart, NDBs at the towns between, and landing aids at
// cities and at part of the towns that airlines serve, beside the aids and airports that the world has.
void plant_aids(nav_world& world, const std::vector<listed_airport>& list);

// Landing aids alone: for an end of a runway of each airport named, by index in the world's airports.
struct ils_wish {
    size_t airport, runway;
    int end;
};
void plant_ils(nav_world& world, const std::vector<ils_wish>& wishes);
