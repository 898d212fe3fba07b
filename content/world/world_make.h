// Small worlds: scenery packages that show and test one thing each.
#pragma once
#include <string>
#include <vector>

class world_package;

struct world_entry {
    const char* name;
    const char* about;  // one line
    void (*make)(world_package*);
};
const std::vector<world_entry>& all_worlds();

// Writes the world into a folder, which is made when it is not there; what stands there already stays. An
// unknown name and a fault of the disk are thrown as std::runtime_error.
void make_world(const std::string& name, const std::string& folder);

// world_scene.cpp
void make_scene(world_package* package);
