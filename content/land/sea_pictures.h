// The pictures of water that moves.
#pragma once
#include <string>

constexpr int sea_states = 7, sea_frames = 16;

// All frames of a state, 0 calm to 6 high, "sea01.png" to "sea16.png", into a folder with its separator.
void draw_sea(int state, const std::string& folder);
