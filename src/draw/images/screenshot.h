// Pictures of the window.
#pragma once
#include <string>

// Writes the picture that is about to be shown (the back buffer, so before the swap) as PNG. False when
// the file cannot be written.
bool save_screenshot(const std::string& png_path);
// Asks for the next picture "screenshot_1.bmp" and on in the application folder: the middle of the frame that is
// shown next, 1024 wide and up to 1024 high.
void OGL_screenshot();
// Once a frame, when all is drawn and before the swap.
void take_asked_screenshot();
// Nothing is asked for, and the numbers start over.
void reset_screenshot();
