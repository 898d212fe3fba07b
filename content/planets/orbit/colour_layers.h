// The photograph of the whole Earth taken apart: the colour of the land and that of the water, each carried
// on where the other is, so that a finer shore can be drawn between them.
#pragma once
#include <vector>

#include "../globe_map.h"

class colour_layers {
public:
    // land: part of it in each texel of the photograph
    colour_layers(globe_map& photograph, const std::vector<float>& land);

    // Smooth between the texels; degrees.
    rgb land(double lat, double lon) const { return smooth_at(land_, lat, lon); }
    rgb water(double lat, double lon) const { return smooth_at(water_, lat, lon); }
    // Of the deep sea: the middle of what the warm oceans show.
    rgb deep() const { return deep_; }
    // Greatest difference of the water from the deep sea in a square of 10 degrees, in any channel.
    double unlike_deep(int south, int west) const;

private:
    using layer = std::vector<rgb>;
    rgb smooth_at(const layer& from, double lat, double lon) const;
    layer land_, water_;
    rgb deep_;
};
