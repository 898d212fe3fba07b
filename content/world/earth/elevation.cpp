// The coarse heights.
#include "elevation.h"

#include <math.h>

#include <algorithm>

#include "data_file.h"

namespace {
constexpr int rows = 2161, columns = 4320, per_degree = 12;
}

elevation::elevation(const std::string& path) {
    const size_t cells = static_cast<size_t>(rows) * columns;
    const std::vector<uint8_t> bytes = inflated(path, 2 * cells);
    grid_.resize(cells);
    for (size_t n = 0; n < cells; ++n) {
        const bool first_row = n < columns, first_column = n % columns == 0;
        const int west = first_column ? 0 : grid_[n - 1], south = first_row ? 0 : grid_[n - columns];
        const int both = first_column || first_row ? 0 : grid_[n - columns - 1];
        const int residue = static_cast<int16_t>(bytes[n] | bytes[cells + n] << 8);
        grid_[n] = static_cast<int16_t>(west + south - both + residue);
    }
}

double elevation::at(int row, int column) const {
    const int r = std::clamp(row, 0, rows - 1), c = (column % columns + columns) % columns;
    return grid_[static_cast<size_t>(r) * columns + static_cast<size_t>(c)];
}

// Cubic through the points (Catmull and Rom), held within the four nearest and half of their range.
double elevation::height(double lat, double lon) const {
    const double y = (lat + 90.0) * per_degree, x = lon * per_degree;
    const int row = static_cast<int>(floor(y)), column = static_cast<int>(floor(x));
    const auto weights = [](double t, double* w) {
        w[0] = 0.5 * t * (t * (2.0 - t) - 1.0);
        w[1] = 0.5 * (t * t * (3.0 * t - 5.0) + 2.0);
        w[2] = 0.5 * t * (t * (4.0 - 3.0 * t) + 1.0);
        w[3] = 0.5 * t * t * (t - 1.0);
    };
    double wx[4], wy[4], sum = 0.0, low = 1.0e9, high = -1.0e9;
    weights(x - column, wx);
    weights(y - row, wy);
    for (int j = 0; j < 4; ++j)
        for (int i = 0; i < 4; ++i) {
            const double h = at(row + j - 1, column + i - 1);
            sum += wy[j] * wx[i] * h;
            if (j % 3 && i % 3) low = std::min(low, h), high = std::max(high, h);
        }
    const double room = 0.25 * (high - low);
    return std::clamp(sum, low - (low > 0.0 ? std::min(room, low) : 0.0), high + room);
}

elevation::surroundings elevation::around(double lat, double lon) const {
    const double y = (lat + 90.0) * per_degree, x = lon * per_degree;
    const int row = static_cast<int>(floor(y)), column = static_cast<int>(floor(x));
    surroundings sum{};
    for (int j = 0; j < 2; ++j)
        for (int i = 0; i < 2; ++i) {
            surroundings here{1.0e9, -1.0e9, 1.0e9, -1.0e9};
            for (int dj = -2; dj <= 2; ++dj)
                for (int di = -2; di <= 2; ++di) {
                    const double h = at(row + j + dj, column + i + di);
                    here.wide_low = std::min(here.wide_low, h);
                    here.wide_high = std::max(here.wide_high, h);
                    if (abs(dj) == 2 || abs(di) == 2) continue;
                    here.low = std::min(here.low, h);
                    here.high = std::max(here.high, h);
                }
            const double weight = (j ? y - row : 1.0 - (y - row)) * (i ? x - column : 1.0 - (x - column));
            sum.low += weight * here.low;
            sum.high += weight * here.high;
            sum.wide_low += weight * here.wide_low;
            sum.wide_high += weight * here.wide_high;
        }
    return sum;
}
