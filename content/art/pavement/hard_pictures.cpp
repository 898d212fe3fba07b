// Marks of hard runways, in metres on one of 45 m.
#include "hard_pictures.h"

#include <math.h>

#include <algorithm>
#include <filesystem>
#include <functional>

#include "paint.h"
#include "wrap_noise.h"

namespace {
using noise::smooth;
constexpr double middle = 0.5 * runway_metres;
constexpr texel white = {0.86, 0.86, 0.83, 1.0}, yellow = {0.80, 0.62, 0.12, 1.0};
constexpr int fine = 1024, coarse = 512;
using marks = std::function<void(paint_mask*)>;

// Of one surface: what all of its rows lie on.
struct surface {
    hard_surface kind;
    ground worn_fine, worn_coarse;
    explicit surface(hard_surface k) : kind(k), worn_fine(k, fine, true), worn_coarse(k, coarse, true) {}
};

// -- marks

void edge_stripes(paint_mask* m, double long_m = runway_metres) { m->boxes(middle - 1.8, 0.0, 0.9, long_m); }
void centre_dash(paint_mask* m) { m->box(middle - 0.45, 9.0, 0.9, 27.0); }

// So many on each side; the gap in the middle is twice as wide as those between.
void threshold_bars(paint_mask* m, int each_side, double unit) {
    edge_stripes(m);
    for (int i = 0; i < each_side; ++i) m->boxes(unit * (1.0 + 2.0 * i), 6.0, unit, 30.0);
}

void touchdown_bars(paint_mask* m, int each_side) {
    edge_stripes(m);
    centre_dash(m);
    for (int i = 0; i < each_side; ++i) m->boxes(9.0 + 3.3 * i, 3.0, 1.8, 22.5);
}

void arrow(paint_mask* m) {
    m->box(middle - 0.45, 3.0, 0.9, 26.0);
    m->shape({{middle - 3.0, 26.0}, {middle + 3.0, 26.0}, {middle, 39.0}});
}

void arrow_heads(paint_mask* m) {
    arrow(m);
    for (const double off : {-15.0, -7.5, 7.5, 15.0})
        m->shape({{middle + off - 1.7, 29.0}, {middle + off + 1.7, 29.0}, {middle + off, 39.0}});
    m->box(1.8, 43.0, runway_metres - 3.6, 1.8);
}

void chevrons(paint_mask* m) {
    m->line({{-2.0, 40.0 - middle - 2.0}, {middle, 40.0}, {runway_metres + 2.0, 40.0 - middle - 2.0}}, 0.9);
    // what of the row before reaches in is drawn there
    m->line({{-2.0, 62.5 - middle - 2.0}, {middle, 62.5}, {runway_metres + 2.0, 62.5 - middle - 2.0}}, 0.9);
    m->line({{-2.0, 17.5 - middle - 2.0}, {middle, 17.5}, {runway_metres + 2.0, 17.5 - middle - 2.0}}, 0.9);
    m->line({{-2.0, 85.0 - middle - 2.0}, {middle, 85.0}, {runway_metres + 2.0, 85.0 - middle - 2.0}}, 0.9);
}

void helipad(paint_mask* m) {
    m->ring(middle, middle, 18.0, 1.6);
    m->boxes(3.2, 11.5, 2.2, 22.0);
    m->box(middle - 3.4, middle - 1.1, 6.8, 2.2);
}

void turn_line(paint_mask* m) {
    m->line({{middle, 0.0},
             {middle + 1.5, 8.0},
             {middle + 6.0, 16.0},
             {middle + 13.0, 21.0},
             {runway_metres, middle}},
            0.45);
}

// -- wear

double wear(double x, double y, double gone) {
    const double flakes = smooth(0.48, 0.85, ground_noise(x, y, 0.6, 4, 301));
    const double bald = smooth(0.55, 0.8, ground_noise(x, y, 5.0, 2, 302));
    const double off = fabs(x - middle);
    const double rolled = exp(-(off - 4.2) * (off - 4.2) / 7.0) * smooth(0.35, 0.8, streaks(x, y, 303));
    return std::clamp(0.94 - gone * (0.32 * flakes + 0.3 * bald) - 0.5 * rolled, 0.15, 1.0);
}

struct row_struct {
    int side, dy;   // texels across and along
    double metres;  // along
};
constexpr row_struct square = {fine, fine, runway_metres}, rough = {coarse, coarse, runway_metres},
                     quarter = {fine, fine / 4, runway_metres / 4},
                     half = {fine, fine / 2, runway_metres / 2};

// A short row ends as the next begins.
texel ground_of(const ground& from, const row_struct& row, int s, int t) {
    if (row.dy == row.side) return from.at(s, t);
    const int before_start = from.side() + t - row.dy;
    return mix(from.at(s, t), from.at(s, before_start), smooth(0.6, 1.0, (t + 1.0) / row.dy));
}

texel_picture painted(const ground& from, const row_struct& row, const marks& draw, const texel& paint,
                      bool with_outline, double gone = 1.0) {
    constexpr int soft = 5;
    paint_mask mask(row.side, row.dy, row.metres), around(row.side, row.dy, row.metres);
    draw(&mask);
    draw(&around);
    mask.soften(row.side == fine ? soft : soft - 2);
    around.soften(row.side == fine ? 3 * soft : 2 * soft - 1);
    texel_picture picture(row.side, row.dy);
    for (int t = 0; t < row.dy; ++t)
        for (int s = 0; s < row.side; ++s) {
            const double x = (s + 0.5) / row.side * runway_metres, y = (t + 0.5) / row.dy * row.metres;
            texel c = ground_of(from, row, s, t);
            // on light concrete paint has a dark rim
            if (with_outline) c = mix(c, shade(c, 0.66), smooth(0.05, 0.5, around.coverage(s, t)));
            const double cover = mask.coverage(s, t) * wear(x, y, gone);
            picture.at(s, t) = mix(c, shade(paint, 0.88 + 0.2 * (c.r + c.g + c.b) / 3.0), cover);
        }
    return picture;
}

// -- shoulders

// s from the runway's edge outward: its own sealing, cracks with weeds, then the ground takes over.
texel_picture shoulder(hard_surface kind, unsigned seed) {
    constexpr double deep = 11.25;  // m, a quarter of the runway's width
    const ground bare(kind, coarse, false);
    texel_picture picture(coarse, coarse);
    for (int t = 0; t < coarse; ++t)
        for (int s = 0; s < coarse; ++s) {
            const double x = (s + 0.5) / coarse * deep, y = (t + 0.5) / coarse * runway_metres;
            const double dust = smooth(1.0, deep, x + 4.0 * (ground_noise(x, y, 3.0, 3, seed) - 0.5));
            const texel soil =
                shade({0.42, 0.37, 0.27, 1.0}, 0.8 + 0.4 * ground_noise(x, y, 1.2, 3, seed + 1));
            texel c = shade(bare.at(s / 4, t), kind == asphalt ? 0.86 : 0.9);
            const double weeds = smooth(0.6, 0.8, ground_noise(x, y, 1.6, 3, seed + 2)) * smooth(2.0, 9.0, x);
            c = mix(c, soil, 0.25 + 0.7 * dust * dust);
            picture.at(s, t) =
                mix(c, shade({0.30, 0.36, 0.17, 1.0}, 0.8 + 0.4 * ground_noise(x, y, 0.7, 2, seed + 3)),
                    0.7 * weeds);
        }
    return picture;
}

std::string number_text(int n) { return (n < 10 ? "0" : "") + std::to_string(n); }

void draw_characters(const std::string& folder, const surface& on) {
    const auto row = [&](const std::string& name, const std::string& text) {
        const marks draw = [&text](paint_mask* m) {
            edge_stripes(m, quarter.metres);
            if (!text.empty()) m->text(text.c_str(), middle, 1.1);
        };
        painted(on.worn_fine, quarter, draw, white, on.kind == concrete)
            .save(folder + "rway_" + name + ".png", false);
    };
    for (const char* letter : {"L", "C", "R"}) row(letter, letter);
    row("space", "");
    for (int n = 1; n <= 36; ++n) row(std::to_string(n), number_text(n));
    const marks semi = [](paint_mask* m) {
        edge_stripes(m, half.metres);
        m->box(middle - 0.45, 6.0, 0.9, 16.5);
    };
    painted(on.worn_fine, half, semi, white, on.kind == concrete).save(folder + "rway_semi.png", false);
}
}  // namespace

void draw_hard_pictures(const std::string& runways, hard_surface kind) {
    const std::string folder = runways + (kind == asphalt ? "/asphalt/" : "/concrete/");
    std::filesystem::create_directories(folder + "numbers");
    const surface on(kind);
    const ground bare(kind, coarse, false);
    const bool light = kind == concrete;
    const struct {
        const char* name;
        row_struct row;
        const ground* from;
        texel paint;
        marks draw;
    } rows[] = {
        {"rway_blas", rough, &on.worn_coarse, yellow, chevrons},
        {"rway_dis1", rough, &on.worn_coarse, white, [](paint_mask* m) { edge_stripes(m), arrow(m); }},
        {"rway_dis2", rough, &on.worn_coarse, white, [](paint_mask* m) { edge_stripes(m), arrow(m); }},
        {"rway_dis3", rough, &on.worn_coarse, white, [](paint_mask* m) { edge_stripes(m), arrow_heads(m); }},
        {"rway_thr0", square, &on.worn_fine, white,
         [](paint_mask* m) { edge_stripes(m), m->box(1.8, 1.0, runway_metres - 3.6, 1.8); }},
        {"rway_thr1", square, &on.worn_fine, white, [](paint_mask* m) { threshold_bars(m, 4, 2.4); }},
        {"rway_thr2", square, &on.worn_fine, white, [](paint_mask* m) { threshold_bars(m, 6, 1.65); }},
        {"rway_fdmk", square, &on.worn_fine, white,
         [](paint_mask* m) { edge_stripes(m), centre_dash(m), m->boxes(9.0, 0.6, 9.0, 43.8); }},
        {"rway_tdz1", square, &on.worn_fine, white, [](paint_mask* m) { touchdown_bars(m, 1); }},
        {"rway_tdz2", square, &on.worn_fine, white, [](paint_mask* m) { touchdown_bars(m, 2); }},
        {"rway_tdz3", square, &on.worn_fine, white, [](paint_mask* m) { touchdown_bars(m, 3); }},
        {"rway_line", square, &on.worn_fine, white, [](paint_mask* m) { edge_stripes(m), centre_dash(m); }},
        {"rway_turn", rough, &bare, yellow, turn_line},
        {"rway_pave", rough, &bare, white, [](paint_mask*) {}},
        {"helipad", rough, &bare, white, helipad},
    };
    for (const auto& row : rows) {
        texel_picture picture = painted(*row.from, row.row, row.draw, row.paint, light);
        picture.save(folder + row.name + ".png", false);
    }
    // the displaced area begins behind a yellow bar
    texel_picture first = painted(
        on.worn_coarse, rough, [](paint_mask* m) { edge_stripes(m), arrow(m); }, white, light);
    paint_mask bar(coarse, coarse, runway_metres);
    bar.box(1.8, 0.0, runway_metres - 3.6, 0.9);
    bar.soften(3);
    for (int t = 0; t < coarse; ++t)
        for (int s = 0; s < coarse; ++s)
            first.at(s, t) = mix(first.at(s, t), yellow, 0.8 * bar.coverage(s, t));
    first.save(folder + "rway_dis1.png", false);
    shoulder(kind, 401).save(folder + "rway_shoulder_l.png", false);
    shoulder(kind, 451).save(folder + "rway_shoulder_r.png", false);
    draw_characters(folder + "numbers/", on);
}
