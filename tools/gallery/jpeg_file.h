// Pictures of the back buffer as JPEG files.
#pragma once
#include <string>

// As good as fits into so many bytes. False when it cannot be written.
bool save_jpeg(const std::string& path, unsigned long most_bytes);
