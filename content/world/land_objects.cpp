// Shapes of the countryside and their picture.
#include "land_objects.h"

#include <math.h>
#include <stdio.h>

#include <algorithm>
#include <functional>

#include "canvas.h"
#include "noise.h"
#include "shape.h"
#include "wrap_noise.h"

namespace {
constexpr const char* texture_name = "countryside";
constexpr int field = 128, fields = 4;  // pixels a side, fields each way

// Fields of the picture. A tree takes its whole field.
constexpr cell leaves{0, 3}, needles{1, 3}, garden{2, 3}, tiles{3, 3};
constexpr cell plaster{0, 2}, plaster_front{1, 2}, boards{2, 2}, barn_gate{3, 2};
constexpr cell tin{0, 1}, tank{1, 1}, timber{2, 1}, chimney_stone{3, 1};
constexpr cell palings{0, 0};

// -- the picture

void rectangle(cairo_t* cr, double x, double y, double dx, double dy, const rgba& c) {
    cairo_rectangle(cr, x, y, dx, dy);
    set_colour(cr, c);
    cairo_fill(cr);
}

void grain(cairo_t* cr, double strength, unsigned seed) {
    constexpr int size = 2;
    for (int y = 0; y < field; y += size)
        for (int x = 0; x < field; x += size) {
            const double v = strength * (noise::hash(x, y, seed) - 0.5) +
                             strength * (noise::fractal(x / 20.0, y / 20.0, 3, seed) - 0.5);
            rectangle(cr, x, y, size, size, v > 0 ? rgba{1, 1, 1, v} : rgba{0, 0, 0, -v});
        }
}

// Tufts from dark below to light above, inside a shape that tells how wide it is at a height.
void foliage(cairo_t* cr, const std::function<double(double)>& half_width, double foot, double head,
             const rgba& dark, const rgba& light, double tuft, unsigned seed) {
    constexpr int tufts = 900;
    for (int n = 0; n < tufts; ++n) {
        const double f = static_cast<double>(n) / tufts, y = head + (foot - head) * (1.0 - f);
        const double up = f * (head - foot) + foot, half = half_width((up - foot) / (head - foot));
        const double x = 64.0 + half * (2.0 * noise::hash(n, 0, seed) - 1.0);
        const double shade = 0.65 * f + 0.35 * noise::hash(n, 1, seed) + (x < 64.0 ? 0.08 : -0.08);
        circle(cr, x, y, tuft * (0.5 + 0.8 * noise::hash(n, 2, seed)));
        set_colour(cr, mix(dark, light, shade));
        cairo_fill(cr);
    }
}

void draw_leaves(cairo_t* cr) {
    rectangle(cr, 59, 2, 10, 46, hex(0x4a3a2a));
    rectangle(cr, 60, 2, 3, 46, hex(0x6a563f));
    foliage(
        cr, [](double f) { return 52.0 * sqrt(fmax(4.0 * f * (1.0 - f), 0.0)); }, 34, 116, hex(0x27361a),
        hex(0x7d8f4a), 5.0, 201);
}

void draw_needles(cairo_t* cr) {
    rectangle(cr, 60, 2, 8, 26, hex(0x46331f));
    foliage(
        cr, [](double f) { return 40.0 * (1.0 - f) * (0.72 + 0.28 * fabs(sin(16.0 * f))) + 1.5; }, 16, 122,
        hex(0x1a2c1c), hex(0x4f6b42), 3.4, 202);
}

void draw_tiles(cairo_t* cr) {
    rectangle(cr, 0, 0, field, field, hex(0x7e3f2d));
    for (int row = 0; row < 16; ++row)
        for (int i = -1; i < 16; ++i)
            rectangle(cr, 8.0 * i + (row % 2 ? 4 : 0), 8.0 * row + 1, 7, 7,
                      mix(hex(0x77382a), hex(0xb4644a), noise::hash(i, row, 204)));
    grain(cr, 0.18, 205);
}

void draw_plaster(cairo_t* cr) {
    rectangle(cr, 0, 0, field, field, hex(0xd9cfb6));
    rectangle(cr, 0, 0, field, 12, hex(0x8e8474));
    grain(cr, 0.14, 206);
}

constexpr double window_places[][2] = {{14, 42}, {86, 42}, {14, 88}, {50, 88}, {86, 88}};
void draw_front(cairo_t* cr) {
    draw_plaster(cr);
    rectangle(cr, 50, 0, 28, 60, hex(0xe9e3d2));
    rectangle(cr, 53, 0, 22, 57, hex(0x4d5f4a));
    for (const auto& [x, y] : window_places) {
        rectangle(cr, x - 2, y - 3, 32, 30, hex(0xece6d6));
        rectangle(cr, x, y, 28, 25, hex(0x2f3d48));
        rectangle(cr, x + 13, y, 2, 25, hex(0xece6d6));
    }
}

void draw_front_by_night(cairo_t* cr) {
    rectangle(cr, 0, 0, field, field, {0, 0, 0});
    int n = 0;
    for (const auto& [x, y] : window_places)
        if (n++ % 2 == 0) {
            rectangle(cr, x, y, 28, 25, hex(0xffd68a));
            rectangle(cr, x + 13, y, 2, 25, {0, 0, 0});
        }
}

void draw_boards(cairo_t* cr) {
    for (int i = 0; i < 16; ++i)
        rectangle(cr, 8 * i, 0, 7.4, field, mix(hex(0x6d2a20), hex(0x8e3a2b), noise::hash(i, 0, 207)));
    rectangle(cr, 0, 0, field, 8, hex(0x6f675b));
    grain(cr, 0.2, 208);
}

void draw_gate(cairo_t* cr) {
    draw_boards(cr);
    rectangle(cr, 28, 0, 72, 84, hex(0xd8d2c4));
    for (const double x : {32.0, 66.0}) {
        rectangle(cr, x, 0, 30, 80, hex(0x5d241b));
        cairo_move_to(cr, x, 0);
        cairo_line_to(cr, x + 30, 80);
        cairo_set_line_width(cr, 4);
        set_colour(cr, hex(0xd8d2c4));
        cairo_stroke(cr);
    }
}

// Mown grass and beds that fade into the land around.
void draw_garden(cairo_t* cr) {
    constexpr double middle = field / 2.0, inner = 0.66, ragged = 0.3;
    constexpr int size = 2;
    for (int y = 0; y < field; y += size)
        for (int x = 0; x < field; x += size) {
            const double out = std::max(fabs(x + 1 - middle), fabs(y + 1 - middle)) / middle;
            const double rough = ragged * (noise::fractal(x / 12.0, y / 12.0, 3, 213) - 0.5);
            rgba c = mix(hex(0x55693a), hex(0x7c8d4f), noise::fractal(x / 25.0, y / 25.0, 4, 214));
            const double bed = noise::smooth(0.6, 0.68, noise::fractal(x / 30.0, y / 30.0, 3, 215));
            c = mix(c, hex(0x6b5a41), 0.7 * bed);
            c.a = 0.85 * (1.0 - noise::smooth(inner, 0.94, out + rough));
            rectangle(cr, x, y, size, size, c);
        }
}

// Posts, rails and boards with air between them.
void draw_palings(cairo_t* cr) {
    const rgba wood = hex(0xb9ae98);
    for (const double y : {36.0, 92.0}) rectangle(cr, 0, y, field, 10, wood);
    for (int i = 0; i < 8; ++i)
        rectangle(cr, 16 * i + 3, 0, 9, 112 + 12 * noise::hash(i, 0, 216),
                  mix(wood, hex(0x8d8271), noise::hash(i, 1, 216)));
}

void draw_tin(cairo_t* cr) {
    rectangle(cr, 0, 0, field, field, hex(0x84898a));
    for (int x = 0; x < field; x += 8) rectangle(cr, x, 0, 3, field, hex(0xa9aeae));
    grain(cr, 0.22, 209);
}

void plain(cairo_t* cr, const rgba& c, double strength, unsigned seed) {
    rectangle(cr, 0, 0, field, field, c);
    grain(cr, strength, seed);
}

void put(canvas& c, const char* name, const cell& at, const std::function<void(cairo_t*)>& draw) {
    const auto place = [](int n) { return static_cast<short>(n * field); };
    draw(c.open(name, {place(at.column), place(at.row), field, field}));
    c.close();
}

void draw_pictures(const std::string& textures) {
    canvas day(fields * field, fields * field), night(fields * field, fields * field);
    put(day, "leaves", leaves, draw_leaves);
    put(day, "needles", needles, draw_needles);
    put(day, "garden", garden, draw_garden);
    put(day, "palings", palings, draw_palings);
    put(day, "tiles", tiles, draw_tiles);
    put(day, "plaster", plaster, draw_plaster);
    put(day, "front", plaster_front, draw_front);
    put(day, "boards", boards, draw_boards);
    put(day, "gate", barn_gate, draw_gate);
    put(day, "tin", tin, draw_tin);
    put(day, "tank", tank, [](cairo_t* cr) { plain(cr, hex(0xb9c2c4), 0.16, 210); });
    put(day, "timber", timber, [](cairo_t* cr) { plain(cr, hex(0x6b5741), 0.25, 211); });
    put(day, "stone", chimney_stone, [](cairo_t* cr) { plain(cr, hex(0x8a7f72), 0.3, 212); });
    day.save(textures + texture_name + ".png", true);
    set_colour(night.pen(), {0, 0, 0});
    cairo_paint(night.pen());
    put(night, "front", plaster_front, draw_front_by_night);
    night.save(textures + texture_name + "_LIT.png", false);
}

// -- shapes

// Upright pictures that cross each other in the trunk.
void crossed(object_text& o, double height, double width, int planes, const cell& c) {
    for (int n = 0; n < planes; ++n) {
        const double a = M_PI * n / planes, x = 0.5 * width * cos(a), z = 0.5 * width * sin(a);
        o.face({-x, -0.3, -z}, {x, -0.3, z}, {x, height, z}, {-x, height, -z}, c);
    }
}

void tree(const std::string& path, double height, double width, const cell& c) {
    object_text o(texture_name);
    o.say("ATTR_no_cull");
    o.lod(0, 600);
    crossed(o, height, width, 3, c);
    o.lod(600, 6000);
    crossed(o, height, width, 2, c);
    o.save(path);
}

// One gable's triangle, as seen from the front.
void gable(object_text& o, const point& left, const point& right, const point& top, const cell& c) {
    const auto corner = [&](const point& p, double s, double t) {
        char line[120];
        snprintf(line, sizeof line, "%.3f %.3f %.3f  %.4f %.4f", p.x, p.y, p.z, (c.column + s) / fields,
                 (c.row + t) / fields);
        o.say(line);
    };
    o.say("tri");
    corner(right, 0.95, 0.55);
    corner(left, 0.05, 0.55);
    corner(top, 0.5, 0.95);
}

// Walls that reach into a slope, and a roof with its ridge along x that hangs over.
struct building {
    double dx, dz, wall, ridge;
    cell front, side, roof;
};
void gabled(object_text& o, const building& b) {
    constexpr double below = 2.0, over = 0.5;
    const double x = b.dx / 2, z = b.dz / 2;
    for (const double turn : {1.0, -1.0}) {
        const double xt = x * turn, zt = z * turn;
        o.face({-xt, 0, zt}, {xt, 0, zt}, {xt, b.wall, zt}, {-xt, b.wall, zt}, b.front);
        o.face({-xt, -below, zt}, {xt, -below, zt}, {xt, 0, zt}, {-xt, 0, zt}, b.side);
        o.face({xt, -below, zt}, {xt, -below, -zt}, {xt, b.wall, -zt}, {xt, b.wall, zt}, b.side);
        gable(o, {xt, b.wall, zt}, {xt, b.wall, -zt}, {xt, b.ridge, 0}, b.side);
        const double eave = b.wall - over * (b.ridge - b.wall) / z;
        const double xo = xt + over * turn, zo = zt + over * turn;
        o.face({-xo, eave, zo}, {xo, eave, zo}, {xo, b.ridge, 0}, {-xo, b.ridge, 0}, b.roof);
    }
}

void house(const std::string& path) {
    object_text o(texture_name);
    const building b = {11.0, 8.0, 4.8, 7.6, plaster_front, plaster, tiles};
    o.lod(0, 1500);
    o.say("ATTR_poly_os 1");
    o.floor(0.0, 0.05, 0.0, 34.0, 36.0, garden);  // beyond the fence, where it has faded out
    o.say("ATTR_poly_os 0");
    gabled(o, b);
    o.box({2.5, 5.6, 1.0}, 0.9, 2.8, 0.9, chimney_stone);
    o.box({-3.0, 0.0, -5.2}, 4.0, 2.6, 2.6, plaster, plaster, tiles);
    o.fence(11.0, 12.0, 1.0, palings);
    o.lod(1500, 8000);
    gabled(o, b);
    o.save(path);
}

void barn(const std::string& path) {
    object_text o(texture_name);
    const building b = {24.0, 13.0, 5.5, 10.5, barn_gate, boards, tin};
    o.lod(0, 2000);
    gabled(o, b);
    o.tube({16.5, -1.5, 0.0}, 2.6, 13.0, 2.6, 16, tank);
    o.cap({16.5, 11.5, 0.0}, 2.6, 1.6, 16, tin);
    o.lod(2000, 10000);
    gabled(o, b);
    o.tube({16.5, -1.5, 0.0}, 2.6, 13.0, 2.6, 6, tank);
    o.save(path);
}

void water_tower(const std::string& path) {
    object_text o(texture_name);
    constexpr double foot = 2.6, head = 1.9, leg_top = 16.0;
    o.lod(0, 2500);
    for (const double x : {-1.0, 1.0})
        for (const double z : {-1.0, 1.0})
            o.bar({foot * x, -1.0, foot * z}, {head * x, leg_top, head * z}, 0.35, timber);
    for (const double y : {5.0, 10.5}) {
        const double r = foot - (foot - head) * (y + 1.0) / (leg_top + 1.0);
        for (const double turn : {1.0, -1.0}) {
            o.bar({-r, y, r * turn}, {r, y, r * turn}, 0.2, timber);
            o.bar({r * turn, y, -r}, {r * turn, y, r}, 0.2, timber);
        }
    }
    o.say("ATTR_shade_smooth");
    o.tube({0, leg_top, 0}, 3.2, 5.0, 3.2, 20, tank);
    o.say("ATTR_shade_flat");
    o.cap({0, leg_top + 5.0, 0}, 3.5, 1.8, 20, tin);
    o.light({0, leg_top + 7.2, 0}, 98, 0, 0);
    o.lod(2500, 12000);
    o.tube({0, -1.0, 0}, 2.4, leg_top + 1.0, 1.8, 4, timber);
    o.tube({0, leg_top, 0}, 3.2, 5.0, 3.2, 8, tank);
    o.cap({0, leg_top + 5.0, 0}, 3.5, 1.8, 8, tin);
    o.save(path);
}
}  // namespace

const std::vector<std::string>& land_object_names() {
    static const std::vector<std::string> names = {"oak", "pine", "house", "barn", "water_tower"};
    return names;
}

void write_land_objects(const std::string& objects, const std::string& textures) {
    draw_pictures(textures);
    tree(objects + "oak.obj", 11.0, 11.0, leaves);
    tree(objects + "pine.obj", 17.0, 9.0, needles);
    house(objects + "house.obj");
    barn(objects + "barn.obj");
    water_tower(objects + "water_tower.obj");
}
