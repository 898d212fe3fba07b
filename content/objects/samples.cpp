// Objects that show what else the format can do: smoke, strobes, a movie, a moving panel, a roof to land on.
#include <math.h>

#include "objects.h"

namespace {
// A works' chimney: two kinds of smoke, strobes that warn by day and night, three levels.
void chimney(const std::string& folder) {
    constexpr double top = 46.0;
    object_text o("samples");
    o.lod(0, 800);
    o.box({9, 0, 0}, 14, 7, 12, brick, windows, enamel);
    o.say("ATTR_shade_smooth");
    constexpr int lengths = 6;  // each takes the whole field of bricks
    const auto radius = [](double y) { return 2.6 - 0.9 * y / top; };
    for (int i = 0; i < lengths; ++i) {
        const double y1 = top * i / lengths, y2 = top * (i + 1) / lengths;
        o.tube({0, y1, 0}, radius(y1), y2 - y1, radius(y2), 20, brick);
    }
    o.say("ATTR_no_cull");  // its inside
    o.tube({0, top, 0}, 1.9, 0.9, 1.9, 24, enamel);
    o.say("ATTR_cull");
    for (const double y : {15.0, 30.0}) o.tube({0, y, 0}, radius(y) + 0.1, 0.5, radius(y) + 0.1, 20, enamel);
    for (int i = 0; i < 3; ++i) {
        const double a = 2 * M_PI * i / 3;
        o.light({2.2 * sin(a), top - 1, 2.2 * cos(a)}, 98, 0, 0);
    }
    o.say("smoke_black 0 47 0 3");
    o.say("smoke_white 13 7.5 -3 1.2");

    o.lod(800, 4000);
    o.box({9, 0, 0}, 14, 7, 12, brick, windows, enamel);
    o.say("ATTR_shade_smooth");
    o.tube({0, 0, 0}, 2.6, top + 0.9, 1.7, 10, brick);
    o.light({0, top + 1, 0}, 98, 0, 0);
    o.say("smoke_black 0 47 0 3");

    o.lod(4000, 12000);
    o.tube({0, 0, 0}, 2.6, top + 0.9, 1.7, 4, brick);
    o.light({0, top + 1, 0}, 98, 0, 0);
    o.save(folder + "chimney.obj");
}

// A picture house in the open: the movie runs after dark, and a traffic light stands at the gate.
void picture_house(const std::string& folder) {
    object_text o("samples");
    for (const double x : {-7.0, 0.0, 7.0}) o.bar({x, 0, -1.6}, {x, 9.5, -0.4}, 0.5, enamel);
    o.box({0, 2.5, -0.35}, 16, 8, 0.5, enamel);
    o.face({-7.7, 2.8, -0.05}, {7.7, 2.8, -0.05}, {7.7, 10.2, -0.05}, {-7.7, 10.2, -0.05}, enamel,
           "quad_movie");
    o.say("tri\n-8 10.5 -0.35 0.55 0.05\n0 12 -0.35 0.75 0.45\n8 10.5 -0.35 0.95 0.05");
    o.box({-4, 0, 14}, 8, 7, 6, brick, windows, enamel);
    o.bar({11, 0, 14}, {11, 3.2, 14}, 0.15, enamel);
    o.box({11, 3.2, 14}, 0.4, 0.9, 0.4, enamel);
    o.light({11, 3.8, 14.25}, 97, 0, 0);
    o.save(folder + "picture_house.obj");
}

// A trainer's desk that shows the present panel. Its cover is glossy, its lamp glows by itself.
void panel_desk(const std::string& folder) {
    object_text o("samples");
    o.say("ATTR_ambient_rgb 0.3 0.3 0.3\nATTR_difuse_rgb 0.7 0.7 0.7");
    o.say("ATTR_specular_rgb 0.9 0.9 0.9\nATTR_shiny_rat 90");
    o.box({0, 0, 0}, 2.2, 0.8, 1.0, enamel);
    o.say("tri_strip 4");  // the slope between desk and screen
    o.say(
        "-1.1 0.8 0.5  0.52 0.02\n-1.1 1.0 -0.2  0.52 0.48\n1.1 0.8 0.5  0.98 0.02\n1.1 1.0 -0.2  0.98 0.48");
    o.say("ATTR_reset");
    o.box({0, 0.9, -0.35}, 1.8, 1.3, 0.2, enamel);
    o.face({-0.8, 1.0, -0.24}, {0.8, 1.0, -0.24}, {0.8, 2.1, -0.24}, {-0.8, 2.1, -0.24}, enamel,
           "quad_cockpit");
    o.say("ATTR_emission_rgb 0.9 0.8 0.5");
    o.say("polygon 6");
    for (int i = 0; i < 6; ++i) {
        const double a = -2 * M_PI * i / 6;  // clockwise from the front
        const auto put = [](double v) { return std::to_string(v); };
        o.say(put(0.95 + 0.08 * cos(a)) + " " + put(2.25 + 0.08 * sin(a)) +
              " -0.3  0.512 0.984");  // a light spot
    }
    o.say("ATTR_emission_rgb 0 0 0");
    o.say("ATTR_some_day_more 1 2 3");  // what a reader does not know it passes over
    o.save(folder + "panel_desk.obj");
}

// A steel platform on legs that holds an aircraft, marked, with flashing lights at its corners.
void landing_deck(const std::string& folder) {
    constexpr double half = 14.0, y = 12.0;
    object_text o("samples");
    o.lod(0, 6000);
    o.floor(0, y, 0, 2 * half, 2 * half, enamel, "quad_hard");
    o.say("ATTR_no_cull");
    o.say("shade_flat");
    for (const double x : {-half, half})
        for (const double z : {-half, half}) {
            o.bar({x * 0.8, -6, z * 0.8}, {x * 0.8, y - 0.1, z * 0.8}, 0.9, enamel);
            o.light({x * 0.97, y + 0.3, z * 0.97}, -10, -7, -1);
        }
    for (const double z : {-half, half})
        o.face({-half, y - 1.2, z}, {half, y - 1.2, z}, {half, y, z}, {-half, y, z}, enamel);
    for (const double x : {-half, half})
        o.face({x, y - 1.2, -half}, {x, y - 1.2, half}, {x, y, half}, {x, y, -half}, enamel);
    o.say("ATTR_cull\nshade_smooth");
    o.say("ATTR_poly_os 2");  // painted on: it lies in the deck's plane
    o.floor(0, y, 0, 21, 21, deck);
    o.say("ATTR_poly_os 0");
    o.say("ATTR_no_depth");  // a board on the deck's rim that nothing hides
    o.face({-3, y - 1.1, half + 0.05}, {3, y - 1.1, half + 0.05}, {3, y - 0.1, half + 0.05},
           {-3, y - 0.1, half + 0.05}, brick);
    o.say("ATTR_depth");
    for (int i = 0; i < 8; ++i) o.line({-half + 4.0 * i, y, half}, {-half + 4.0 * i, y - 3, half + 2}, 4);
    o.light({0, y + 0.2, half * 0.97}, 3, 10, 3);
    o.save(folder + "landing_deck.obj");
}
}  // namespace

void write_samples(const std::string& folder) {
    chimney(folder);
    picture_house(folder);
    panel_desk(folder);
    landing_deck(folder);
}
