// The textures of the default objects.
#include <math.h>

#include <array>
#include <functional>

#include "canvas.h"
#include "noise.h"
#include "objects.h"

namespace {
constexpr int field = 128;  // pixels a side

using painter = std::function<void(cairo_t*)>;

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

// Weather: fine grain, broad stains, darker to the foot.
void weather(cairo_t* cr, double grain, double stain, unsigned seed) {
    for (int y = 0; y < field; ++y)
        for (int x = 0; x < field; ++x) {
            const double fine = noise::hash(x, y, seed) - 0.5;
            const double broad = noise::fractal(x / 24.0, y / 40.0, 4, seed) - 0.5;
            const double v =
                grain * fine + stain * broad - 0.25 * stain * (1.0 - static_cast<double>(y) / field);
            rectangle(cr, x, y, 1, 1, v > 0 ? rgba{1, 1, 1, v} : rgba{0, 0, 0, -v});
        }
}

void plain(cairo_t* cr, const rgba& c, double grain, double stain, unsigned seed) {
    rectangle(cr, 0, 0, field, field, c);
    weather(cr, grain, stain, seed);
}

void wall_panels(cairo_t* cr) {
    rectangle(cr, 0, 0, field, field, hex(0xd9dbd6));
    for (int x = 0; x <= field; x += 32) stroke(cr, x, 0, x, field, 1.5, hex(0x8d918d, 0.7));
    rectangle(cr, 0, 0, field, 9, hex(0x6f7470));
    rectangle(cr, 0, field - 6, field, 6, hex(0xaeb3af));
    weather(cr, 0.06, 0.22, 1);
}

void door(cairo_t* cr) {
    wall_panels(cr);
    rectangle(cr, 44, 9, 42, 88, hex(0x4b5a63));
    rectangle(cr, 47, 9, 36, 85, hex(0x5f717b));
    rectangle(cr, 53, 62, 24, 22, hex(0x39454c));
    for (int y = 64; y < 84; y += 4) stroke(cr, 53, y, 77, y, 1.2, hex(0x7d8f99));
    rectangle(cr, 77, 46, 4, 6, hex(0xd0d4d6));
    rectangle(cr, 58, 103, 14, 8, hex(0xf1ead0));
    rectangle(cr, 100, 58, 18, 13, hex(0xe4c22c));
    stroke(cr, 103, 64, 115, 64, 2, hex(0x222222));
}

void vent(cairo_t* cr) {
    wall_panels(cr);
    rectangle(cr, 18, 60, 40, 34, hex(0x757b78));
    for (int y = 63; y < 93; y += 5) stroke(cr, 20, y, 56, y, 2, hex(0xb5bab6));
    rectangle(cr, 76, 18, 36, 50, hex(0xc3c8c4));
    rectangle(cr, 80, 22, 28, 42, hex(0xa4aaa6));
    cairo_arc(cr, 94, 43, 11, 0, 2 * M_PI);
    set_colour(cr, hex(0x5c625f));
    cairo_fill(cr);
    stroke(cr, 83, 43, 105, 43, 1.5, hex(0x9aa09c));
    stroke(cr, 94, 32, 94, 54, 1.5, hex(0x9aa09c));
}

void ribs(cairo_t* cr) {
    rectangle(cr, 0, 0, field, field, hex(0x7f8a8c));
    for (int x = 0; x < field; x += 16) {
        stroke(cr, x + 4, 0, x + 4, field, 3, hex(0xa5afb0));
        stroke(cr, x + 8, 0, x + 8, field, 2, hex(0x5b6466));
    }
    weather(cr, 0.08, 0.3, 2);
}

// A bay of a mast; what lies between its bars is clear.
void bay(cairo_t* cr, const rgba& c) {
    const rgba dark = mix(c, {0, 0, 0}, 0.35);
    for (const auto& [x1, y1, x2, y2, width] :
         {std::array{6.0, 0.0, 122.0, 128.0, 7.0}, std::array{122.0, 0.0, 6.0, 128.0, 7.0},
          std::array{0.0, 4.0, 128.0, 4.0, 8.0}}) {
        stroke(cr, x1, y1, x2, y2, width + 2, dark);
        stroke(cr, x1, y1, x2, y2, width - 1, c);
    }
    for (const double x : {0.0, 116.0}) {
        rectangle(cr, x, 0, 12, field, dark);
        rectangle(cr, x + 2, 0, 8, field, mix(c, {1, 1, 1}, 0.15));
    }
    cairo_arc(cr, 64, 64, 7, 0, 2 * M_PI);
    set_colour(cr, dark);
    cairo_fill(cr);
}

void mesh(cairo_t* cr) {
    for (int i = -field; i < 2 * field; i += 12) {
        stroke(cr, i, 0, i + field, field, 1.6, hex(0x9ba3a2));
        stroke(cr, i, field, i + field, 0, 1.6, hex(0x848c8b));
    }
    rectangle(cr, 0, 0, 7, field, hex(0x6d7574));
    rectangle(cr, 0, field - 6, field, 4, hex(0x8b9392));
    rectangle(cr, 0, 1, field, 3, hex(0x6d7574));
}

void slotted_dome(cairo_t* cr) {
    rectangle(cr, 0, 0, field, field, hex(0xe9e7dd));
    for (int x = 0; x < field; x += 16) stroke(cr, x + 8, 0, x + 8, field, 1, hex(0xb9b6a8));
    stroke(cr, 0, 40, field, 40, 2, hex(0xb9b6a8));
    rectangle(cr, 0, 96, field, 10, hex(0xc8472e));
    weather(cr, 0.05, 0.2, 3);
}

void counterpoise(cairo_t* cr) {
    rectangle(cr, 0, 0, field, field, hex(0x8f9799));
    for (int i = 0; i <= 16; ++i) {
        const double a = 2 * M_PI * i / 16;
        stroke(cr, 64, 64, 64 + 64 * cos(a), 64 + 64 * sin(a), 1.5, hex(0x6c7476));
    }
    for (int r = 12; r < 64; r += 13) {
        cairo_arc(cr, 64, 64, r, 0, 2 * M_PI);
        cairo_set_line_width(cr, 1.5);
        set_colour(cr, hex(0x747c7e));
        cairo_stroke(cr);
    }
    cairo_arc(cr, 64, 64, 62, 0, 2 * M_PI);
    cairo_set_line_width(cr, 3);
    set_colour(cr, hex(0xb4babb));
    cairo_stroke(cr);
    weather(cr, 0.08, 0.25, 4);
}

void orange_and_white(cairo_t* cr) {
    for (int i = 0; i < 4; ++i) rectangle(cr, 0, 32 * i, field, 32, i % 2 ? hex(0xe8e6de) : hex(0xd1522a));
    weather(cr, 0.06, 0.22, 5);
}

void rings(cairo_t* cr) {
    rectangle(cr, 0, 0, field, field, hex(0x5c3526));
    for (int y = 0; y < field; y += 16) {
        rectangle(cr, 0, y, field, 5, hex(0x3a2017));
        rectangle(cr, 0, y + 9, field, 3, hex(0x9a6650));
    }
    weather(cr, 0.05, 0.15, 6);
}

void pebbles(cairo_t* cr) {
    rectangle(cr, 0, 0, field, field, hex(0x8e887c));
    for (int i = 0; i < 2600; ++i) {
        const double x = 128 * noise::hash(i, 0, 7), y = 128 * noise::hash(i, 1, 7), g = noise::hash(i, 2, 7);
        cairo_arc(cr, x, y, 0.6 + 1.1 * noise::hash(i, 3, 7), 0, 2 * M_PI);
        set_colour(cr, mix(hex(0x6d685e), hex(0xb0aa9d), g));
        cairo_fill(cr);
    }
}

void slab(cairo_t* cr) {
    plain(cr, hex(0xa9a79f), 0.1, 0.3, 8);
    stroke(cr, 1, 0, 1, field, 2, hex(0x74726b));
    stroke(cr, 0, 1, field, 1, 2, hex(0x74726b));
}

void courses(cairo_t* cr) {
    rectangle(cr, 0, 0, field, field, hex(0x9b8f80));
    for (int row = 0; row < 16; ++row)
        for (int i = -1; i < 5; ++i) {
            const double x = 32 * i + (row % 2 ? 16 : 0), tint = noise::hash(i, row, 9);
            rectangle(cr, x + 1, 8 * row + 1, 30, 6, mix(hex(0x7c3a29), hex(0xb0634a), tint));
        }
    weather(cr, 0.1, 0.3, 10);
}

void storeys(cairo_t* cr, bool night) {
    if (!night) plain(cr, hex(0xb6aa94), 0.06, 0.2, 11);
    for (int row = 0; row < 3; ++row)
        for (int i = 0; i < 4; ++i) {
            const double x = 32 * i + 8, y = 42 * row + 12;
            const double lit = noise::hash(i, row, 12);
            if (!night) {
                rectangle(cr, x - 2, y - 3, 20, 27, hex(0xddd6c6));
                rectangle(cr, x, y, 16, 22, hex(0x2d3c49));
                rectangle(cr, x + 1, y + 12, 14, 9, hex(0x587086));
                stroke(cr, x + 8, y, x + 8, y + 22, 1.5, hex(0xddd6c6));
            } else if (lit > 0.45) {
                rectangle(cr, x, y, 16, 22, mix(hex(0xc98a3c), hex(0xffe2a0), lit));
                stroke(cr, x + 8, y, x + 8, y + 22, 1.5, hex(0x4a3316));
            }
        }
}

void landing_mark(cairo_t* cr) {
    rectangle(cr, 0, 0, field, field, hex(0x4d6a58));
    cairo_rectangle(cr, 3, 3, 122, 122);
    cairo_set_line_width(cr, 3);
    set_colour(cr, hex(0xe8e6de));
    cairo_stroke(cr);
    cairo_arc(cr, 64, 64, 48, 0, 2 * M_PI);
    cairo_set_line_width(cr, 6);
    set_colour(cr, hex(0xe6c23a));
    cairo_stroke(cr);
    for (const double x : {47.0, 81.0}) stroke(cr, x, 40, x, 88, 8, hex(0xe8e6de));
    stroke(cr, 47, 64, 81, 64, 8, hex(0xe8e6de));
    weather(cr, 0.08, 0.25, 13);
}

// By night: a lamp and the light that it throws on the wall around it.
void lamp_glow(cairo_t* cr, double x, double y, double reach, const rgba& c) {
    cairo_pattern_t* glow = cairo_pattern_create_radial(x, y, 1, x, y, reach);
    cairo_pattern_add_color_stop_rgba(glow, 0.0, c.r, c.g, c.b, 1.0);
    cairo_pattern_add_color_stop_rgba(glow, 0.25, c.r, c.g, c.b, 0.5);
    cairo_pattern_add_color_stop_rgba(glow, 1.0, c.r, c.g, c.b, 0.0);
    cairo_set_source(cr, glow);
    cairo_paint(cr);
    cairo_pattern_destroy(glow);
}

void put(canvas& c, const char* name, const cell& at, const painter& paint) {
    const auto place = [](int n) { return static_cast<short>(n * field); };
    paint(c.open(name, {place(at.column), place(at.row), field, field}));
    c.close();
}

void black(canvas& c, const std::function<void()>& lights) {
    set_colour(c.pen(), {0, 0, 0});
    cairo_paint(c.pen());
    lights();
}
}  // namespace

void draw_pictures(const std::string& folder) {
    canvas day(4 * field, 4 * field), night(4 * field, 4 * field);
    put(day, "wall", wall, wall_panels);
    put(day, "door", wall_door, door);
    put(day, "vent", wall_vent, vent);
    put(day, "roof", roof, ribs);
    put(day, "steel bay", lattice_steel, [](cairo_t* cr) { bay(cr, hex(0x8b9496)); });
    put(day, "red bay", lattice_red, [](cairo_t* cr) { bay(cr, hex(0xcf4a26)); });
    put(day, "white bay", lattice_white, [](cairo_t* cr) { bay(cr, hex(0xe4e2da)); });
    put(day, "fence", fence_mesh, mesh);
    put(day, "concrete", concrete, slab);
    put(day, "gravel", gravel, pebbles);
    put(day, "radome", radome, slotted_dome);
    put(day, "counterpoise", steel_mesh, counterpoise);
    put(day, "bands", bands, orange_and_white);
    put(day, "steel", steel, [](cairo_t* cr) { plain(cr, hex(0x8d9596), 0.08, 0.3, 14); });
    put(day, "insulator", insulator, rings);
    put(day, "orange", orange, [](cairo_t* cr) { plain(cr, hex(0xd1522a), 0.06, 0.25, 15); });
    day.save(folder + "navaids.png", true);

    black(night, [&] {
        put(night, "door", wall_door, [](cairo_t* cr) { lamp_glow(cr, 65, 104, 70, hex(0xffdf9a)); });
        put(night, "vent", wall_vent, [](cairo_t* cr) { lamp_glow(cr, 106, 26, 12, hex(0x40ff60)); });
    });
    night.save(folder + "navaids_LIT.png", false);

    canvas town(2 * field, 2 * field), town_night(2 * field, 2 * field);
    put(town, "brick", brick, courses);
    put(town, "windows", windows, [](cairo_t* cr) { storeys(cr, false); });
    put(town, "deck", deck, landing_mark);
    put(town, "enamel", enamel, [](cairo_t* cr) { plain(cr, hex(0x39434b), 0.04, 0.12, 16); });
    town.save(folder + "samples.png", false);
    black(town_night, [&] { put(town_night, "windows", windows, [](cairo_t* cr) { storeys(cr, true); }); });
    town_night.save(folder + "samplesLIT.png", false);
}
