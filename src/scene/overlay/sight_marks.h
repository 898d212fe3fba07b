// What lies before the eye: sunglasses, cross-hairs, night vision.
#pragma once

void draw_sunglasses();
// The middle of a view station's picture and its compass; what the mouse steers with.
void draw_sights();
void draw_night_vision();
