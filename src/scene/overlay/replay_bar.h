// The bar of the replay: time, slider with the marks of what happened, buttons.
#pragma once
#include <vector>

// Places of marks along the bar, virtual units, from their times in order: a label within 5 units of the one
// before stands 12 units above it.
struct mark_place_struct {
    float x, up;
};
std::vector<mark_place_struct> place_marks(const std::vector<float>& times, float lotime, float hitime);

void draw_replay_bar();
