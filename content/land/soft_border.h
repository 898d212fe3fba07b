// The mask of a soft edge between two grounds.
#pragma once
#include <string>

// Grey: white where an overlay hides what lies under it. s runs from outside (0) to inside (1), t repeats.
void draw_soft_border(const std::string& path);
