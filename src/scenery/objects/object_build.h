// Objects as they are loaded: file, textures, and display lists where something draws.
#pragma once
#include <string>

// Loads the object at a path relative to the install folder, or finds it among those loaded; -1 when it
// cannot be opened, and, told, when it is broken. build_DL has no effect.
int build_obs(const std::string& hard_path, int build_DL);

// The same for a path of the library; -1 when that does not have it.
int build_obs_lib(std::string path);

// Forgets all models; for tests.
void clear_objects();
