// The pictures of asphalt and concrete.
#pragma once
#include <string>

#include "grounds.h"

// Into FOLDER/asphalt or FOLDER/concrete with its folder of numbers. Throws std::runtime_error.
void draw_hard_pictures(const std::string& folder, hard_surface kind);
