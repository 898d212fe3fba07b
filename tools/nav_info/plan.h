// An airport's plan as a picture to pin to the wall.
#pragma once
#include <string>

// Gives the number of names that found no room. Throws std::runtime_error when the file cannot be written.
int draw_plan(int apt_index, const std::string& png_path);
