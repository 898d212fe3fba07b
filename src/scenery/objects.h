// Three-dimensional objects, loaded once and known by their index.
#pragma once
#include <string>

// Loads the object at a path relative to the install folder, or finds it among those loaded; -1 when it
// cannot be opened.
int build_obs(std::string hard_path, int build_DL);
