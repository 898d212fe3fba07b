// Land and water of the photograph.
#include "colour_layers.h"

#include <math.h>

#include <algorithm>

namespace {
constexpr double per_degree = globe_dx / 360.0;

size_t at(int column, int row) { return static_cast<size_t>(row) * globe_dx + static_cast<size_t>(column); }

// Weighted colours at half the size, and so on down to a few texels; then from the coarsest up again what a
// level lacks is taken from the one above it (pull and push: Gortler et al., The Lumigraph, 1996).
struct level {
    int dx, dy;
    std::vector<rgb> colours;  // times their weights
    std::vector<double> weights;
    level(int x, int y)
        : dx(x), dy(y), colours(static_cast<size_t>(x) * y), weights(static_cast<size_t>(x) * y) {}
    size_t at(int i, int j) const {
        return static_cast<size_t>(std::clamp(j, 0, dy - 1)) * dx + (i + dx) % dx;
    }
};

level pulled(const level& fine) {
    level coarse(fine.dx / 2, fine.dy / 2);
    for (int j = 0; j < fine.dy; ++j)
        for (int i = 0; i < fine.dx; ++i) {
            const size_t to = coarse.at(i / 2, j / 2);
            coarse.colours[to] = coarse.colours[to] + fine.colours[fine.at(i, j)];
            coarse.weights[to] += fine.weights[fine.at(i, j)];
        }
    for (size_t n = 0; n < coarse.weights.size(); ++n)
        if (coarse.weights[n] > 1.0) {
            coarse.colours[n] = coarse.colours[n] * (1.0 / coarse.weights[n]);
            coarse.weights[n] = 1.0;
        }
    return coarse;
}

void push(const level& coarse, level* fine) {
    for (int j = 0; j < fine->dy; ++j)
        for (int i = 0; i < fine->dx; ++i) {
            const size_t to = fine->at(i, j);
            const double lack = 1.0 - std::min(1.0, fine->weights[to]);
            if (lack <= 0.0) continue;
            const int ni = (i & 1) ? i / 2 + 1 : i / 2 - 1, nj = (j & 1) ? j / 2 + 1 : j / 2 - 1;
            rgb sum{};
            double weight = 0.0;
            const auto add = [&](int ci, int cj, double w) {
                sum = sum + coarse.colours[coarse.at(ci, cj)] * w,
                weight += w * coarse.weights[coarse.at(ci, cj)];
            };
            add(i / 2, j / 2, 9.0), add(ni, j / 2, 3.0), add(i / 2, nj, 3.0), add(ni, nj, 1.0);
            if (weight <= 0.0) continue;
            fine->colours[to] = fine->colours[to] + sum * (lack / weight);
            fine->weights[to] += lack;
        }
}

std::vector<rgb> filled(level whole) {
    constexpr int coarsest = 8;
    std::vector<level> levels = {std::move(whole)};
    while (levels.back().dy > coarsest) levels.push_back(pulled(levels.back()));
    for (size_t n = levels.size() - 1; n > 0; --n) push(levels[n], &levels[n - 1]);
    for (size_t n = 0; n < levels[0].weights.size(); ++n)
        if (levels[0].weights[n] > 0.0)
            levels[0].colours[n] = levels[0].colours[n] * (1.0 / levels[0].weights[n]);
    return levels[0].colours;
}

double middle_of(std::vector<double>* values) {
    const auto middle = values->begin() + static_cast<long>(values->size() / 2);
    std::nth_element(values->begin(), middle, values->end());
    return *middle;
}

double smooth(double from, double to, double x) {
    const double f = std::clamp((x - from) / (to - from), 0.0, 1.0);
    return f * f * (3.0 - 2.0 * f);
}

// Less where a texel of land shows water: lakes, and shores that the photograph has elsewhere. Only ice and
// snow may be as blue as red.
double is_ground(const rgb& c) {
    const double bright = smooth(0.45, 0.6, c.g);
    return std::max(bright, smooth(-0.01, 0.07, std::max(c.r, c.g) - c.b));
}

double difference(const rgb& a, const rgb& b) {
    return std::max({fabs(a.r - b.r), fabs(a.g - b.g), fabs(a.b - b.b)});
}

// An island too small to show its own colour has what grows at its latitude.
rgb islet(double lat) { return fabs(lat) < 45.0 ? rgb{0.30, 0.31, 0.20} : rgb{0.36, 0.36, 0.32}; }
}  // namespace

colour_layers::colour_layers(globe_map& photograph, const std::vector<float>& land) {
    constexpr double least_land = 0.35, islet_weight = 0.002, warm_lat = 35.0;
    level water(globe_dx, globe_dy), ground(globe_dx, globe_dy);
    std::vector<double> warm[3];
    for (int row = 0; row < globe_dy; ++row)
        for (int column = 0; column < globe_dx; ++column) {
            const size_t n = at(column, row);
            const rgb& c = photograph.texels[n];
            // a texel's own blur takes in its neighbours: only water without land near it is pure
            double near_land = 0.0;
            for (int k = 0; k < 9; ++k)
                near_land =
                    std::max<double>(near_land, land[at((column + k % 3 - 1 + globe_dx) % globe_dx,
                                                        std::clamp(row + k / 3 - 1, 0, globe_dy - 1))]);
            water.weights[n] = near_land == 0.0 ? 1.0 : land[n] < 0.02f ? 0.05 : 0.0;
            water.colours[n] = c * water.weights[n];
            if (near_land == 0.0 && fabs(row_lat(row)) < warm_lat)
                warm[0].push_back(c.r), warm[1].push_back(c.g), warm[2].push_back(c.b);
        }
    water_ = filled(std::move(water));
    for (int row = 0; row < globe_dy; ++row)
        for (int column = 0; column < globe_dx; ++column) {
            const size_t n = at(column, row);
            const double part = land[n];
            if (part <= 0.0) continue;
            const rgb own = islet(row_lat(row));
            ground.weights[n] = islet_weight * part, ground.colours[n] = own * ground.weights[n];
            if (part < least_land) continue;
            const rgb pure = (photograph.texels[n] + water_[n] * (part - 1.0)) * (1.0 / part);
            const double weight = pow(part, 4.0) * is_ground(pure);
            ground.weights[n] += weight;
            ground.colours[n] =
                ground.colours[n] + rgb{std::clamp(pure.r, 0.0, 1.0), std::clamp(pure.g, 0.0, 1.0),
                                        std::clamp(pure.b, 0.0, 1.0)} *
                                        weight;
        }
    land_ = filled(std::move(ground));
    deep_ = {middle_of(&warm[0]), middle_of(&warm[1]), middle_of(&warm[2])};
    // the grain of the photograph's file would show, eightfold enlarged
    constexpr double grain = 0.012, clear = 0.045;
    for (rgb& c : water_) c = mix(deep_, c, smooth(grain, clear, difference(c, deep_)));
}

// Cubic through the texels (Catmull and Rom).
rgb colour_layers::smooth_at(const layer& from, double lat, double lon) const {
    const double x = (lon + 180.0) * per_degree - 0.5, y = (90.0 - lat) * per_degree - 0.5;
    const int column = static_cast<int>(floor(x)), row = static_cast<int>(floor(y));
    const auto weights = [](double t, double* w) {
        w[0] = 0.5 * t * (t * (2.0 - t) - 1.0);
        w[1] = 0.5 * (t * t * (3.0 * t - 5.0) + 2.0);
        w[2] = 0.5 * t * (t * (4.0 - 3.0 * t) + 1.0);
        w[3] = 0.5 * t * t * (t - 1.0);
    };
    double wx[4], wy[4];
    weights(x - column, wx);
    weights(y - row, wy);
    rgb sum{};
    for (int j = 0; j < 4; ++j) {
        const int line = std::clamp(row + j - 1, 0, globe_dy - 1);
        for (int i = 0; i < 4; ++i) {
            const rgb& c = from[at((column + i - 1 + globe_dx) % globe_dx, line)];
            const double w = wx[i] * wy[j];
            sum.r += w * c.r, sum.g += w * c.g, sum.b += w * c.b;
        }
    }
    return sum;
}

double colour_layers::unlike_deep(int south, int west) const {
    double most = 0.0;
    for (int row = static_cast<int>((80 - south) * per_degree);
         row < static_cast<int>((90 - south) * per_degree); ++row)
        for (int column = static_cast<int>((west + 180) * per_degree);
             column < static_cast<int>((west + 190) * per_degree); ++column) {
            const rgb& c = water_[at(column, row)];
            most = std::max(most, difference(c, deep_));
        }
    return most;
}
