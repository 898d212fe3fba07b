// Strokes that the parts of the overlay share, in virtual units of the screen.
#pragma once
#include <string>
#include <vector>

// A row of the colour table over the whole screen.
void cover_screen(int color, float alpha);
// Colour and alpha from 0 to 1.
void cover_screen_with(float r, float g, float b, float alpha);
// Text around x on a dark ground; y is its base line.
void gray_string(int color, float x, float y, const std::string& text);
// Lines below each other on one ground, which does not darken the line above.
void gray_strings(int color, float x, float y, float step, const std::vector<std::string>& lines);
