// Northern lights: four bands that wander and change their shape.
#pragma once

constexpr int aurora_bands = 4;
// Sizes in m on the sphere of the sky's bodies; cx is where the band's middle is drawn, al its alpha, both 0
// to 1.
struct aurora_band {
    float dx, dy, cx, al;
};
aurora_band aurora_band_of(int i);

void aurora_step();  // once a drawn frame, by mnw.prd_FM
// How bright a band of this shape is, 0 to 1.
float aurora_shape(const aurora_band& band);
void draw_aurora(float brightness);
void reset_aurora();
