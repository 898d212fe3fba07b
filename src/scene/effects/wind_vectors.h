// The wind around the aircraft as a grid of lines, while scn.vis_math_level asks for it.
#pragma once

void draw_wind_vectors();
