// Grass, scrub, woods: grounds by noise, with single plants over them.
#include <math.h>

#include "land_pictures.h"

namespace {
struct tones {
    rgba dark, middle, light;
};

// Broad patches, finer ones in them, and a grain.
void soil(ground_picture* p, const tones& c, double size, double contrast, unsigned seed) {
    p->paint([&](double x, double y) {
        const double broad = spread(p->noise(x, y, size, 5, seed), 1.5) - 0.5;
        const double fine = p->noise(x, y, 6.0, 2, seed + 20) - 0.5;
        return ramp(c.dark, c.middle, c.light, 0.5 + contrast * (broad + 0.5 * fine));
    });
}

// Lies over where the noise is high: another plant, bare earth.
void patches(ground_picture* p, const rgba& c, double size, double from, double to, double strength,
             unsigned seed) {
    p->change([&](double x, double y, const rgba& old) {
        const double v = p->noise(x, y, size, 5, seed);
        const double t = std::min(std::max((v - from) / (to - from), 0.0), 1.0);
        return mix(old, c, strength * t * t * (3.0 - 2.0 * t));
    });
}

// Crowns of trees or bushes; thickest where the noise is high. share: of the area that they would cover if
// they stood apart.
struct stand {
    double smallest, largest;  // radius, m
    double share;
    double gather;  // 0 evenly, 1 only in groves
    double grove;   // size of a grove, m
    rgba dark, light;
};

void plant(ground_picture* p, const stand& s, unsigned seed) {
    lot draw(seed);
    const double mean = 0.5 * (s.smallest + s.largest), area = p->metres() * p->metres();
    const int count = static_cast<int>(s.share * area / (M_PI * mean * mean));
    for (int i = 0; i < count; ++i) {
        const spot at = {draw.from(0, p->metres()), draw.from(0, p->metres())};
        const double size = draw.from(0, 1), tone = draw.from(0, 1), luck = draw.from(0, 1);
        const double v = spread(p->noise(at.x, at.y, s.grove, 4, seed + 1), 2.2);
        if (luck > 1.0 - s.gather + s.gather * v * v * 1.6) continue;
        p->crown(at, s.smallest + (s.largest - s.smallest) * size * size, mix(s.dark, s.light, tone));
    }
}

// A closed roof of crowns.
void canopy(ground_picture* p, const rgba& floor, const stand& s, unsigned seed) {
    p->paint([&](double, double) { return floor; });
    stand lower = s;
    lower.dark = shade(s.dark, 0.72), lower.light = shade(s.light, 0.72);
    plant(p, lower, seed);
    plant(p, s, seed + 5);
}

void grass_green(ground_picture* p) {
    soil(p, {hex(0x515a36), hex(0x656f42), hex(0x7c8450)}, 150, 0.8, 100);
    patches(p, hex(0x8d8a55), 90, 0.5, 0.75, 0.5, 101);
    plant(p, {2.0, 5.0, 0.012, 0.8, 200, hex(0x35451f), hex(0x4d5e2c)}, 102);
}
void grass_dry(ground_picture* p) {
    soil(p, {hex(0x8a7a4c), hex(0xa3925f), hex(0xb9a975)}, 160, 0.7, 110);
    patches(p, hex(0x7c7448), 70, 0.52, 0.72, 0.35, 111);
    plant(p, {2.5, 5.0, 0.02, 0.9, 180, hex(0x3c4525), hex(0x525a31)}, 112);
}
void savanna(ground_picture* p) {
    soil(p, {hex(0x83753f), hex(0x998a50), hex(0xab9d65)}, 150, 0.7, 120);
    patches(p, hex(0x8d5f3c), 120, 0.55, 0.8, 0.4, 121);
    plant(p, {2.5, 6.0, 0.09, 0.35, 150, hex(0x474b25), hex(0x676a37)}, 122);
}
void scrub(ground_picture* p) {
    soil(p, {hex(0x645c3c), hex(0x7d7350), hex(0x978b66)}, 120, 0.75, 130);
    patches(p, hex(0xa59671), 80, 0.55, 0.8, 0.5, 131);
    plant(p, {1.6, 4.2, 0.32, 0.45, 110, hex(0x42462a), hex(0x626341)}, 132);
}
void woods_open(ground_picture* p) {
    soil(p, {hex(0x6b6740), hex(0x827b50), hex(0x98905f)}, 130, 0.7, 140);
    plant(p, {2.5, 6.0, 0.34, 0.6, 130, hex(0x2f3b1f), hex(0x4a5730)}, 141);
}
void forest_broad(ground_picture* p) {
    canopy(p, hex(0x1f2815), {3.0, 6.5, 0.9, 0.0, 100, hex(0x2f4020), hex(0x566a33)}, 150);
    patches(p, hex(0x6d7a3c), 90, 0.55, 0.8, 0.28, 151);
}
void forest_conifer(ground_picture* p) {
    canopy(p, hex(0x1d2418), {2.0, 4.2, 1.0, 0.25, 90, hex(0x26331f), hex(0x43522f)}, 160);
    patches(p, hex(0x5f6144), 120, 0.6, 0.85, 0.4, 161);
}
void jungle(ground_picture* p) {
    canopy(p, hex(0x14200e), {3.0, 8.5, 1.0, 0.0, 90, hex(0x213a17), hex(0x47692a)}, 170);
    plant(p, {5.0, 9.5, 0.06, 0.0, 90, hex(0x3f6228), hex(0x6b8440)}, 171);
}
void marsh(ground_picture* p) {
    soil(p, {hex(0x4a5431), hex(0x606a3e), hex(0x7a7f50)}, 90, 0.9, 180);
    p->change([p](double x, double y, const rgba& old) {
        const double channel = p->ridges(x, y, 210, 4, 181), pool = p->noise(x, y, 60, 4, 182);
        const bool wet = channel > 0.845 || pool > 0.72;
        return wet ? mix(old, hex(0x2d3a3d), 0.85) : old;
    });
    plant(p, {1.5, 4.0, 0.05, 0.8, 120, hex(0x3b4726), hex(0x566233)}, 183);
}
void tundra(ground_picture* p) {
    soil(p, {hex(0x5d5a42), hex(0x77714f), hex(0x8d8562)}, 110, 0.9, 190);
    patches(p, hex(0x8f8b80), 50, 0.56, 0.74, 0.7, 191);
    patches(p, hex(0x54613a), 140, 0.52, 0.7, 0.5, 192);
    p->change([p](double x, double y, const rgba& old) {
        return p->noise(x, y, 75, 3, 193) > 0.78 ? mix(old, hex(0x33424a), 0.9) : old;
    });
}
// Mown in stripes, worn at some places.
void airfield(ground_picture* p) {
    soil(p, {hex(0x60683d), hex(0x6f774a), hex(0x818754)}, 140, 0.5, 200);
    p->change([](double x, double, const rgba& old) {
        return shade(old, 1.0 + 0.035 * (fmod(x, 19.4) < 9.7 ? 1.0 : -1.0));
    });
    patches(p, hex(0x968c5c), 70, 0.58, 0.8, 0.5, 201);
}
void airfield_dry(ground_picture* p) {
    soil(p, {hex(0x8d7f60), hex(0xa09070), hex(0xb1a281)}, 150, 0.5, 210);
    patches(p, hex(0x86804f), 60, 0.58, 0.8, 0.5, 211);
    lot draw(212);
    for (int i = 0; i < 14; ++i) {  // tracks of trucks
        const spot a = {draw.from(0, p->metres()), draw.from(0, p->metres())};
        const double turn = draw.from(0, 6.28), length = draw.from(60, 240);
        p->line({a, {a.x + length * cos(turn), a.y + length * sin(turn)}}, 3.0, hex(0xb9ac8c, 0.35));
    }
}
}  // namespace

void draw_grown(land_class which, ground_picture* p) {
    switch (which) {
        case land_airfield:
            return airfield(p), p->even_out(250, 0.9);
        case land_airfield_dry:
            return airfield_dry(p), p->even_out(250, 0.9);
        case land_grass_green:
            grass_green(p);
            break;
        case land_grass_dry:
            grass_dry(p);
            break;
        case land_savanna:
            savanna(p);
            break;
        case land_scrub:
            scrub(p);
            break;
        case land_woods_open:
            woods_open(p);
            break;
        case land_forest_broad:
            forest_broad(p);
            break;
        case land_forest_conifer:
            forest_conifer(p);
            break;
        case land_jungle:
            jungle(p);
            break;
        case land_marsh:
            marsh(p);
            break;
        default:
            tundra(p);
    }
    p->even_out(220, 0.9);
}
