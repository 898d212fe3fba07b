// The sheet of lights and the glow of the sun. All is white: what draws it gives the colour.
#include <math.h>

#include <algorithm>

#include "noise.h"
#include "sky_bodies.h"
#include "texel_picture.h"

namespace {
double smooth(double from, double to, double x) {
    const double f = std::clamp((x - from) / (to - from), 0.0, 1.0);
    return f * f * (3.0 - 2.0 * f);
}
double bell(double r, double width) { return exp(-r * r / (width * width)); }
// Nothing reaches the edge of its cell, r = 1.
double within(double r) { return 1.0 - smooth(0.7, 0.97, r); }

// -- what stands in the cells: alpha by the place from the middle, 1 at the edges

// Much smaller than its cell, since the cell is drawn far larger than the sun is; air close by is as bright.
double sun_disc(double x, double y) {
    constexpr double radius = 0.36;
    const double r = hypot(x, y), disc = 1.0 - smooth(radius - 0.02, radius + 0.02, r);
    const double aureole = 0.62 * bell(std::max(r - radius, 0.0), 0.20);
    return std::max(disc, aureole) * within(r);
}

double plain_lamp(double x, double y) {
    const double r = hypot(x, y);
    return std::min(1.0, 1.25 * bell(r, 0.26) + 0.22 * bell(r, 0.55)) * within(r);
}

// A lamp that dazzles: a hot core, a wide halo, and faint streaks of the eye's lashes.
double halo_lamp(double x, double y) {
    const double r = hypot(x, y), turn = atan2(y, x);
    const double streaks =
        pow(std::max(0.0, cos(3.0 * turn + 0.4)), 24.0) + pow(std::max(0.0, cos(4.0 * turn)), 40.0);
    return std::min(1.0, 1.5 * bell(r, 0.13) + 0.40 * bell(r, 0.34) + 0.16 * bell(r, 0.65) +
                             0.28 * streaks * bell(r, 0.5)) *
           within(r);
}

// Light on the ground below a lamp: as the lamp's rays meet it, by the cube of their slant.
double ground_glow(double x, double y) {
    constexpr double height = 0.42;
    const double r = hypot(x, y);
    return 0.55 * pow(1.0 + r * r / (height * height), -1.5) * (1.0 - smooth(0.5, 0.97, r));
}

// Straylight of the eye: a bright middle, fine needles of uneven length, and the ring that the lens
// scatters (the ciliary corona and the lenticular halo: Spencer, Shirley, Zimmerman and Greenberg 1995).
double glare(double x, double y) {
    const double r = hypot(x, y), turn = atan2(y, x) / (2.0 * M_PI) + 0.5;
    const auto needles = [&](int count, unsigned seed) {
        const double at = turn * count;
        const int n = static_cast<int>(floor(at));
        const double length = 0.25 + 0.75 * pow(noise::hash(n % count, 0, seed), 2.0);
        const double across = 2.0 * fabs(at - n - 0.5);
        return (1.0 - across) * (1.0 - across) * std::max(0.0, 1.0 - r / length);
    };
    const double corona = 0.36 * needles(61, 1) + 0.30 * needles(113, 2) + 0.24 * needles(187, 3);
    const double middle = 1.1 * bell(r, 0.15) + 0.50 * bell(r, 0.33) + 0.20 * bell(r, 0.62);
    const double ring = 0.05 * bell(r - 0.66, 0.035);
    return std::min(1.0, middle + corona * smooth(0.0, 0.12, r) + ring) * within(r);
}

using alpha_function = double (*)(double x, double y);

void draw_cell(texel_picture& sheet, int s, int t, int size, alpha_function alpha) {
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            sheet.at(s + x, t + y).a = alpha((2.0 * x + 1.0) / size - 1.0, (2.0 * y + 1.0) / size - 1.0);
}
}  // namespace

void draw_lights(const std::string& path) {
    constexpr int cell = 256;
    texel_picture sheet(4 * cell, 2 * cell);
    draw_cell(sheet, 0, 0, cell, plain_lamp);
    draw_cell(sheet, cell, 0, cell, ground_glow);
    draw_cell(sheet, 0, cell, cell, sun_disc);
    draw_cell(sheet, cell, cell, cell, halo_lamp);
    draw_cell(sheet, 2 * cell, 0, 2 * cell, glare);
    sheet.save(path);
}

// Light that the air scatters forward falls with the square of the angle beyond the sun's bright
// surroundings, and what hangs in the air adds a faint wide light.
void draw_sun_glow(const std::string& path) {
    constexpr int size = 512;
    constexpr double core = 0.115;  // where the fall begins
    texel_picture glow(size, size);
    draw_cell(glow, 0, 0, size, [](double x, double y) {
        const double r = hypot(x, y);
        const double fall = 1.0 / (1.0 + r * r / (core * core)), at_edge = 1.0 / (1.0 + 1.0 / (core * core));
        return std::max(0.0, 0.88 * (fall - at_edge) + 0.05 * bell(r, 0.55)) * (1.0 - smooth(0.35, 1.0, r));
    });
    glow.save(path);
}
