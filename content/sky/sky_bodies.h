// Pictures of the bodies of the sky: straight alpha over any sky.
#pragma once
#include <string>

// FOLDER/moon01.png to moon23.png. North up, as the moon stands in the sky of northern latitudes.
void draw_moons(const std::string& folder);
// The sheet of point lights, sun and glare, and the wide glow around the sun.
void draw_lights(const std::string& path);
void draw_sun_glow(const std::string& path);
// FOLDER/aurora_1.png to aurora_4.png.
void draw_auroras(const std::string& folder);
