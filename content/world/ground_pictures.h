// Pictures of the ground, seen from above, whose edges meet; and the mask of a soft border.
#pragma once
#include <string>

enum class ground { grass, scrub, rock, sand, mars };

void draw_ground(ground kind, const std::string& path);
// Grey: white where an overlay hides what lies under it. s runs from outside to inside, t repeats.
void draw_border_mask(const std::string& path);
// A country road in its length, t upwards.
void draw_road(const std::string& path);
