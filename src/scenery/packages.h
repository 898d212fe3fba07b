// Scenery packages: folders that bring airports, tiles and objects.
#pragma once
#include <string>
#include <vector>

// Their folders with a closing separator: all custom ones in the order of their names, then all default ones.
// A search takes the first that has what it wants.
extern std::vector<std::string> scenery_packages;

// Lists them anew.
void find_scenery_packages();
