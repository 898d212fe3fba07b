// Pictures of BMP files. Role: below the texture manager, and for screenshots; knows no OpenGL.
#pragma once
#include <string>
#include "draw/images/image_place.h"

int load_bmp_into_scratch(const std::string& path, image_struct* image);

// 24-bit picture of dx by dy RGB pixels in scratch_array, rows without padding. 0 when it cannot be
// written, which is told.
int write_bmp_to_disk(const std::string& path, int dx, int dy);
