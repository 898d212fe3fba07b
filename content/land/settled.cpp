// Towns by day and night: one plan of streets, houses and lamps, drawn twice.
#include <math.h>

#include <algorithm>

#include "land_pictures.h"

namespace {
struct street {
    std::vector<spot> way;
    double width;  // m
};
struct house {
    spot at;
    double dx, dy, turn, height;
    rgba roof;
};
struct area {
    std::vector<spot> corners;
    rgba ground;
};
struct lamp {
    spot at;
    double reach;
    rgba light;
};
struct pool_of_water {
    spot at;
    double dx, dy;
};

struct town {
    double size;  // m, each way
    std::vector<area> areas;
    std::vector<street> streets;
    std::vector<house> houses;
    std::vector<pool_of_water> pools;
    std::vector<std::pair<spot, double>> trees;
    std::vector<lamp> lamps;
};

const rgba sodium = hex(0xffb45e), white_lamp = hex(0xfff0d2);

struct look {
    rgba ground[3];
    rgba leaf_dark, leaf_light;
    rgba roofs[6];
    double pools;  // chance that a house has one
    double trees;  // for each house
};
const look moist = {
    {hex(0x4f5b35), hex(0x626d42), hex(0x767e50)},
    hex(0x2f3d20),
    hex(0x4f6031),
    {hex(0x6d6560), hex(0x7d5a4a), hex(0x57585c), hex(0x8b8178), hex(0x704a3c), hex(0x94908a)},
    0.02,
    2.6};
const look dry = {{hex(0x786d50), hex(0x8b8061), hex(0x9d9272)},
                  hex(0x39452a),
                  hex(0x5a6439),
                  {hex(0x9c8672), hex(0xa87a5c), hex(0x8c8881), hex(0xb5aa9b), hex(0x93654c), hex(0xc2bcb0)},
                  0.22,
                  1.3};

void add_lamps(town* t, const std::vector<spot>& way, double apart, double reach, const rgba& light,
               lot* draw) {
    for (size_t i = 1; i < way.size(); ++i) {
        const spot a = way[i - 1], b = way[i];
        const double length = hypot(b.x - a.x, b.y - a.y);
        for (double at = apart * draw->from(0.2, 0.8); at < length; at += apart)
            t->lamps.push_back(
                {{a.x + (b.x - a.x) * at / length, a.y + (b.y - a.y) * at / length}, reach, light});
    }
}

void add_street(town* t, const std::vector<spot>& way, double width, lot* draw) {
    t->streets.push_back({way, width});
    const bool wide = width > 12;
    add_lamps(t, way, wide ? 42 : 55, wide ? 26 : 17, draw->chance(0.25) ? white_lamp : sodium, draw);
}

// Houses on both sides of a way, in gardens.
void add_houses(town* t, const std::vector<spot>& way, const look& l, lot* draw) {
    double carried = 14.0;  // m along the way since the last lot
    for (size_t i = 1; i < way.size(); ++i) {
        const spot a = way[i - 1], b = way[i];
        const double length = hypot(b.x - a.x, b.y - a.y), ux = (b.x - a.x) / length,
                     uy = (b.y - a.y) / length;
        for (double at = std::max(0.0, 18.0 - carried); at < length; at += draw->from(17, 22))
            for (const double side : {-1.0, 1.0}) {
                const double out = draw->from(16, 20);
                const spot h = {a.x + ux * at - uy * side * out, a.y + uy * at + ux * side * out};
                const double turn = atan2(uy, ux) * 180.0 / M_PI;
                t->houses.push_back({h, draw->from(11, 15), draw->from(9, 14), turn, draw->from(4, 6),
                                     l.roofs[draw->below(6)]});
                // the drive
                t->areas.push_back({{{h.x + uy * side * 4 - 1.6, h.y - ux * side * 4 - 1.6},
                                     {h.x + uy * side * out + 1.6, h.y - ux * side * out - 1.6},
                                     {h.x + uy * side * out + 1.6, h.y - ux * side * out + 1.6},
                                     {h.x + uy * side * 4 - 1.6, h.y - ux * side * 4 + 1.6}},
                                    hex(0xa5a097)});
                if (draw->chance(l.pools))
                    t->pools.push_back({{h.x - uy * side * 13 + draw->from(-3, 3), h.y + ux * side * 13},
                                        draw->from(5, 8),
                                        draw->from(3.5, 5)});
                for (double n = draw->from(0, l.trees); n > 0.5; n -= 1.0)
                    t->trees.push_back(
                        {{h.x + draw->from(-11, 11), h.y + draw->from(-11, 11)}, draw->from(2.0, 4.4)});
                if (draw->chance(0.35))
                    t->lamps.push_back(
                        {{h.x + draw->from(-4, 4), h.y + draw->from(-4, 4)}, 4.5, hex(0xffcf8a, 0.8)});
            }
        carried = fmod(length, 18.0);
    }
}

void add_hall(town* t, spot middle, double dx, double dy, double height, const rgba& roof) {
    t->houses.push_back({middle, dx, dy, 0, height, roof});
}

// A car park with its rows and a lamp for every few.
void add_car_park(town* t, spot m, double dx, double dy, lot* draw) {
    t->areas.push_back({{{m.x - dx / 2, m.y - dy / 2},
                         {m.x + dx / 2, m.y - dy / 2},
                         {m.x + dx / 2, m.y + dy / 2},
                         {m.x - dx / 2, m.y + dy / 2}},
                        hex(0x6a6a69)});
    for (double y = m.y - dy / 2 + 6; y < m.y + dy / 2 - 4; y += 11)
        for (double x = m.x - dx / 2 + 4; x < m.x + dx / 2 - 4; x += 3.1)
            if (draw->chance(0.55))
                t->areas.push_back({{{x, y}, {x + 2, y}, {x + 2, y + 4.4}, {x, y + 4.4}},
                                    mix(hex(0x3a3d42), hex(0xd2d2d0), draw->from(0, 1))});
    for (double y = m.y - dy / 2 + 14; y < m.y + dy / 2; y += 30)
        for (double x = m.x - dx / 2 + 14; x < m.x + dx / 2; x += 30)
            t->lamps.push_back({{x, y}, 24, white_lamp});
}

void add_shops(town* t, spot corner, double side, const look& l, lot* draw) {
    add_hall(t, {corner.x + 0.5 * side, corner.y + side - 24}, side - 30, 34, 7,
             mix(hex(0x9a958a), hex(0xb3aea3), draw->from(0, 1)));
    add_hall(t, {corner.x + side - 24, corner.y + 0.42 * side}, 32, 0.6 * side, 6, l.roofs[3]);
    add_car_park(t, {corner.x + 0.42 * side, corner.y + 0.4 * side}, 0.62 * side, 0.55 * side, draw);
}

// A school with its field, or a park.
void add_green(town* t, spot corner, double side, const look& l, bool school, lot* draw) {
    const auto at = [&](double u, double v) { return spot{corner.x + u * side, corner.y + v * side}; };
    const rgba grass = mix(l.ground[1], hex(0x616e45), 0.6);
    t->areas.push_back({{at(0.08, 0.08), at(0.92, 0.08), at(0.92, 0.92), at(0.08, 0.92)}, grass});
    if (school) {
        std::vector<spot> track;
        for (int k = 0; k < 24; ++k)
            track.push_back({corner.x + side * 0.66 + 36 * cos(k * M_PI / 12),
                             corner.y + side * 0.5 + 62 * sin(k * M_PI / 12)});
        t->areas.push_back({track, hex(0x9a5f48)});
        for (spot& s : track)
            s = {corner.x + side * 0.66 + 0.78 * (s.x - corner.x - side * 0.66),
                 corner.y + side * 0.5 + 0.85 * (s.y - corner.y - side * 0.5)};
        t->areas.push_back({track, hex(0x6a7448)});
        for (int k = 0; k < 3; ++k) add_hall(t, at(0.25, 0.25 + 0.24 * k), 60, 22, 6, l.roofs[3]);
    }
    for (int k = 0; k < (school ? 25 : 120); ++k)
        t->trees.push_back({at(draw->from(0.1, 0.9), school ? draw->from(0.08, 0.14) : draw->from(0.1, 0.9)),
                            draw->from(3, 6)});
}

// Streets of one superblock: rows one way or the other, or bent ones.
void add_quarter(town* t, spot corner, double side, const look& l, lot* draw) {
    const double kind = draw->from(0, 1);
    const int rows = std::max(2, static_cast<int>(lround(side / 72)));
    const bool upright = draw->chance(0.5);
    const double bend = kind > 0.55 ? draw->from(14, 26) : 0.0, phase = draw->from(0, 6.28);
    const auto at = [&](double along, double across) {
        const double off = bend * sin(M_PI * 2.0 * along / side + phase) * sin(M_PI * along / side);
        return upright ? spot{corner.x + across + off, corner.y + along}
                       : spot{corner.x + along, corner.y + across + off};
    };
    for (int k = 0; k < rows; ++k) {
        const double across = side * (k + 0.5) / rows;
        std::vector<spot> way, built;
        for (int n = 0; n <= 12; ++n) way.push_back(at(side * n / 12, across));
        for (int n = 0; n <= 10; ++n) built.push_back(at(26 + (side - 52) * n / 10, across));
        add_street(t, way, 8.5, draw);
        add_houses(t, built, l, draw);
    }
}

town plan_suburb(double size, const look& l, unsigned seed) {
    town t{size, {}, {}, {}, {}, {}, {}};
    lot draw(seed);
    constexpr int quarters = 4;
    const double side = size / quarters;
    for (int j = 0; j < quarters; ++j)
        for (int i = 0; i < quarters; ++i) {
            const spot corner = {i * side, j * side};
            const double kind = draw.from(0, 1);
            if (kind > 0.5) {
                add_quarter(&t, corner, side, l, &draw);
                continue;
            }
            // a school, a park or shops take a quarter of it: small enough not to mark each repeat from above
            const int special = draw.below(4);
            const double half = 0.5 * side;
            for (int part = 0; part < 4; ++part) {
                const spot at = {corner.x + part % 2 * half, corner.y + part / 2 * half};
                if (part != special)
                    add_quarter(&t, at, half, l, &draw);
                else if (kind < 0.2)
                    add_shops(&t, {at.x + 14, at.y + 14}, half - 28, l, &draw);
                else
                    add_green(&t, at, half, l, kind < 0.35, &draw);
            }
        }
    for (int k = 0; k < quarters; ++k) {
        const double width = k % 2 == 0 ? 22 : 13;
        add_street(&t, {{k * side, 0}, {k * side, size}}, width, &draw);
        add_street(&t, {{0, k * side}, {size, k * side}}, width, &draw);
    }
    return t;
}

town plan_city(double size, unsigned seed) {
    town t{size, {}, {}, {}, {}, {}, {}};
    lot draw(seed);
    constexpr int blocks = 13;
    const double side = size / blocks;
    const rgba roofs[] = {hex(0x8b8984), hex(0xa8a49b), hex(0x75736f), hex(0xbdb9b0),
                          hex(0x977f70), hex(0x696d72), hex(0xcac7c0)};
    for (int j = 0; j < blocks; ++j)
        for (int i = 0; i < blocks; ++i) {
            const spot m = {(i + 0.5) * side, (j + 0.5) * side};
            const double inner = side - 24, kind = draw.from(0, 1);
            t.areas.push_back({{{m.x - inner / 2, m.y - inner / 2},
                                {m.x + inner / 2, m.y - inner / 2},
                                {m.x + inner / 2, m.y + inner / 2},
                                {m.x - inner / 2, m.y + inner / 2}},
                               hex(0x8e8b85)});
            if (kind < 0.1) {
                add_car_park(&t, m, inner - 6, inner - 6, &draw);
            } else if (kind < 0.15) {
                add_green(&t, {m.x - inner / 2, m.y - inner / 2}, inner, moist, false, &draw);
            } else {
                const int nx = 1 + draw.below(3), ny = 1 + draw.below(3);
                for (int v = 0; v < ny; ++v)
                    for (int u = 0; u < nx; ++u) {
                        if (draw.chance(0.1)) continue;
                        const double cx = inner / nx, cy = inner / ny, h = 8 + 40 * pow(draw.from(0, 1), 3);
                        const spot at = {m.x - inner / 2 + (u + 0.5) * cx, m.y - inner / 2 + (v + 0.5) * cy};
                        const double dx = cx - draw.from(3, 9), dy = cy - draw.from(3, 9);
                        const rgba roof = roofs[draw.below(7)];
                        add_hall(&t, at, dx, dy, h, roof);
                        for (int n = 0; n < 4; ++n)  // plant on the roof
                            add_hall(&t, {at.x + draw.from(-0.3, 0.3) * dx, at.y + draw.from(-0.3, 0.3) * dy},
                                     draw.from(3, 7), draw.from(3, 6), 3, shade(roof, draw.from(0.75, 1.2)));
                        for (int n = 0; n < 5; ++n)
                            t.lamps.push_back(
                                {{at.x + draw.from(-0.45, 0.45) * dx, at.y + draw.from(-0.45, 0.45) * dy},
                                 draw.from(3, 6),
                                 draw.chance(0.6) ? white_lamp : sodium});
                    }
            }
            for (int n = 0; n < 8; ++n)
                t.trees.push_back(
                    {{m.x + draw.from(-0.5, 0.5) * side, m.y + (draw.chance(0.5) ? 0.5 : -0.5) * (inner + 7)},
                     draw.from(1.8, 3.2)});
        }
    for (int k = 0; k < blocks; ++k) {
        const double width = k % 4 == 0 ? 24 : 14;
        add_street(&t, {{k * side, 0}, {k * side, size}}, width, &draw);
        add_street(&t, {{0, k * side}, {size, k * side}}, width, &draw);
    }
    return t;
}

town plan_industry(double size, unsigned seed) {
    town t{size, {}, {}, {}, {}, {}, {}};
    lot draw(seed);
    constexpr int blocks = 5;
    const double side = size / blocks;
    const rgba roofs[] = {hex(0xd5d4cf), hex(0xbebdb8), hex(0xa3a5a6),
                          hex(0xe2e0da), hex(0x8e9499), hex(0xc8bfae)};
    for (int j = 0; j < blocks; ++j)
        for (int i = 0; i < blocks; ++i) {
            const spot c = {i * side + 14, j * side + 14};
            const double inner = side - 28;
            t.areas.push_back(
                {{{c.x, c.y}, {c.x + inner, c.y}, {c.x + inner, c.y + inner}, {c.x, c.y + inner}},
                 mix(hex(0x7d7a73), hex(0x9b978c), draw.from(0, 1))});
            const int rows = 1 + draw.below(3);
            for (int v = 0; v < rows; ++v) {
                const double cy = inner / rows;
                double x = c.x + 8;
                while (x < c.x + inner - 40) {
                    const double dx = std::min(draw.from(45, 150), c.x + inner - 8 - x),
                                 dy = cy * draw.from(0.5, 0.75);
                    if (draw.chance(0.16)) {
                        add_car_park(&t, {x + dx / 2, c.y + (v + 0.5) * cy}, dx - 6, cy - 10, &draw);
                    } else if (draw.chance(0.12)) {  // tanks
                        for (double tx = x + 14; tx < x + dx - 10; tx += 26) {
                            std::vector<spot> ring;
                            for (int k = 0; k < 16; ++k)
                                ring.push_back({tx + 10 * cos(k * M_PI / 8),
                                                c.y + (v + 0.5) * cy + 10 * sin(k * M_PI / 8)});
                            t.areas.push_back({ring, hex(0xdedcd5)});
                        }
                    } else {
                        add_hall(&t, {x + dx / 2, c.y + (v + 0.5) * cy}, dx - 8, dy, 11,
                                 roofs[draw.below(6)]);
                        for (int n = 0; n < 10; ++n)  // trailers at the doors
                            if (draw.chance(0.6))
                                t.areas.push_back({{{x + 6 + n * 6, c.y + v * cy + 3},
                                                    {x + 9 + n * 6, c.y + v * cy + 3},
                                                    {x + 9 + n * 6, c.y + v * cy + 15},
                                                    {x + 6 + n * 6, c.y + v * cy + 15}},
                                                   mix(hex(0xc9c8c4), hex(0x6a6f78), draw.from(0, 1))});
                        t.lamps.push_back({{x + dx / 2, c.y + v * cy + 8}, 30, white_lamp});
                    }
                    x += dx;
                }
            }
        }
    for (int k = 0; k < blocks; ++k) {
        add_street(&t, {{k * side, 0}, {k * side, size}}, 14, &draw);
        add_street(&t, {{0, k * side}, {size, k * side}}, k == 2 ? 22 : 12, &draw);
    }
    return t;
}

town plan_village(double size, unsigned seed) {
    town t{size, {}, {}, {}, {}, {}, {}};
    lot draw(seed);
    constexpr int blocks = 3;
    const double side = size / blocks;
    for (int j = 0; j < blocks; ++j)
        for (int i = 0; i < blocks; ++i) {
            const rgba crops[] = {hex(0x6a7640), hex(0x858a50), hex(0x9b935d), hex(0x7d6f4b)};
            for (int v = 0; v < 2; ++v)
                for (int u = 0; u < 3; ++u) {
                    const double x = i * side + u * side / 3, y = j * side + v * side / 2;
                    t.areas.push_back(
                        {{{x, y}, {x + side / 3, y}, {x + side / 3, y + side / 2}, {x, y + side / 2}},
                         crops[draw.below(4)]});
                }
            std::vector<spot> way;
            for (int n = 0; n <= 10; ++n)
                way.push_back({i * side + side * n / 10.0, j * side + side * 0.5 + 30 * sin(n * 0.6283 + i)});
            add_street(&t, way, 7, &draw);
            if (draw.chance(0.75))
                add_houses(&t, {way[2], way[3], way[4], way[5], way[6], way[7]}, moist, &draw);
            for (int n = 0; n < 90; ++n)
                t.trees.push_back({{i * side + draw.from(0, side),
                                    j * side + (draw.below(3)) * side / 2 + draw.from(-5, 5)},
                                   draw.from(2.5, 5)});
        }
    for (int k = 0; k < blocks; ++k) add_street(&t, {{k * side, 0}, {k * side, size}}, 8, &draw);
    return t;
}

void draw_town(const town& t, const look& l, ground_picture* p, unsigned seed) {
    p->paint([&](double x, double y) {
        const double broad = spread(p->noise(x, y, 70, 4, seed), 1.4),
                     fine = p->noise(x, y, 7, 2, seed + 1) - 0.5;
        return ramp(l.ground[0], l.ground[1], l.ground[2], broad + 0.4 * fine);
    });
    for (const area& a : t.areas) p->shape(a.corners, a.ground);
    for (const street& s : t.streets) p->line(s.way, s.width + 4.5, hex(0x9a958a));  // pavements
    for (const street& s : t.streets) p->line(s.way, s.width, hex(0x656461));
    for (const street& s : t.streets)
        if (s.width > 18) p->line(s.way, 2.6, hex(0x7b7a5a));  // the planted middle
    for (const pool_of_water& w : t.pools) p->box(w.at, w.dx, w.dy, 0, hex(0x5f9fb0));
    for (const house& h : t.houses)
        p->box({h.at.x + 0.5 * h.height, h.at.y + 0.4 * h.height}, h.dx, h.dy, h.turn,
               {0.05, 0.05, 0.06, 0.5});
    for (const house& h : t.houses) {
        p->box(h.at, h.dx, h.dy, h.turn, h.roof);
        // the half of the roof that looks away from the sun
        const double s = sin(h.turn * M_PI / 180), c = cos(h.turn * M_PI / 180);
        if (h.height < 6.5)
            p->box({h.at.x - s * h.dy / 4, h.at.y + c * h.dy / 4}, h.dx, h.dy / 2, h.turn, {0, 0, 0, 0.16});
    }
    lot draw(seed + 3);
    for (const auto& [at, r] : t.trees) p->crown(at, r, mix(l.leaf_dark, l.leaf_light, draw.from(0, 1)));
    p->change([&](double x, double y, const rgba& old) {
        return shade(old, 1.0 + 0.1 * (p->noise(x, y, 9, 2, seed + 5) - 0.5));
    });
    p->even_out(0.2 * t.size, 0.75);
}

void draw_lights(const town& t, ground_picture* p) {
    p->paint([](double, double) { return rgba{0, 0, 0}; });
    for (const street& s : t.streets) p->line(s.way, s.width, {0.14, 0.09, 0.04, s.width > 12 ? 0.9 : 0.5});
    for (const lamp& l : t.lamps) {
        p->glow(l.at, l.reach, {l.light.r, l.light.g, l.light.b, 0.34 * l.light.a}, true);
        p->glow(l.at, 0.22 * l.reach, {l.light.r, l.light.g, l.light.b, 0.85 * l.light.a}, true);
    }
}

town plan_of(land_class which, double size, unsigned seed) {
    switch (which) {
        case land_city:
            return plan_city(size, seed);
        case land_industry:
            return plan_industry(size, seed);
        case land_suburb:
            return plan_suburb(size, moist, seed);
        case land_suburb_dry:
            return plan_suburb(size, dry, seed);
        default:
            return plan_village(size, seed);
    }
}
}  // namespace

void draw_settled(land_class which, bool night, ground_picture* p) {
    const unsigned seed = 600 + 10 * static_cast<unsigned>(which);
    const town t = plan_of(which, p->metres(), seed);
    if (night) return draw_lights(t, p);
    draw_town(t, which == land_industry || which == land_suburb_dry ? dry : moist, p, seed);
}
