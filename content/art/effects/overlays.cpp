// Fence, propeller's disc, snow, wake, landing light, cables.
#include <math.h>

#include <algorithm>

#include "effects.h"
#include "texel_picture.h"
#include "wrap_noise.h"

namespace {
using noise::smooth;
using noise::wrapped_fractal;

// Diamonds of wire between two rails.
texel fence_at(double s, double t) {
    constexpr double meshes = 12.0;
    const auto wire = [](double v) { return 1.0 - smooth(0.06, 0.16, fabs(v - round(v))); };
    const double mesh = std::max(wire((s + t) * meshes), wire((s - t) * meshes));
    const double rails = std::max(1.0 - smooth(0.010, 0.022, fabs(t - 0.965)), 1.0 - smooth(0.010, 0.022, fabs(t - 0.035)));
    const double post = 1.0 - smooth(0.012, 0.024, std::min(s, 1.0 - s));
    const double solid = std::max(rails, post);
    const double grey = 0.52 + 0.16 * solid;
    return {grey, grey, grey * 1.02, std::max(0.75 * mesh, solid)};
}

// Blades too fast to see: faint, stronger where they are broad, a light rim from the painted tips.
texel disc_at(double s, double t) {
    const double r = 2.0 * hypot(s - 0.5, t - 0.5), way = atan2(t - 0.5, s - 0.5);
    const double broad = smooth(0.12, 0.45, r) * (1.0 - smooth(0.6, 0.98, r));
    const double sweep = 0.75 + 0.25 * cos(2.0 * way + 0.6);
    const double tip = 1.0 - smooth(0.012, 0.04, fabs(r - 0.93));
    const double alpha = (0.08 + 0.16 * broad * sweep) * (1.0 - smooth(0.95, 0.985, r)) + 0.16 * tip * sweep;
    const texel blade = {0.20, 0.20, 0.21, 1}, paint = {0.92, 0.86, 0.55, 1};
    texel c = mix(blade, paint, tip);
    c.a = alpha;
    return c;
}

texel snow_at(double s, double t) {
    const double drift = wrapped_fractal(s, t, 5, 11, 5, 901), fine = wrapped_fractal(s, t, 24, 24, 3, 911);
    const double cover = smooth(0.42, 0.60, 0.8 * drift + 0.2 * fine);
    const double light = 0.93 + 0.07 * drift;
    return {light, light, 1.0, 0.9 * cover};
}

// Foam behind a ship: churned in the middle, lines of it spread to the sides; repeats along t.
texel wake_at(double s, double t) {
    const double x = fabs(2.0 * s - 1.0);
    const double foam = wrapped_fractal(s, t, 14, 10, 5, 921), lace = wrapped_fractal(s, t, 26, 20, 3, 931);
    const double middle = smooth(0.30, 0.75, foam) * (1.0 - smooth(0.15, 0.45, x));
    const double arms = smooth(0.45, 0.75, lace) * exp(-pow((x - 0.68) / 0.16, 2.0));
    return {0.94, 0.97, 0.98, std::clamp(0.95 * middle + 0.8 * arms, 0.0, 1.0) * smooth(0.0, 0.12, 1.0 - x)};
}

// The beam on the ground: an oval, brightest before its middle; black where it does not reach.
texel landing_light_at(double s, double t) {
    const double x = 2.0 * s - 1.0, y = 2.0 * t - 1.0;
    const double r = hypot(x, y), core = hypot(x * 1.3, y * 1.15 + 0.12);
    const double light = 0.55 * exp(-3.2 * r * r) + 0.6 * exp(-9.0 * core * core);
    const double v = std::clamp(light, 0.0, 1.0) * smooth(0.0, 0.35, 0.98 - r);
    return {v, v * 0.985, v * 0.93, 1.0};
}

// Cables between two towers, s along them: each sags a little.
texel cables_at(double s, double t) {
    double cover = 0.0;
    for (const double height : {0.2, 0.5, 0.8}) {
        const double sag = 0.10 * (1.0 - pow(2.0 * s - 1.0, 2.0));
        cover = std::max(cover, 1.0 - smooth(0.012, 0.035, fabs(t - height + sag)));
    }
    return {0.16, 0.16, 0.17, cover};
}

void draw(const std::string& path, int dx, int dy, bool with_alpha, texel (*at)(double, double)) {
    texel_picture picture(dx, dy);
    picture.paint(at);
    picture.save(path, with_alpha);
}

// The texture ends at its edge, which must be dark to the last texel.
void draw_landing_light(const std::string& path) {
    constexpr int side = 512;
    texel_picture picture(side, side);
    picture.paint(landing_light_at);
    for (int i = 0; i < side; ++i)
        for (texel* edge : {&picture.at(i, 0), &picture.at(i, side - 1), &picture.at(0, i), &picture.at(side - 1, i)})
            *edge = {0, 0, 0, 1};
    picture.save(path, false);
}
}  // namespace

void draw_overlays(const std::string& folder) {
    const std::string to = folder + "overlays/";
    draw(to + "fence.png", 256, 256, true, fence_at);
    draw(to + "prop_disc.png", 512, 512, true, disc_at);
    draw(to + "snow.png", 512, 512, true, snow_at);
    draw(to + "wake.png", 512, 512, true, wake_at);
    draw_landing_light(folder + "lites/landing_light.png");
    draw(folder + "powerlines.png", 512, 128, true, cables_at);
}
