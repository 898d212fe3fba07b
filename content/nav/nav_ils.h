// Landing aids laid out from the runway that they serve.
#pragma once
#include <string>

#include "nav_world.h"

struct ils_plan {
    int end = 0;  // of the runway: lands there
    int frq = 0;  // 10 kHz
    std::string id;
    double slope = 3;  // degrees; 0 is a localizer without glide slope
    bool dme = true, outer = true, middle = true, inner = false;
};

// Adds the localizer 300 metres past the far end, the glide slope 120 metres beside the touchdown point 300
// metres behind the threshold, the DME with the localizer and the markers on the extended centre line.
void add_ils(nav_world& world, const nav_airport& airport, const nav_runway& runway, const ils_plan& ils);
