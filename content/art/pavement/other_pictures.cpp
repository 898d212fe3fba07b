// Natural runways, skids, taxiway line.
#include "other_pictures.h"

#include <math.h>

#include <algorithm>
#include <filesystem>
#include <functional>

#include "grounds.h"
#include "paint.h"
#include "wrap_noise.h"

namespace {
using noise::smooth;
constexpr int side = 512;
constexpr double middle = 0.5 * runway_metres;
constexpr texel lime = {0.86, 0.85, 0.79, 1.0}, oil = {0.16, 0.14, 0.12, 1.0};

// Lime on grass, oil on the lakebed: thin, and half gone.
texel_picture marked(const ground& from, const texel& paint, const std::function<void(paint_mask*)>& draw) {
    paint_mask mask(side, side, runway_metres);
    draw(&mask);
    mask.soften(5);
    texel_picture picture(side, side);
    for (int t = 0; t < side; ++t)
        for (int s = 0; s < side; ++s) {
            const double x = (s + 0.5) / side * runway_metres, y = (t + 0.5) / side * runway_metres;
            const double left = 0.9 - 0.6 * smooth(0.42, 0.7, ground_noise(x, y, 1.0, 3, 501));
            texel c = from.at(s, t);
            c.a = std::max(c.a, 0.0);
            const double alpha = c.a;
            c = mix(c, paint, mask.coverage(s, t) * left);
            c.a = alpha;
            picture.at(s, t) = c;
        }
    return picture;
}

// Boards along the sides, dug into the ground.
void side_boards(paint_mask* m) {
    for (const double y : {1.5, 24.0}) m->boxes(middle - 6.5, y, 0.9, 4.0);
}
void side_lines(paint_mask* m) { m->boxes(middle - 6.5, 0.0, 0.8, runway_metres); }

void threshold_boards(paint_mask* m) {
    side_boards(m);
    for (int i = 0; i < 3; ++i) m->boxes(3.0 + 5.0 * i, 6.0, 2.6, 1.1);
    m->boxes(middle - 6.5, 6.0, 0.9, 5.0);
}
void threshold_line(paint_mask* m) {
    side_lines(m);
    m->box(5.6, 5.0, runway_metres - 11.2, 0.9);
}

void pad_marks(paint_mask* m) {
    m->ring(middle, middle, 14.0, 1.1);
    m->boxes(2.6, 14.0, 1.7, 17.0);
    m->box(middle - 2.8, middle - 0.85, 5.6, 1.7);
}

// The end frays out as the sides do.
void fray_start(texel_picture* picture, unsigned seed) {
    for (int t = 0; t < side; ++t)
        for (int s = 0; s < side; ++s) {
            const double x = (s + 0.5) / side * runway_metres, y = (t + 0.5) / side * runway_metres;
            const double frayed = y + 4.0 * (ground_noise(x, y, 3.0, 4, seed) - 0.5);
            picture->at(s, t).a *= smooth(0.4, 3.6, frayed) * smooth(0.0, 0.8, y);
        }
}

// Round about the middle, for pads.
void fray_around(texel_picture* picture, unsigned seed) {
    for (int t = 0; t < side; ++t)
        for (int s = 0; s < side; ++s) {
            const double x = (s + 0.5) / side * runway_metres, y = (t + 0.5) / side * runway_metres;
            const double inside = 20.5 - hypot(x - middle, y - middle);
            const double frayed = inside + 4.0 * (ground_noise(x, y, 3.0, 4, seed) - 0.5);
            picture->at(s, t).a = smooth(0.3, 3.4, frayed) * smooth(0.0, 0.8, std::min({x, y, runway_metres - x, runway_metres - y}));
        }
}
}  // namespace

void draw_natural_pictures(const std::string& folder) {
    const char* const names[natural_surfaces] = {"grass", "dirt", "grav", "lakebed"};
    for (int kind = 0; kind < natural_surfaces; ++kind) {
        const ground bare(static_cast<natural_surface>(kind), side);
        const std::string to = folder + "/" + names[kind] + "/";
        std::filesystem::create_directories(to);
        const bool on_lake = kind == lakebed;
        const texel& paint = on_lake ? oil : lime;
        marked(bare, paint, on_lake ? side_lines : side_boards).save(to + "rway_line.png");
        texel_picture threshold = marked(bare, paint, on_lake ? threshold_line : threshold_boards);
        fray_start(&threshold, 511);
        threshold.save(to + "rway_thr1.png");
        if (kind > dirt) continue;
        texel_picture pad = marked(bare, lime, pad_marks);
        fray_around(&pad, 521);
        pad.save(to + "helipad.png");
    }
}

// Multiplied over the pavement: white where nothing is. t from no wheel to many thousand.
void draw_skids(const std::string& path) {
    constexpr int size = 512;
    texel_picture picture(size, size);
    picture.paint([](double s, double t) {
        const double x = s * runway_metres, off = fabs(x - middle);
        const double lane = exp(-(off - 4.4) * (off - 4.4) / 5.0) + 0.35 * exp(-off * off / 3.0) +
                            0.25 * exp(-(off - 7.5) * (off - 7.5) / 9.0);
        // each streak is one landing: the more of them, the closer they lie
        const double lot = 0.6 * noise::wrapped_value(x * 3.2, 5.0 * t, 144, 531) + 0.4 * noise::wrapped_value(x * 1.1, 3.0 * t, 50, 532);
        const double many = smooth(0.0, 1.0, t);
        const double dark = std::clamp(lane, 0.0, 1.0) * smooth(0.75 - 0.75 * many, 1.1 - 0.7 * many, lot) * many;
        const double sides = smooth(0.0, 3.0, std::min(x, runway_metres - x));
        const double v = t * size < 1.0 ? 1.0 : 1.0 - 0.62 * dark * sides;
        return texel{v, v, v, 1.0};
    });
    for (int i = 0; i < size; ++i) picture.at(0, i) = picture.at(size - 1, i) = {1, 1, 1, 1};
    picture.save(path);
}

void draw_taxiline(const std::string& path) {
    constexpr int size = 256;
    const ground bare(asphalt, size, false);
    paint_mask mask(size, size, runway_metres);
    mask.box(middle - 1.2, 0.0, 2.4, runway_metres);  // 15 cm of a lane that is some 6 m wide
    mask.soften(3);
    texel_picture picture(size, size);
    for (int t = 0; t < size; ++t)
        for (int s = 0; s < size; ++s)
            picture.at(s, t) = mix(bare.at(s, t), texel{0.80, 0.62, 0.12, 1.0}, 0.8 * mask.coverage(s, t));
    picture.save(path, false);
}
