// Walls and crates, decks, cars, a person, a parachute, balloons.
#include <math.h>

#include <algorithm>
#include <string>

#include "canvas.h"
#include "effects.h"
#include "noise.h"
#include "texel_picture.h"
#include "wrap_noise.h"

namespace {
using noise::smooth;

rgba darker(const rgba& c, double by) {
    return {std::min(c.r * by, 1.0), std::min(c.g * by, 1.0), std::min(c.b * by, 1.0), c.a};
}

void rectangle(cairo_t* cr, double x, double y, double dx, double dy, const rgba& c) {
    cairo_rectangle(cr, x, y, dx, dy);
    set_colour(cr, c);
    cairo_fill(cr);
}

void stroke(cairo_t* cr, double x1, double y1, double x2, double y2, double width, const rgba& c) {
    cairo_move_to(cr, x1, y1);
    cairo_line_to(cr, x2, y2);
    cairo_set_line_width(cr, width);
    set_colour(cr, c);
    cairo_stroke(cr);
}

// Dirt over a field, darker to its foot.
void weather(cairo_t* cr, double x, double y, double dx, double dy, double strength, unsigned seed) {
    constexpr int step = 4;
    for (int j = 0; j < dy; j += step)
        for (int i = 0; i < dx; i += step) {
            const double v = noise::fractal((x + i) / 40.0, (y + j) / 60.0, 4, seed) - 0.5 - 0.18 * (1.0 - j / dy);
            rectangle(cr, x + i, y + j, step, step, v > 0 ? rgba{1, 1, 1, v * strength} : rgba{0, 0, 0, -v * strength});
        }
}

// -- buildings: the left half above a quarter is the side of a cargo crate; walls and roofs in the rest

void draw_crate(cairo_t* cr) {
    constexpr double x = 0, y = 256, dx = 512, dy = 768;
    constexpr int planks = 8;
    for (int i = 0; i < planks; ++i) {
        const double lot = noise::hash(i, 3, 11);
        rectangle(cr, x + dx * i / planks, y, dx / planks, dy, darker(hex(0xa07c4c), 0.85 + 0.3 * lot));
        for (int k = 0; k < 5; ++k) {
            const double at = x + dx * (i + 0.12 + 0.19 * k) / planks;
            stroke(cr, at, y, at + 6 * (lot - 0.5), y + dy, 3, hex(0x5c4426, 0.25));
        }
        stroke(cr, x + dx * i / planks, y, x + dx * i / planks, y + dy, 5, hex(0x2c2012, 0.8));
    }
    for (const double at : {y + 30, y + dy / 2 - 30, y + dy - 90}) {
        rectangle(cr, x, at, dx, 60, hex(0x8c6a3e));
        rectangle(cr, x, at, dx, 5, hex(0x2c2012, 0.7));
        for (int i = 0; i < 16; ++i) {
            circle(cr, x + 16 + 32 * i, at + 30, 4);
            set_colour(cr, hex(0x3a3a3c));
            cairo_fill(cr);
        }
    }
    stroke(cr, x + 90, y + 90, x + dx - 90, y + dy / 2 - 40, 34, hex(0x7c5c34, 0.8));
    stroke(cr, x + 150, y, x + 150, y + dy, 18, hex(0x2e4a6a, 0.9));  // straps
    stroke(cr, x + dx - 150, y, x + dx - 150, y + dy, 18, hex(0x2e4a6a, 0.9));
    weather(cr, x, y, dx, dy, 0.5, 21);
}

void draw_wall(cairo_t* cr, double x, double y, const rgba& wall, const rgba& pane, int columns, int rows) {
    constexpr double side = 256;
    rectangle(cr, x, y, side, side, wall);
    const double cell_x = side / columns, cell_y = side / rows;
    for (int j = 0; j < rows; ++j)
        for (int i = 0; i < columns; ++i) {
            const double lot = noise::hash(static_cast<int>(x) + i, static_cast<int>(y) + j, 31);
            rectangle(cr, x + cell_x * (i + 0.2), y + cell_y * (j + 0.25), cell_x * 0.6, cell_y * 0.5,
                      darker(pane, 0.7 + 0.6 * lot));
        }
    weather(cr, x, y, side, side, 0.4, 41);
}

void draw_surfaces(const std::string& path) {
    canvas picture(1024, 1024);
    cairo_t* const cr = picture.pen();
    draw_crate(cr);
    draw_wall(cr, 512, 768, hex(0xb8a78c), hex(0x36454f), 6, 5);
    draw_wall(cr, 768, 768, hex(0x8c4a38), hex(0x3c4850), 5, 4);
    draw_wall(cr, 512, 512, hex(0x8e979d), hex(0x2c4152), 8, 8);
    draw_wall(cr, 768, 512, hex(0xd4cdbf), hex(0x44515a), 4, 3);
    rectangle(cr, 512, 256, 256, 256, hex(0x6c7378));  // corrugated iron
    for (int i = 0; i < 32; ++i) rectangle(cr, 512 + 8 * i, 256, 3, 256, hex(0x53595d));
    weather(cr, 512, 256, 256, 256, 0.6, 43);
    rectangle(cr, 768, 256, 256, 256, hex(0x7c3b2a));  // tiles
    for (int j = 0; j < 16; ++j)
        for (int i = 0; i < 16; ++i)
            rectangle(cr, 768 + 16 * i + (j % 2) * 8, 256 + 16 * j, 13, 13,
                      darker(hex(0x93503c), 0.8 + 0.4 * noise::hash(i, j, 44)));
    const rgba grounds[4] = {hex(0x4a4a4a), hex(0x9a9890), hex(0x6e6a60), hex(0x58636a)};  // flat roofs
    for (int i = 0; i < 4; ++i) {
        rectangle(cr, 256 * i, 0, 256, 256, grounds[i]);
        weather(cr, 256 * i, 0, 256, 256, 0.5, 51 + static_cast<unsigned>(i));
    }
    picture.save(path, false);
}

// -- a ship's deck: rough grey, lines to land by

void draw_deck(const std::string& path) {
    constexpr int side = 1024;
    canvas picture(side, side);
    cairo_t* const cr = picture.pen();
    rectangle(cr, 0, 0, side, side, hex(0x4b5054));
    weather(cr, 0, 0, side, side, 0.7, 61);
    for (int i = 1; i < 8; ++i) stroke(cr, 128.0 * i, 0, 128.0 * i, side, 4, hex(0x2f3336, 0.6));
    for (int i = 1; i < 4; ++i) stroke(cr, 0, 256.0 * i, side, 256.0 * i, 4, hex(0x2f3336, 0.6));
    for (int i = 0; i < 12; ++i) stroke(cr, 420 + 16.0 * i, 0, 430 + 16.0 * i, side, 5, hex(0x17191b, 0.18));
    for (int i = 0; i < 8; ++i) rectangle(cr, 505, 128.0 * i + 20, 14, 84, hex(0xd8c64a, 0.85));
    stroke(cr, 250, 0, 250, side, 16, hex(0xe6e6e0, 0.85));
    stroke(cr, 774, 0, 774, side, 16, hex(0xe6e6e0, 0.85));
    for (int i = 0; i < 16; ++i) rectangle(cr, 36, 64.0 * i, 22, 40, i % 2 ? hex(0xb03028, 0.85) : hex(0xe6e6e0, 0.85));
    weather(cr, 0, 0, side, side, 0.25, 62);
    picture.save(path, false);
}

// -- cars: eight of them, two in a row of a quarter's height; the side in the left three quarters of a field,
// front and roof in the rest

void draw_car(cairo_t* cr, double x, double y, const rgba& paint, bool is_van) {
    rectangle(cr, x, y, 256, 128, darker(paint, 0.8));
    rectangle(cr, x, y + 24, 192, is_van ? 84 : 52, paint);
    const double roof = is_van ? 104 : 100;
    polygon(cr, {{x + (is_van ? 8 : 40), y + 72}, {x + (is_van ? 20 : 66), y + roof}, {x + (is_van ? 184 : 140), y + roof}, {x + (is_van ? 190 : 172), y + 72}});
    set_colour(cr, hex(0x1c2730));
    cairo_fill(cr);
    stroke(cr, x + 104, y + 30, x + 104, y + roof, 6, paint);
    for (const double wheel : {40.0, 152.0}) {
        circle(cr, x + wheel, y + 24, 22);
        set_colour(cr, hex(0x18181a));
        cairo_fill(cr);
        circle(cr, x + wheel, y + 24, 10);
        set_colour(cr, hex(0x8f9498));
        cairo_fill(cr);
    }
    rectangle(cr, x + 192, y, 64, 64, darker(paint, 0.95));  // front
    rectangle(cr, x + 200, y + 34, 48, 22, hex(0x1c2730));
    for (const double lamp : {202.0, 236.0}) rectangle(cr, x + lamp, y + 14, 14, 10, hex(0xf2eeda));
    rectangle(cr, x + 192, y + 64, 64, 64, darker(paint, 1.06));  // roof
    rectangle(cr, x + 200, y + 72, 48, 12, hex(0x26323a));
}

void draw_cars(const std::string& path) {
    canvas picture(512, 512);
    const unsigned paints[8] = {0xb8bcc0, 0x7c1d1d, 0x23405f, 0xe6e6e2, 0x2a2c2e, 0x4f6a4a, 0xc79a3c, 0x8a8f94};
    for (int i = 0; i < 8; ++i)
        draw_car(picture.pen(), 256.0 * (i % 2), 128.0 * (i / 2), hex(paints[i]), i == 3 || i == 6);
    picture.save(path, false);
}

// -- a person, t from the feet to the head: the front in the left half, the back in the right; everything
// around takes the colour of the cloth at that height, since the picture has no alpha

void draw_person(const std::string& path) {
    canvas picture(512, 512);
    cairo_t* const cr = picture.pen();
    for (const double x : {0.0, 256.0}) {
        const bool front = x == 0.0;
        rectangle(cr, x, 0, 256, 40, hex(0x2b221c));    // shoes
        rectangle(cr, x, 40, 256, 200, hex(0x39475c));  // trousers
        rectangle(cr, x + 122, 40, 12, 170, hex(0x242e3e));
        rectangle(cr, x, 236, 256, 16, hex(0x3b2c1d));  // belt
        rectangle(cr, x, 250, 256, 170, hex(0xd6d6d6));  // jacket: takes the colour of its wearer
        rectangle(cr, x + 30, 250, 10, 150, hex(0xa8a8a8));
        rectangle(cr, x + 216, 250, 10, 150, hex(0xa8a8a8));
        if (front) rectangle(cr, x + 122, 250, 10, 165, hex(0x8f8f8f));
        rectangle(cr, x, 416, 256, 66, front ? hex(0xd0a183) : hex(0x45301f));  // face, or hair
        rectangle(cr, x, 474, 256, 38, hex(0x45301f));
        if (!front) continue;
        for (const double eye : {100.0, 144.0}) rectangle(cr, x + eye, 446, 14, 8, hex(0x33241b));
        rectangle(cr, x + 112, 424, 34, 6, hex(0x9a5c4c));
    }
    weather(cr, 0, 0, 512, 512, 0.15, 71);
    picture.save(path, false);
}

// -- parachute: gores in two colours, s around, t from the rim to the vent

void draw_chute(const std::string& path) {
    constexpr int gores = 16;
    texel_picture picture(512, 512);
    picture.paint([](double s, double t) {
        const double gore = s * gores, within = gore - floor(gore);
        const bool dark = static_cast<int>(gore) % 2 == 1;
        texel c = dark ? texel{0.86, 0.36, 0.14, 1} : texel{0.93, 0.91, 0.85, 1};
        const double bulge = 0.80 + 0.2 * sin(M_PI * within);  // cloth between two seams
        const double seam = 1.0 - smooth(0.01, 0.05, std::min(within, 1.0 - within));
        const double crease = 0.06 * (noise::wrapped_fractal(s, t, 32, 6, 3, 81) - 0.5);
        c = shade(c, bulge - 0.25 * seam + crease);
        return t < 0.03 || t > 0.97 ? shade(c, 0.6) : c;
    });
    picture.save(path, false);
}

// -- balloons, s around, t from the basket over the mouth to the crown. The lowest tenth is wicker.

texel balloon_cloth(int design, double s, double t) {
    constexpr int gores = 24;
    const int gore = static_cast<int>(s * gores);
    const auto pick = [](const texel* from, int n, int count) { return from[(n % count + count) % count]; };
    switch (design) {
        case 1: {  // a rainbow of gores
            static const texel c[] = {{0.80, 0.13, 0.12, 1}, {0.93, 0.52, 0.11, 1}, {0.97, 0.84, 0.20, 1},
                                      {0.20, 0.56, 0.25, 1}, {0.13, 0.35, 0.66, 1}, {0.42, 0.19, 0.52, 1}};
            return pick(c, gore, 6);
        }
        case 2: {  // zigzag bands
            static const texel c[] = {{0.10, 0.20, 0.42, 1}, {0.92, 0.90, 0.84, 1}, {0.74, 0.14, 0.16, 1}};
            const double zig = fabs(s * 12.0 - floor(s * 12.0) - 0.5);
            return pick(c, static_cast<int>(floor((t + 0.13 * zig) * 9.0)), 3);
        }
        case 3: {  // a spiral
            static const texel c[] = {{0.95, 0.78, 0.16, 1}, {0.83, 0.25, 0.10, 1}};
            return pick(c, static_cast<int>(floor(s * 12.0 + t * 8.0)), 2);
        }
        default: {  // checks under a plain crown
            static const texel c[] = {{0.12, 0.45, 0.42, 1}, {0.94, 0.93, 0.88, 1}};
            if (t > 0.78) return c[0];
            return pick(c, gore / 2 + static_cast<int>(floor(t * 11.0)), 2);
        }
    }
}

texel balloon_at(int design, double s, double t) {
    constexpr double basket = 0.1;
    constexpr int gores = 24;
    if (t < basket) {
        const int wave = static_cast<int>(s * 96.0) + static_cast<int>(t * 240.0);
        texel wicker = wave % 2 ? texel{0.50, 0.36, 0.20, 1} : texel{0.38, 0.26, 0.14, 1};
        return t > 0.088 ? texel{0.28, 0.17, 0.10, 1} : wicker;
    }
    const double within = s * gores - floor(s * gores);
    const double seam = 1.0 - smooth(0.02, 0.08, std::min(within, 1.0 - within));
    texel c = balloon_cloth(design, s, (t - basket) / (1.0 - basket));
    if (t < basket + 0.06) c = shade(c, 0.55);  // scorched around the mouth
    return shade(c, 0.9 + 0.1 * sin(M_PI * within) - 0.2 * seam);
}
}  // namespace

void draw_things(const std::string& folder) {
    draw_surfaces(folder + "buildings/surfaces.png");
    draw_deck(folder + "buildings/deck.png");
    draw_cars(folder + "cars.png");
    draw_person(folder + "person.png");
    draw_chute(folder + "chute.png");
    for (int design = 1; design <= 4; ++design) {
        texel_picture picture(512, 512);
        picture.paint([design](double s, double t) { return balloon_at(design, s, t); });
        picture.save(folder + "balloons/balloon" + std::to_string(design) + ".png", false);
    }
}
