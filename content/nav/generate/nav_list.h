// The list of the world's large and medium airports: places and names, without runways.
#pragma once
#include <string>
#include <vector>

#include "nav_world.h"

struct listed_airport {
    std::string id, country, name;  // name as written, UTF-8
    int size = 1;                   // 2 large, 1 medium
    bool served = false;            // by airlines
    nav_place at;
    double ele = 0;  // feet
};

// Reads the compressed list, in order of the identifiers. False and the fault when it cannot.
bool read_list(const std::string& path, std::vector<listed_airport>& list, std::string& fault);
