// Deserts, rock, salt, snow and the grounds of Mars.
#include <math.h>

#include <algorithm>

#include "land_pictures.h"

namespace {
double smooth(double from, double to, double v) {
    const double t = std::clamp((v - from) / (to - from), 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

void stones(ground_picture* p, double share, double smallest, double largest, const rgba& dark,
            const rgba& light, unsigned seed) {
    lot draw(seed);
    const double mean = 0.6 * smallest + 0.4 * largest;
    const int count = static_cast<int>(share * p->metres() * p->metres() / (M_PI * mean * mean));
    for (int i = 0; i < count; ++i) {
        const spot at = {draw.from(0, p->metres()), draw.from(0, p->metres())};
        const double size = draw.from(0, 1), r = smallest + (largest - smallest) * size * size * size;
        const rgba c = mix(dark, light, draw.from(0, 1));
        p->disc({at.x + 0.6 * r, at.y + 0.5 * r}, r, {0.03, 0.02, 0.02, 0.4});
        p->disc(at, r, c);
    }
}

// A plain with bushes of one kind, washed by thin channels that part and join.
void desert(ground_picture* p) {
    p->paint([p](double x, double y) {
        const double broad = spread(p->noise(x, y, 170, 5, 300), 1.4), fine = p->noise(x, y, 6, 2, 301) - 0.5;
        const double wash =
            smooth(0.80, 0.93, p->ridges(x + 90 * p->noise(x, y, 200, 3, 302), y, 330, 3, 303));
        const rgba ground =
            ramp(hex(0x8b7657), hex(0xa28c69), hex(0xb59f7c), 0.5 + 0.7 * (broad - 0.5) + 0.35 * fine);
        return mix(ground, hex(0xc2b08e), 0.25 * wash);
    });
    lot draw(304);
    const int count = static_cast<int>(p->metres() * p->metres() / 170.0);
    for (int i = 0; i < count; ++i) {
        const spot at = {draw.from(0, p->metres()), draw.from(0, p->metres())};
        if (draw.from(0, 1) > 0.35 + p->noise(at.x, at.y, 140, 3, 305)) continue;
        const double r = draw.from(1.0, 2.4);
        p->disc(at, r, mix(hex(0x555035), hex(0x746b4b), draw.from(0, 1)));
    }
}

// Bare hills: gullies run down between crests, pale debris in them.
void desert_rock(ground_picture* p) {
    p->paint([p](double x, double y) {
        const double bend = 120.0 * (p->noise(x, y, 300, 3, 310) - 0.5);
        const double crest = p->ridges(x + bend, y - bend, 240, 5, 311);
        const double sunny = p->ridges(x + bend - 6, y - bend - 6, 240, 5, 311) - crest;
        const double fine = p->noise(x, y, 8, 3, 312) - 0.5;
        const rgba stone =
            ramp(hex(0x5e4c3b), hex(0x7d674f), hex(0x9c8568), 0.5 + 0.4 * fine + 0.35 * (crest - 0.5));
        const rgba gully = mix(stone, hex(0xa8957a), 0.55 * (1.0 - smooth(0.1, 0.4, crest)));
        return shade(gully, 1.0 + std::clamp(-3.2 * sunny, -0.3, 0.3));
    });
    stones(p, 0.05, 1.0, 4.5, hex(0x55463a), hex(0x9c8a70), 313);
}

void dunes(ground_picture* p) {
    p->paint([p](double x, double y) {
        // whole crests over each edge, bent by the noise
        const double wave = (14.0 * x + 8.0 * y) / p->metres() + 2.4 * p->noise(x, y, 420, 4, 320);
        const double part = wave - floor(wave);
        const bool windward = part < 0.72;
        const double ripple = p->noise(x, y, 9, 2, 321) - 0.5;
        const double tone = windward ? 0.55 + 0.4 * part / 0.72 : 0.1;
        return ramp(hex(0xa58455), hex(0xc4a372), hex(0xd9bf90), std::clamp(tone + 0.25 * ripple, 0.0, 1.0));
    });
}

void wash(ground_picture* p) {
    p->paint([p](double x, double y) {
        const double thread = p->ridges(x, y + 40 * p->noise(x, y, 120, 3, 330), 140, 4, 331);
        const double fine = p->noise(x, y, 5, 2, 332) - 0.5;
        return ramp(hex(0x9b8c72), hex(0xb5a78c), hex(0xcfc3aa), 0.25 + 0.6 * thread + 0.4 * fine);
    });
    stones(p, 0.05, 0.8, 3.0, hex(0x837763), hex(0xcabfa9), 333);
    lot draw(334);
    for (int i = 0; i < 700; ++i)
        p->disc({draw.from(0, p->metres()), draw.from(0, p->metres())}, draw.from(1.5, 3.5), hex(0x5c6040));
}

// Crusts with polygons of cracks, damp stains.
void salt(ground_picture* p) {
    p->paint([p](double x, double y) {
        const double stain = spread(p->noise(x, y, 260, 4, 340), 1.5), fine = p->noise(x, y, 7, 3, 341) - 0.5;
        const double crack = smooth(0.90, 0.98, p->ridges(x, y, 55, 2, 342));
        const rgba crust =
            ramp(hex(0xb7ab95), hex(0xcdc4b2), hex(0xe0dacd), 0.3 + 0.55 * stain + 0.25 * fine);
        return mix(crust, hex(0xa0947d), 0.35 * crack);
    });
}

void beach(ground_picture* p) {
    p->paint([p](double x, double y) {
        const double broad = spread(p->noise(x, y, 110, 4, 350), 1.2), fine = p->noise(x, y, 4, 2, 351) - 0.5;
        return ramp(hex(0xa89a78), hex(0xc0b28f), hex(0xd4c8a8), 0.5 + 0.6 * (broad - 0.5) + 0.3 * fine);
    });
    stones(p, 0.004, 0.6, 2.2, hex(0x5f5a45), hex(0x8b8468), 352);
}

// Faces, ledges and screes.
void rock(ground_picture* p) {
    p->paint([p](double x, double y) {
        const double bend = 160.0 * (p->noise(x, y, 380, 4, 360) - 0.5);
        const double crest = p->ridges(x + bend, y + 0.6 * bend, 300, 6, 361);
        const double sunny = p->ridges(x + bend - 6, y + 0.6 * bend - 6, 300, 6, 361) - crest;
        const double fine = p->noise(x, y, 10, 3, 362) - 0.5,
                     vein = smooth(0.86, 0.95, p->ridges(x, y, 90, 3, 363));
        rgba stone =
            ramp(hex(0x57534c), hex(0x757067), hex(0x948e83), 0.5 + 0.5 * fine + 0.3 * (crest - 0.5));
        stone = mix(stone, hex(0x8f8a7c), 0.4 * (1.0 - smooth(0.1, 0.35, crest)));  // scree
        return shade(mix(stone, hex(0x3d3b37), 0.35 * vein), 1.0 + std::clamp(-3.6 * sunny, -0.34, 0.34));
    });
    stones(p, 0.03, 1.0, 5.0, hex(0x55524c), hex(0xa09a8e), 364);
}

void snow(ground_picture* p, bool is_ice) {
    p->paint([p, is_ice](double x, double y) {
        const double drift = p->noise(x, y + 60 * p->noise(x, y, 200, 3, 370), 240, 5, 371);
        const double sunny = p->noise(x - 8, y - 8 + 60 * p->noise(x, y, 200, 3, 370), 240, 5, 371) - drift;
        const rgba c = ramp(hex(is_ice ? 0xb4c6d0 : 0xd0d8e2), hex(is_ice ? 0xcbd8df : 0xe2e7ed),
                            hex(0xf3f5f8), 0.2 + 0.8 * drift);
        return shade(c, 1.0 + std::clamp(-2.0 * sunny, -0.09, 0.06));
    });
    if (!is_ice) return;
    p->change([p](double x, double y, const rgba& old) {
        const double split =
            smooth(0.93, 0.985, p->ridges(x + 50 * p->noise(x, y, 130, 3, 372), y, 160, 2, 373));
        return mix(old, hex(0x6f93a8), 0.6 * split);
    });
}

void craters(ground_picture* p, int count, double largest, unsigned seed) {
    lot draw(seed);
    for (int i = 0; i < count; ++i) {
        const spot at = {draw.from(0, p->metres()), draw.from(0, p->metres())};
        const double r = 3.0 + largest * pow(draw.from(0, 1), 4.0);
        p->glow(at, 1.7 * r, {0.95, 0.75, 0.58, 0.16});
        p->disc(at, r, {0.18, 0.09, 0.06, 0.22});
        p->disc({at.x + 0.28 * r, at.y + 0.28 * r}, 0.74 * r, {0.92, 0.68, 0.5, 0.16});
    }
}

void mars(ground_picture* p, const rgba& dark, const rgba& middle, const rgba& light, double size,
          unsigned seed) {
    p->paint([&](double x, double y) {
        const double broad = spread(p->noise(x, y, size, 5, seed), 1.4),
                     fine = p->noise(x, y, 7, 3, seed + 9) - 0.5;
        return ramp(dark, middle, light, 0.5 + 0.7 * (broad - 0.5) + 0.4 * fine);
    });
}
void mars_dust(ground_picture* p) {
    mars(p, hex(0x9c6642), hex(0xb57a52), hex(0xc99067), 260, 400);
    craters(p, 40, 26, 402);
}
void mars_plain(ground_picture* p) {
    mars(p, hex(0x7c4c33), hex(0x9a6345), hex(0xb27a58), 150, 410);
    stones(p, 0.09, 0.9, 4.5, hex(0x51352a), hex(0x96674c), 412);
    craters(p, 70, 22, 413);
}
void mars_dark(ground_picture* p) {
    mars(p, hex(0x3f322d), hex(0x53423a), hex(0x6b554a), 190, 420);
    p->change([p](double x, double y, const rgba& old) {
        return shade(old, 1.0 + 0.10 * sin(2.0 * M_PI *
                                           (floor(p->metres() / 38.0) * x / p->metres() +
                                            2.2 * p->noise(x, y, 260, 3, 422))));
    });
}
// Layers one above the other, worn back at different rates.
void mars_rock(ground_picture* p) {
    p->paint([p](double x, double y) {
        const double height = p->noise(x, y, 1100, 5, 430), band = 15.0 * height;
        const double sunny = p->noise(x - 7, y - 7, 300, 6, 434) - p->noise(x, y, 300, 6, 434);
        const double layer = 0.5 + 0.3 * sin(2.0 * M_PI * band) + 0.2 * sin(2.0 * M_PI * 2.7 * band);
        const double fine = p->noise(x, y, 9, 3, 431) - 0.5;
        return shade(ramp(hex(0x7d5139), hex(0x955f43), hex(0xa9724f), layer + 0.35 * fine),
                     1.0 + std::clamp(-5.0 * sunny, -0.3, 0.25));
    });
    stones(p, 0.05, 1.0, 5.5, hex(0x4c3226), hex(0xa1745a), 433);
}
void mars_ice(ground_picture* p) {
    p->paint([p](double x, double y) {
        const double drift = p->noise(x, y, 280, 5, 440), pit = smooth(0.7, 0.8, p->noise(x, y, 120, 4, 441));
        const rgba ice = ramp(hex(0xcdb9a8), hex(0xded0c3), hex(0xeee6dd), 0.2 + 0.8 * drift);
        return mix(ice, hex(0x9d7458), 0.55 * pit);
    });
}
}  // namespace

void draw_bare(land_class which, ground_picture* p) {
    switch (which) {
        case land_desert:
            desert(p);
            break;
        case land_desert_rock:
            desert_rock(p);
            break;
        case land_dunes:
            dunes(p);
            break;
        case land_wash:
            wash(p);
            break;
        case land_salt:
            salt(p);
            break;
        case land_beach:
            beach(p);
            break;
        case land_rock:
            rock(p);
            break;
        case land_snow:
            snow(p, false);
            break;
        case land_ice:
            snow(p, true);
            break;
        case land_mars_dust:
            mars_dust(p);
            break;
        case land_mars_plain:
            mars_plain(p);
            break;
        case land_mars_dark:
            mars_dark(p);
            break;
        case land_mars_rock:
            mars_rock(p);
            break;
        default:
            mars_ice(p);
    }
    p->even_out(240, 0.9);
}
