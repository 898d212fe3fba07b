// Frames of moving water for seven states of the sea.
#include "sea_pictures.h"

#include <math.h>

#include <algorithm>
#include <complex>
#include <vector>

#include "ground_picture.h"
#include "noise.h"

namespace {
constexpr int side = 256;         // pixels
constexpr double metres = 200.0;  // that a picture covers

// A sea by its wind: the largest waves, how steep they are, the share of foam.
struct sea_state {
    double longest;  // m
    double slope;    // mean square root
    double foam;     // share of the crests
};
constexpr sea_state states[sea_states] = {
    {7.0, 0.05, 0.0},    {11.0, 0.08, 0.0},   {17.0, 0.115, 0.002}, {26.0, 0.15, 0.008},
    {38.0, 0.185, 0.02}, {50.0, 0.215, 0.04}, {66.0, 0.24, 0.07},
};

struct wave {
    int kx, ky;  // whole waves in the picture
    int turns;   // whole periods in all frames, so that the last leads to the first
    double slope, phase;
};

// Waves of all lengths below the longest, most of them within 60 degrees of the wind (which blows along +x);
// slopes fall as in a sea that the wind has filled. A frame's turn is two seconds in all: short waves may
// turn more than once, long ones pass slowly.
std::vector<wave> waves_of(int state) {
    std::vector<wave> all;
    lot draw(700 + static_cast<unsigned>(state));
    const int lowest = std::max(2, static_cast<int>(metres / states[state].longest));
    double sum = 0.0;
    for (int n = 0; n < 150; ++n) {
        const double k = lowest * pow(44.0 / lowest, draw.from(0, 1));
        const double turn = (draw.from(-1, 1) + draw.from(-1, 1)) * 0.5 * 1.9;
        const int kx = static_cast<int>(lround(k * cos(turn))), ky = static_cast<int>(lround(k * sin(turn)));
        if (kx == 0 && ky == 0) continue;
        const double length = metres / hypot(kx, ky), period = sqrt(2.0 * M_PI * length / 9.81);
        const double slope = pow(static_cast<double>(lowest) / hypot(kx, ky), 0.35);
        all.push_back(
            {kx, ky, std::max(1, static_cast<int>(lround(2.0 / period))), slope, draw.from(0, 2.0 * M_PI)});
        sum += 0.5 * slope * slope;
    }
    for (wave& w : all) w.slope *= states[state].slope / sqrt(sum);
    return all;
}

struct surface {
    std::vector<float> east, north, height;  // slopes, and metres
};

// Along a row each wave turns by a constant angle for each pixel.
surface surface_at(const std::vector<wave>& waves, double phase) {
    surface s;
    for (auto* v : {&s.east, &s.north, &s.height}) v->assign(size_t{side} * side, 0.0f);
    for (const wave& w : waves) {
        const double k = 2.0 * M_PI / side, length = hypot(w.kx, w.ky);
        const std::complex<float> step = std::polar(1.0f, static_cast<float>(k * w.kx));
        const float east = static_cast<float>(w.slope * w.kx / length),
                    north = static_cast<float>(w.slope * w.ky / length);
        const float height = static_cast<float>(w.slope * metres / (2.0 * M_PI * length));
        for (int y = 0; y < side; ++y) {
            std::complex<float> at =
                std::polar(1.0f, static_cast<float>(k * w.ky * y + w.phase - 2.0 * M_PI * w.turns * phase));
            for (size_t i = size_t{side} * static_cast<size_t>(y), end = i + side; i < end; ++i, at *= step) {
                s.east[i] -= east * at.imag();
                s.north[i] -= north * at.imag();
                s.height[i] += height * at.real();
            }
        }
    }
    return s;
}
}  // namespace

void draw_sea(int state, const std::string& folder) {
    const std::vector<wave> waves = waves_of(state);
    for (int frame = 0; frame < sea_frames; ++frame) {
        const surface s = surface_at(waves, static_cast<double>(frame) / sea_frames);
        std::vector<float> sorted = s.height;
        const size_t crest =
            static_cast<size_t>((1.0 - states[state].foam) * static_cast<double>(sorted.size() - 1));
        std::nth_element(sorted.begin(), sorted.begin() + static_cast<long>(crest), sorted.end());
        const double foam_from = states[state].foam > 0.0 ? sorted[crest] : 1.0e9;
        ground_picture p(metres, side);
        // the water's own colour is given in flight: faces to the light are brighter, troughs darker
        p.paint([&](double x, double y) {
            const size_t i =
                static_cast<size_t>(y / metres * side) * side + static_cast<size_t>(x / metres * side);
            const double facing = -0.8 * s.east[i] - 0.6 * s.north[i];
            const double glint = std::max(0.0, facing - 1.3 * states[state].slope) * 1.5;
            const double v = std::clamp(0.78 + 0.75 * facing + glint, 0.5, 1.0);
            // crests break where the noise lets them, in threads along the wind
            const double broken = noise::value(x * 0.35, y * 1.4, 720) * noise::value(x * 1.5, y * 2.6, 721);
            const double froth = s.height[i] > foam_from && broken > 0.22 ? 0.85 : 0.0;
            return mix({v * 0.96, v * 0.99, v}, {1, 1, 1}, froth);
        });
        char name[24];
        snprintf(name, sizeof name, "sea%02d.png", frame + 1);
        p.save(folder + name);
    }
}
