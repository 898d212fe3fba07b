// Four hot-air balloons with their crews, on calm mild days.
// Role: balloons_step once a drawn frame moves them with the wind; seen only.
#pragma once

constexpr int balloonDIM = 4;
struct balloon_struct {
    float x, z;  // world frame, m; both 0 while it has no place
};
const balloon_struct& balloon_of(int i);

void balloons_step();
void draw_balloons();
void reset_balloons();
