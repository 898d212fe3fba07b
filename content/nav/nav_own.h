// Hand-made airports and radio aids, from the text that authors write.
#pragma once
#include <string>
#include <vector>

#include "nav_world.h"

// Appends what a file holds; its aids come after the landing aids of its runways. Faults are "FILE:LINE:
// text".
void read_own(const std::string& path, nav_world& world, std::vector<std::string>& faults);
