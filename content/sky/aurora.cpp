// Curtains of the aurora. A curtain is a thin sheet along the field lines, seen from the side: its course
// winds to and fro, and where it runs along the sight much of it lies in one column, which makes the bright
// rays.
#include <math.h>

#include <algorithm>

#include "noise.h"
#include "sky_bodies.h"
#include "texel_picture.h"

namespace {
constexpr int width = 1024, height = 512;

double smooth(double from, double to, double x) {
    const double f = std::clamp((x - from) / (to - from), 0.0, 1.0);
    return f * f * (3.0 - 2.0 * f);
}
double wave(double x, int octaves, unsigned seed) {
    return 2.0 * noise::fractal(x, 0.5, octaves, seed) - 1.0;
}

struct emission {
    double r = 0.0, g = 0.0, b = 0.0;
};

// The nitrogen of the lower border and of the top, the green and the red line of oxygen.
constexpr emission nitrogen_low = {0.85, 0.30, 0.75}, green_line = {0.25, 1.0, 0.42},
                   red_line = {1.0, 0.16, 0.26}, nitrogen_high = {0.48, 0.30, 1.0};

// Above the lower border, in km; the border lies at about 100 km. Shapes of the layers after measured
// profiles, rounded: green is brightest some 10 km up and is gone above 100, red begins where collisions end.
emission glow_at(double km, double reach) {
    if (km < -6.0) return {};
    const double h = km / reach;
    const double low = exp(-(km - 1.0) * (km - 1.0) / 18.0);
    const double green = smooth(-4.0, 9.0, km) * (0.72 * exp(-h / 22.0) + 0.28 * exp(-h / 60.0));
    const double red = smooth(45.0, 130.0, km) * exp(-h / 130.0);
    const double high = smooth(30.0, 90.0, km) * exp(-h / 95.0);
    emission e;
    const auto add = [&](const emission& line, double amount) {
        e.r += amount * line.r, e.g += amount * line.g, e.b += amount * line.b;
    };
    add(nitrogen_low, 0.30 * low), add(green_line, green), add(red_line, 0.42 * red),
        add(nitrogen_high, 0.22 * high);
    return e;
}

struct curtain {
    double base;             // of the lower border, part of the picture
    double wander, fold;     // of the border up and down, and of the course to and fro
    double folds, strength;  // how many folds, how bright
    double scale;            // km of the whole height
    unsigned seed;
};

void hang(const curtain& c, std::vector<emission>* light) {
    constexpr int steps = 9000;
    for (int n = 0; n < steps; ++n) {
        const double u = (n + 0.5) / steps;
        // large loops, with small curls on them
        const double turn = c.folds * u;
        const double x = u + c.fold * (wave(turn, 2, c.seed) + 0.28 * wave(5.3 * turn, 2, c.seed + 10));
        const double away = wave(turn + 0.37, 2, c.seed + 20) + 0.35 * wave(5.3 * turn + 0.4, 2, c.seed + 30);
        const double base = c.base + c.wander * away;
        const double patches = 0.35 + 0.65 * smooth(-0.35, 0.4, wave(6.0 * u, 3, c.seed + 40));
        const double rays = 0.35 + 1.3 * pow(0.5 + 0.5 * wave(110.0 * u, 3, c.seed + 50), 2.0);
        const double reach = 0.65 + 0.9 * (0.5 + 0.5 * wave(45.0 * u, 3, c.seed + 60));
        const double ends = smooth(0.02, 0.22, x) * smooth(0.02, 0.22, 1.0 - x);
        const double amount = c.strength * patches * rays * ends * width / steps;
        if (amount <= 0.0) continue;
        const double column = x * width - 0.5;
        const int s = static_cast<int>(floor(column));
        const double part = column - s;
        for (int t = std::max(0, static_cast<int>(base * height) - 12); t < height; ++t) {
            const double up = (t + 0.5) / height;
            const emission e = glow_at((up - base) * c.scale, reach);
            for (int side = 0; side < 2; ++side) {
                if (s + side < 0 || s + side >= width) continue;
                const double w = amount * (side ? part : 1.0 - part);
                emission& to = (*light)[static_cast<size_t>(t) * width + s + side];
                to.r += w * e.r, to.g += w * e.g, to.b += w * e.b;
            }
        }
    }
}

// Nothing reaches the border of the picture.
double frame(int s, int t) {
    const double x = (s + 0.5) / width, y = (t + 0.5) / height;
    return smooth(0.0, 0.16, x) * smooth(0.0, 0.16, 1.0 - x) * (1.0 - smooth(0.62, 0.98, y)) *
           smooth(0.0, 0.06, y);
}

// Part of the light comes from the thick of the sheet and lies softly around the sharp folds.
std::vector<emission> softened(const std::vector<emission>& light, double part, double reach) {
    std::vector<emission> soft(light.size());
    const int taps = static_cast<int>(3.0 * reach);
    std::vector<double> weight(static_cast<size_t>(taps) + 1);
    double total = 0.0;
    for (int n = 0; n <= taps; ++n) {
        weight[static_cast<size_t>(n)] = exp(-0.5 * n * n / (reach * reach));
        total += (n ? 2.0 : 1.0) * weight[static_cast<size_t>(n)];
    }
    for (int t = 0; t < height; ++t)
        for (int s = 0; s < width; ++s) {
            const emission& own = light[static_cast<size_t>(t) * width + s];
            emission sum;
            for (int n = std::max(-taps, -s); n <= std::min(taps, width - 1 - s); ++n) {
                const emission& e = light[static_cast<size_t>(t) * width + s + n];
                const double w = weight[static_cast<size_t>(abs(n))] / total;
                sum.r += w * e.r, sum.g += w * e.g, sum.b += w * e.b;
            }
            soft[static_cast<size_t>(t) * width + s] = {own.r + part * (sum.r - own.r),
                                                        own.g + part * (sum.g - own.g),
                                                        own.b + part * (sum.b - own.b)};
        }
    return soft;
}

void draw_aurora(const std::vector<curtain>& curtains, const std::string& path) {
    std::vector<emission> light(static_cast<size_t>(width) * height);
    for (const curtain& c : curtains) hang(c, &light);
    light = softened(softened(light, 0.75, 3.0), 0.55, 22.0);
    texel_picture picture(width, height);
    for (int t = 0; t < height; ++t)
        for (int s = 0; s < width; ++s) {
            const emission& e = light[static_cast<size_t>(t) * width + s];
            const double most = std::max({e.r, e.g, e.b, 1e-9}), seen = 1.0 - exp(-1.5 * most);
            // very bright parts wash out towards white, as eye and film show them
            const double white = 0.35 * smooth(0.55, 1.0, seen);
            const auto channel = [&](double v) { return v / most * (1.0 - white) + white; };
            picture.at(s, t) = {channel(e.r), channel(e.g), channel(e.b), seen * frame(s, t)};
        }
    picture.save(path);
}
}  // namespace

void draw_auroras(const std::string& folder) {
    const std::vector<curtain> pictures[] = {
        {{0.20, 0.075, 0.13, 4.0, 0.75, 360, 100}, {0.32, 0.050, 0.10, 5.0, 0.30, 330, 200}},
        {{0.25, 0.100, 0.17, 5.0, 0.85, 330, 300}},
        {{0.17, 0.050, 0.09, 3.5, 0.55, 400, 400},
         {0.25, 0.070, 0.15, 5.5, 0.45, 360, 500},
         {0.36, 0.040, 0.07, 4.0, 0.22, 330, 600}},
        {{0.28, 0.110, 0.20, 4.5, 0.75, 310, 700}, {0.18, 0.040, 0.07, 3.0, 0.32, 420, 800}}};
    int number = 0;
    for (const std::vector<curtain>& curtains : pictures)
        draw_aurora(curtains, folder + "/aurora_" + std::to_string(++number) + ".png");
}
