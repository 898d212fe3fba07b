// Pictures computed texel by texel, with straight alpha or without.
// Role: what programs of content draw on; knows nothing of what is drawn.
#pragma once
#include <functional>
#include <string>
#include <vector>

struct texel {
    double r = 1.0, g = 1.0, b = 1.0;  // where nothing is drawn too, or filters would pull in black
    double a = 0.0;
};
texel mix(const texel& from, const texel& to, double part_of_to);
texel shade(const texel& c, double by);  // times by, alpha as it is

class texel_picture {
public:
    texel_picture(int dx, int dy) : dx_(dx), dy_(dy), texels_(static_cast<size_t>(dx) * dy) {}
    int dx() const { return dx_; }
    int dy() const { return dy_; }
    // t from the bottom
    texel& at(int s, int t) { return texels_[static_cast<size_t>(t) * dx_ + s]; }
    const texel& at(int s, int t) const { return texels_[static_cast<size_t>(t) * dx_ + s]; }
    // Every texel anew by its place, 0 to 1 both ways.
    void paint(const std::function<texel(double s, double t)>& colour);
    // RGBA, or RGB. Alpha is dithered, so that wide faint glows show no steps. Throws std::runtime_error.
    void save(const std::string& path, bool with_alpha = true) const;

private:
    int dx_, dy_;
    std::vector<texel> texels_;
};
