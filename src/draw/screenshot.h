// Pictures of the window.
#pragma once
#include <string>

// Writes the picture that is about to be shown (the back buffer, so before the swap) as PNG. False when
// the file cannot be written.
bool save_screenshot(const std::string& png_path);
