// Pictures of natural runways, their pads, skid marks and the line of taxiways.
#pragma once
#include <string>

// Each below FOLDER. Throws std::runtime_error.
void draw_natural_pictures(const std::string& folder);
void draw_skids(const std::string& path);
void draw_taxiline(const std::string& path);
