// Pictures of the window.
#pragma once
#include <string>

// Writes the picture that is about to be shown (the back buffer, so before the swap) as PNG. False when
// the file cannot be written.
bool save_screenshot(const std::string& png_path);
// The next picture "screenshot_1.bmp" and on in the application folder: the middle of the shown picture, 1024
// wide and up to 1024 high.
void OGL_screenshot();
