// Heights of the Earth's land on a grid of 5 arc minutes, metres; the sea is 0.
#pragma once
#include <stdint.h>

#include <string>
#include <vector>

class elevation {
public:
    explicit elevation(const std::string& path);

    double height(double lat, double lon) const;  // smooth between the grid's points
    // Least and greatest height within some 9 km, and within some 18 km, smooth between the points.
    struct surroundings {
        double low, high, wide_low, wide_high;
    };
    surroundings around(double lat, double lon) const;

private:
    double at(int row, int column) const;
    std::vector<int16_t> grid_;
};
