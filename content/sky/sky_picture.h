// Pictures of the bodies of the sky: straight alpha over any sky, computed texel by texel.
// Role: what the programs of this folder draw on; knows nothing of what is drawn.
#pragma once
#include <string>
#include <vector>

struct sky_texel {
    double r = 1.0, g = 1.0, b = 1.0;  // where nothing is drawn too, or filters would pull in black
    double a = 0.0;
};

class sky_picture {
public:
    sky_picture(int dx, int dy) : dx_(dx), dy_(dy), texels_(static_cast<size_t>(dx) * dy) {}
    int dx() const { return dx_; }
    int dy() const { return dy_; }
    // t from the bottom
    sky_texel& at(int s, int t) { return texels_[static_cast<size_t>(t) * dx_ + s]; }
    // Alpha is dithered, so that wide faint glows show no steps. Throws std::runtime_error.
    void save(const std::string& path) const;

private:
    int dx_, dy_;
    std::vector<sky_texel> texels_;
};

// FOLDER/moon01.png to moon23.png. North up, as the moon stands in the sky of northern latitudes.
void draw_moons(const std::string& folder);
// The sheet of point lights, sun and glare, and the wide glow around the sun.
void draw_lights(const std::string& path);
void draw_sun_glow(const std::string& path);
// FOLDER/aurora_1.png to aurora_4.png.
void draw_auroras(const std::string& folder);
