// Pictures of the ground, seen from above, whose edges meet; and a road.
#pragma once
#include <string>

enum class ground { grass, scrub, rock, sand, mars };

void draw_ground(ground kind, const std::string& path);
// A country road in its length, t upwards.
void draw_road(const std::string& path);
