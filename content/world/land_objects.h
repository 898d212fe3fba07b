// Objects of the countryside, written by code: trees, farm buildings, a water tower.
#pragma once
#include <string>
#include <vector>

// Names without ending, of object files that write_land_objects makes.
const std::vector<std::string>& land_object_names();
// Object files into one folder, their pictures by day and night into another.
void write_land_objects(const std::string& objects, const std::string& textures);
