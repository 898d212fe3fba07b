// Objects that the code places itself: beacons, buoys, windsocks, signs.
// Role: looked up in the library once while the renderer is set up; ren.M_ holds their indexes.
#pragma once
#include <string>
#include <vector>

struct fixed_object {
    std::string path;  // of the library
    int* index;        // in vec_mod, -1 for none
};

std::vector<fixed_object> list_fixed_objects();

// One that is missing or broken is told, and is not drawn.
void load_fixed_objects();
