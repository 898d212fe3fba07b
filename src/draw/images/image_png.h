// Pictures of PNG files. Role: below the texture manager; knows no OpenGL.
#pragma once
#include <string>
#include "draw/images/image_place.h"

// The size that the file tells, in pixels; false for what is no such file.
bool png_size(const std::string& path, unsigned* dx, unsigned* dy);

// Each reads a picture whose path has any ending of four characters in place of its own; 1 when it did.
// A file that is not there is silent, any fault of its content is told and gives 0.
int load_png_into_scratch(const std::string& path, image_struct* image);
