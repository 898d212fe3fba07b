// A tile as a map.
#pragma once
#include "survey.h"

// Of the extent, in degrees. Throws std::runtime_error when the picture cannot be written.
void draw_plan(const tile_file& file, const tile_survey& survey, const area& extent,
               const std::string& png_path);
