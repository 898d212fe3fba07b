// Fields: hedged ones, square sections, circles of water arms, orchards.
#include <math.h>

#include <algorithm>

#include "land_pictures.h"

namespace {
// A field by its corners in turn, ploughed along its first side.
void field(ground_picture* p, const std::vector<spot>& c, const rgba& crop, lot* draw) {
    p->shape(c, crop);
    const double length = hypot(c[3].x - c[0].x, c[3].y - c[0].y);
    const int rows = static_cast<int>(length / draw->from(9, 15));
    const rgba furrow = draw->chance(0.5) ? rgba{0, 0, 0, 0.07} : rgba{1, 1, 0.85, 0.07};
    for (int k = 1; k < rows; ++k) {
        const double t = static_cast<double>(k) / rows;
        const auto at = [t](spot a, spot b) { return spot{a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)}; };
        p->line({at(c[0], c[3]), at(c[1], c[2])}, 3.2, furrow);
    }
}

void weather(ground_picture* p, double strength, unsigned seed) {
    p->change([&](double x, double y, const rgba& old) {
        const double broad = p->noise(x, y, 90, 4, seed) - 0.5, fine = p->noise(x, y, 7, 2, seed + 1) - 0.5;
        return shade(old, 1.0 + strength * (0.8 * broad + 0.6 * fine));
    });
}

void trees_along(ground_picture* p, spot a, spot b, double apart, double chance, lot* draw) {
    const int count = static_cast<int>(hypot(b.x - a.x, b.y - a.y) / apart);
    for (int i = 0; i < count; ++i) {
        if (!draw->chance(chance)) continue;
        const double t = (i + draw->from(0, 1)) / count;
        p->crown({a.x + t * (b.x - a.x) + draw->from(-2, 2), a.y + t * (b.y - a.y) + draw->from(-2, 2)},
                 draw->from(2.0, 4.6), mix(hex(0x2d3b1e), hex(0x4b5b2d), draw->from(0, 1)));
    }
}

void farmstead(ground_picture* p, spot at, lot* draw) {
    p->box(at, 70, 60, 0, hex(0x7e7457));
    for (int i = 0; i < 5; ++i) {
        const spot b = {at.x + draw->from(-24, 24), at.y + draw->from(-20, 20)};
        const double dx = draw->from(9, 22), dy = draw->from(8, 13);
        p->box({b.x + 2.5, b.y + 2.0}, dx, dy, 0, {0, 0, 0, 0.4});
        p->box(b, dx, dy, 0, mix(hex(0x8d8f8f), hex(0xc9c8c2), draw->from(0, 1)));
    }
    for (int i = 0; i < 14; ++i)
        p->crown({at.x + draw->from(-36, 36), at.y + draw->from(-32, 32)}, draw->from(2.5, 5), hex(0x38472a));
}

// A net of crooked fields, with hedges and here and there a wood.
void farm_green(ground_picture* p) {
    constexpr int nx = 10, ny = 9;
    const double dx = p->metres() / nx, dy = p->metres() / ny;
    lot draw(500);
    spot node[ny][nx];
    for (auto& line : node)
        for (spot& s : line) s = {draw.from(-0.32, 0.32) * dx, draw.from(-0.32, 0.32) * dy};
    const auto at = [&](int i, int j) {
        const spot& s = node[(j + ny) % ny][(i + nx) % nx];
        return spot{i * dx + s.x, j * dy + s.y};
    };
    const rgba crops[] = {hex(0x5f7038), hex(0x6f7d42), hex(0x7f8a4c), hex(0x94914f), hex(0xa89d62),
                          hex(0x88714f), hex(0x6b6a3b), hex(0x566a35), hex(0x9f9a58), hex(0x77683f)};
    for (int j = 0; j < ny; ++j)
        for (int i = 0; i < nx; ++i) {
            const spot a = at(i, j), b = at(i + 1, j), c = at(i + 1, j + 1), d = at(i, j + 1);
            const auto between = [](spot u, spot v, double t) {
                return spot{u.x + t * (v.x - u.x), u.y + t * (v.y - u.y)};
            };
            if (draw.chance(0.45)) {
                const double t = draw.from(0.35, 0.65);
                field(p, {a, between(a, b, t), between(d, c, t), d}, crops[draw.below(10)], &draw);
                field(p, {between(a, b, t), b, c, between(d, c, t)}, crops[draw.below(10)], &draw);
            } else {
                field(p, draw.chance(0.5) ? std::vector<spot>{a, b, c, d} : std::vector<spot>{b, c, d, a},
                      crops[draw.below(10)], &draw);
            }
        }
    weather(p, 0.28, 501);
    for (int j = 0; j < ny; ++j)
        for (int i = 0; i < nx; ++i) {
            trees_along(p, at(i, j), at(i + 1, j), 7.5, 0.75, &draw);
            trees_along(p, at(i, j), at(i, j + 1), 7.5, 0.75, &draw);
            if (draw.chance(0.07)) farmstead(p, {at(i, j).x + 45, at(i, j).y + 42}, &draw);
            if (!draw.chance(0.09)) continue;
            const spot a = at(i, j), c = at(i + 1, j + 1);
            for (int n = 0; n < 420; ++n)
                p->crown({draw.from(a.x + 10, c.x - 10), draw.from(a.y + 10, c.y - 10)}, draw.from(3, 6),
                         mix(hex(0x2b391d), hex(0x4a5b2e), draw.from(0, 1)));
        }
    p->even_out(900, 0.5);
}

void section_roads(ground_picture* p, const rgba& way, double width) {
    const double mile = 0.5 * p->metres();
    for (int i = 0; i < 2; ++i) {
        p->line({{i * mile, 0}, {i * mile, p->metres()}}, width, way);
        p->line({{0, i * mile}, {p->metres(), i * mile}}, width, way);
    }
}

// Two miles by two of the great plains.
void farm_square(ground_picture* p) {
    const rgba crops[] = {hex(0x6d7a3f), hex(0x7d8848), hex(0xa3935b), hex(0xb4a56c),
                          hex(0x87704c), hex(0x5f6e37), hex(0x938a52), hex(0x9c8258)};
    lot draw(510);
    const double quarter = p->metres() / 4;
    for (int j = 0; j < 4; ++j)
        for (int i = 0; i < 4; ++i) {
            const int strips = 1 + draw.below(6);
            const bool upright = draw.chance(0.5);
            for (int k = 0; k < strips; ++k) {
                const double t1 = quarter * k / strips, t2 = quarter * (k + 1) / strips;
                const double x = i * quarter, y = j * quarter;
                const std::vector<spot> c =
                    upright ? std::vector<spot>{{x + t1, y + quarter},
                                                {x + t1, y},
                                                {x + t2, y},
                                                {x + t2, y + quarter}}
                            : std::vector<spot>{
                                  {x, y + t1}, {x + quarter, y + t1}, {x + quarter, y + t2}, {x, y + t2}};
                field(p, c, crops[draw.below(8)], &draw);
            }
        }
    weather(p, 0.22, 511);
    section_roads(p, hex(0xa99b78), 11);
    for (int i = 0; i < 7; ++i)
        farmstead(p, {p->metres() * draw.below(2) * 0.5 + 60, draw.from(0, p->metres())}, &draw);
    for (int i = 0; i < 6; ++i) {
        const spot a = {draw.from(0, p->metres()), draw.from(0, p->metres())};
        trees_along(p, a, {a.x + draw.from(-500, 500), a.y + draw.from(-500, 500)}, 8, 0.8, &draw);
    }
    p->even_out(1500, 0.5);
}

void circle_field(ground_picture* p, spot m, double r, const rgba& crop, lot* draw) {
    p->disc(m, r, crop);
    const double cut = draw->from(0, 6.28);
    std::vector<spot> slice = {m};
    for (int k = 0; k <= 10; ++k)
        slice.push_back({m.x + r * cos(cut + 0.13 * k), m.y + r * sin(cut + 0.13 * k)});
    if (draw->chance(0.6)) p->shape(slice, shade(crop, draw->from(0.75, 1.25)));
    p->line({m, {m.x + r * cos(cut), m.y + r * sin(cut)}}, 3.5, hex(0xd6d2c0, 0.7));
}

// Irrigated squares and circles with desert left between.
void farm_dry(ground_picture* p) {
    p->paint([p](double x, double y) {
        const double broad = spread(p->noise(x, y, 200, 4, 520), 1.2);
        return ramp(hex(0x94805f), hex(0xa9956f), hex(0xb9a681), broad);
    });
    const rgba green[] = {hex(0x52643a), hex(0x647243), hex(0x74804b), hex(0x5a6a38)};
    const rgba dry[] = {hex(0x9c8a62), hex(0xb3a078), hex(0x86724f), hex(0xa39467)};
    lot draw(521);
    const double quarter = p->metres() / 4;
    for (int j = 0; j < 4; ++j)
        for (int i = 0; i < 4; ++i) {
            const spot m = {(i + 0.5) * quarter, (j + 0.5) * quarter};
            const double kind = draw.from(0, 1), h = 0.5 * quarter - 8;
            if (kind < 0.38) {
                circle_field(p, m, h, draw.chance(0.7) ? green[draw.below(4)] : dry[draw.below(4)], &draw);
            } else if (kind < 0.85) {
                const int parts = 1 << draw.below(3);
                for (int k = 0; k < parts; ++k) {
                    const double x1 = m.x - h + 2 * h * k / parts, x2 = x1 + 2 * h / parts - 5;
                    field(p, {{x1, m.y + h}, {x1, m.y - h}, {x2, m.y - h}, {x2, m.y + h}},
                          draw.chance(0.55) ? green[draw.below(4)] : dry[draw.below(4)], &draw);
                }
            }
        }
    weather(p, 0.2, 522);
    section_roads(p, hex(0xbfb08d), 9);
    for (int k = 0; k < 2; ++k)  // a canal beside a road
        p->line({{0, k * 0.5 * p->metres() + 14}, {p->metres(), k * 0.5 * p->metres() + 14}}, 5,
                hex(0x4d6263));
    for (int i = 0; i < 4; ++i)
        farmstead(p, {p->metres() * 0.5 * draw.below(2) + 60, draw.from(0, p->metres())}, &draw);
    p->even_out(1500, 0.5);
}

void orchard(ground_picture* p) {
    p->paint([p](double x, double y) {
        const double broad = spread(p->noise(x, y, 80, 4, 530), 1.3);
        return ramp(hex(0x857049), hex(0x99855b), hex(0xa8966b), broad);
    });
    lot draw(531);
    constexpr int blocks = 4;
    const double side = p->metres() / blocks;
    for (int j = 0; j < blocks; ++j)
        for (int i = 0; i < blocks; ++i) {
            if (draw.chance(0.12)) continue;  // grubbed up
            const double apart = draw.from(6.5, 9.0), r = draw.from(2.0, 3.1);
            const rgba leaf = mix(hex(0x34491f), hex(0x566a34), draw.from(0, 1));
            for (double y = 9; y < side - 7; y += apart)
                for (double x = 9; x < side - 7; x += apart)
                    if (!draw.chance(0.03)) p->crown({i * side + x, j * side + y}, r, leaf);
        }
    weather(p, 0.16, 532);
    p->even_out(560, 0.6);
}
}  // namespace

void draw_farmed(land_class which, ground_picture* p) {
    switch (which) {
        case land_farm_green:
            return farm_green(p);
        case land_farm_square:
            return farm_square(p);
        case land_farm_dry:
            return farm_dry(p);
        default:
            return orchard(p);
    }
}
