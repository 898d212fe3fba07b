// Plain text in the window.
// Role: labels of the flying view and of alerts. Characters outside 32 to 126 show as blanks.
#pragma once
#include <string>

struct text_colour {
    float r, g, b;
};

// Width in virtual units.
float text_width(const std::string& text);
// The left end of the base line stands at (x, y), virtual units of the screen. Leaves the GL switches
// for plain drawing without depth.
// A plain box behind text, corners in virtual units.
void text_backdrop(float x1, float y1, float x2, float y2, text_colour colour, float alpha);
void text_draw(float x, float y, const std::string& text, text_colour colour);
