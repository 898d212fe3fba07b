// Warnings in words, over the picture.
#pragma once
#include <string>
#include <vector>

// Those of this moment: at the right what is wrong, in the middle what goes on.
struct warnings_struct {
    std::vector<std::string> right, middle;
};
warnings_struct find_warnings();
void draw_warnings();
