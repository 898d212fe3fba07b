// Sky sets as PNG files, as a sheet and as views.
// Role: writes what sets.h makes; computes no light.
#pragma once
#include "sets.h"

// sky_colors_NAME.png and light_colors_NAME.png below FOLDER/PLANET; throws std::runtime_error.
void save_set(const sky_set& set, const std::string& folder);
// All sets over the day: the frames side by side, each with the sun in its middle, and the light columns
// below.
void save_sheet(const std::vector<sky_set>& sets, const std::string& path);
// All round and up to the zenith as the dome shows it, for suns down the evening.
void save_views(const sky_set& set, const std::string& path);
