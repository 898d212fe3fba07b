// Charts.
#include "effects.h"
#include "texel_picture.h"
#include "wrap_noise.h"

namespace {
// Paper of one tint with its grain.
void draw_paper(const std::string& path, const texel& tint, unsigned seed) {
    constexpr int side = 256;
    texel_picture picture(side, side);
    picture.paint([&](double s, double t) {
        const double grain = noise::wrapped_fractal(s, t, 16, 4, seed);
        return shade(tint, 0.985 + 0.03 * grain);
    });
    picture.save(path, false);
}

// Green lowland over tan to brown and white peaks, s from the sea to the highest.
void draw_heights(const std::string& path) {
    constexpr int dx = 256, dy = 16;
    const struct {
        double s;
        texel c;
    } tints[] = {{0.00, {0.78, 0.86, 0.68, 1}}, {0.12, {0.82, 0.88, 0.66, 1}}, {0.22, {0.93, 0.90, 0.70, 1}},
                 {0.35, {0.92, 0.83, 0.60, 1}}, {0.50, {0.86, 0.70, 0.47, 1}}, {0.70, {0.74, 0.55, 0.36, 1}},
                 {0.88, {0.62, 0.44, 0.30, 1}}, {1.00, {0.95, 0.94, 0.93, 1}}};
    texel_picture picture(dx, dy);
    picture.paint([&](double s, double) {
        size_t i = 1;
        while (i + 1 < sizeof tints / sizeof tints[0] && s > tints[i].s) ++i;
        return mix(tints[i - 1].c, tints[i].c, (s - tints[i - 1].s) / (tints[i].s - tints[i - 1].s));
    });
    picture.save(path, false);
}
}  // namespace

void draw_maps(const std::string& folder) {
    const std::string to = folder + "maps/";
    draw_paper(to + "rad_land.png", {0.93, 0.91, 0.83, 1}, 951);
    draw_paper(to + "rad_water.png", {0.76, 0.84, 0.90, 1}, 952);
    draw_paper(to + "nrt_land.png", {0.95, 0.95, 0.92, 1}, 953);
    draw_paper(to + "nrt_water.png", {0.82, 0.88, 0.92, 1}, 954);
    draw_paper(to + "sec_land.png", {0.90, 0.91, 0.76, 1}, 955);
    draw_paper(to + "sec_water.png", {0.68, 0.80, 0.90, 1}, 956);
    draw_heights(to + "sec_colors.png");
}
