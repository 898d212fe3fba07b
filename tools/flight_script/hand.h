// The hand of a scripted pilot: mouse as yoke and keys, through the same gate as a user's.
#pragma once

// From neutral, -1 to 1: right wing down, nose up.
void move_stick(float roll, float pull);
// A click in the middle of the picture, which makes the mouse the yoke; takes a frame.
void take_yoke();
// Strokes of a key of a use, and of the keys that this pilot knows.
void press(int use, int key, int times = 1);
void press_brake();
void more_flap();
void change_view(int key);
void move_throttle(int steps);  // twentieths of full
