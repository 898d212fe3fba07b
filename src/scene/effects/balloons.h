#pragma once
void balloons_step(); void draw_balloons(); void reset_balloons();
