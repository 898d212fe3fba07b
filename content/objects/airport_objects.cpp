// What stands beside runways: beacons, windsocks, buoys, signs. All signs share one texture.
#include <math.h>
#include <stdio.h>

#include <filesystem>

#include "canvas.h"
#include "objects.h"
#include "typeface.h"

namespace {
// -- landscape

// Legs of steel under a platform with a rail.
void beacon_tower(const std::string& folder, const std::string& name, bool is_lattice) {
    constexpr double top = 16.6;
    object_text o("navaids");
    o.lod(0, 1500);
    o.floor(0, 0.05, 0, 4.5, 4.5, concrete);
    if (is_lattice) {
        o.lattice({0, 0, 0}, 3.0, top, 1.1, lattice_red, lattice_white);
    } else {
        o.say("ATTR_shade_smooth");
        o.tube({0, 0, 0}, 0.55, top, 0.38, 10, bands);
        o.say("ATTR_shade_flat");
        o.bar({0.65, 0.3, 0.2}, {0.5, top, 0.2}, 0.08, steel);  // ladder
        o.bar({0.65, 0.3, -0.2}, {0.5, top, -0.2}, 0.08, steel);
    }
    o.box({0, top, 0}, 2.2, 0.12, 2.2, steel);
    o.fence(1.05, 1.05, 1.0, fence_mesh);
    o.lod(1500, 8000);
    o.box({0, 0, 0}, 1.0, top + 0.2, 1.0, is_lattice ? lattice_red : bands);
    o.save(folder + name + ".obj");
}

// The head, which turns about the tower's axis: a drum with a lens in front and one at the back.
void beacon_head(const std::string& folder) {
    constexpr double foot = 16.75, axis = 17.5;
    object_text o("navaids");
    o.lod(0, 3000);
    o.tube({0, foot, 0}, 0.18, 0.35, 0.14, 8, steel);
    o.box({0, foot + 0.35, 0}, 0.9, 0.8, 1.2, steel, radome, steel);
    for (const double z : {0.66, -0.66}) {
        o.say("ATTR_no_cull");
        o.face({-0.36, axis - 0.36, z}, {0.36, axis - 0.36, z}, {0.36, axis + 0.36, z}, {-0.36, axis + 0.36, z}, radome);
        o.say("ATTR_cull");
    }
    o.save(folder + "beacon3.obj");
}

// Its place is two metres above the water.
void buoy(const std::string& folder) {
    object_text o("navaids");
    o.lod(0, 2500);
    o.say("ATTR_shade_smooth");
    o.tube({0, -2.6, 0}, 0.55, 0.9, 0.75, 12, orange);
    o.cap({0, -1.7, 0}, 0.75, 0.15, 12, orange);
    o.tube({0, -1.6, 0}, 0.09, 1.5, 0.06, 8, bands);
    o.cap({0, -0.1, 0}, 0.16, 0.22, 8, orange);
    o.save(folder + "buoy.obj");
}

void powerline_tower(const std::string& folder) {
    constexpr double top = 32.0;
    object_text o("navaids");
    o.lod(0, 2500);
    o.lattice({0, 0, 0}, 6.0, 20.0, 2.0, lattice_steel, lattice_steel);
    o.lattice({0, 20, 0}, 2.0, top - 20.0, 0.8, lattice_steel, lattice_steel);
    for (const double y : {20.0, 24.5, 29.0}) {
        o.bar({-5.5, y, 0}, {5.5, y, 0}, 0.35, steel);
        for (const double x : {-5.2, 5.2}) o.tube({x, y - 1.4, 0}, 0.14, 1.4, 0.14, 6, insulator);
    }
    o.lod(2500, 9000);
    o.box({0, 0, 0}, 1.6, top, 1.6, lattice_steel);
    for (const double y : {20.0, 29.0}) o.bar({-5.5, y, 0}, {5.5, y, 0}, 0.5, steel);
    o.save(folder + "powerline_tower.obj");
}

void windsock_pole(const std::string& folder) {
    object_text o("navaids");
    o.lod(0, 2500);
    o.floor(0, 0.05, 0, 1.6, 1.6, concrete);
    o.say("ATTR_shade_smooth");
    o.tube({0, 0, 0}, 0.09, 3.5, 0.06, 8, bands);
    o.cap({0, 3.5, 0}, 0.12, 0.1, 8, steel);
    o.save(folder + "windsock_pole.obj");
}

// Hangs from its ring as in a calm; pitched by a quarter turn it streams towards the viewer, that is downwind
// of its heading.
void windsock_sock(const std::string& folder) {
    object_text o("navaids");
    o.lod(0, 4000);
    o.say("ATTR_no_cull");
    o.say("ATTR_shade_smooth");
    o.tube({0, -2.6, 0}, 0.18, 2.5, 0.38, 12, bands);
    o.tube({0, -0.1, 0}, 0.38, 0.08, 0.38, 12, steel);
    o.say("ATTR_cull");
    o.save(folder + "windsock_sock.obj");
}

// -- signs

constexpr int sign_fields = 8;
constexpr const char* red_characters = "0123456789LCR-";
constexpr cell black_digit(int digit) { return {digit - 1, 5, sign_fields}; }
constexpr cell red_blank{6, 6, sign_fields}, sign_back{3, 5, sign_fields}, sign_rim{4, 5, sign_fields},
    sign_leg{5, 5, sign_fields};

cell red_character(char c) {
    int n = 0;
    while (red_characters[n] != '\0' && red_characters[n] != c) ++n;
    return {n % sign_fields, 7 - n / sign_fields, sign_fields};
}

constexpr double sign_y = 0.35, sign_deep = 0.3;  // m above the ground; thickness

// A case on two legs that break off; its face looks towards the viewer.
void sign_case(object_text& o, double half, double high) {
    const double z = sign_deep / 2, top = sign_y + high;
    o.face({half, sign_y, -z}, {-half, sign_y, -z}, {-half, top, -z}, {half, top, -z}, sign_back);
    o.face({half, sign_y, z}, {half, sign_y, -z}, {half, top, -z}, {half, top, z}, sign_rim);
    o.face({-half, sign_y, -z}, {-half, sign_y, z}, {-half, top, z}, {-half, top, -z}, sign_rim);
    o.floor(0, top, 0, 2 * half, sign_deep, sign_rim);
    for (const double x : {-0.7 * half, 0.7 * half}) o.bar({x, -0.3, 0}, {x, sign_y, 0}, 0.09, sign_leg);
}

void sign_face(object_text& o, double x1, double x2, double high, const cell& c) {
    const double z = sign_deep / 2, top = sign_y + high;
    o.face({x1, sign_y, z}, {x2, sign_y, z}, {x2, top, z}, {x1, top, z}, c);
}

void taxi_sign(const std::string& path, const std::string& characters) {
    constexpr double wide = 0.52, high = 0.9, margin = 0.18;  // m
    const double half = 0.5 * wide * static_cast<double>(characters.size()) + margin;
    object_text o("airport_signs");
    o.lod(0, 1200);
    sign_case(o, half, high);
    sign_face(o, -half, -half + margin, high, red_blank);
    for (size_t i = 0; i < characters.size(); ++i) {
        const double x = -half + margin + wide * static_cast<double>(i);
        sign_face(o, x, x + wide, high, red_character(characters[i]));
    }
    sign_face(o, half - margin, half, high, red_blank);
    o.save(path);
}

void distance_sign(const std::string& path, int thousands) {
    constexpr double half = 0.75, high = 1.5;  // m
    object_text o("airport_signs");
    o.lod(0, 2500);
    sign_case(o, half, high);
    sign_face(o, -half, half, high, black_digit(thousands));
    o.save(path);
}

std::string two_digits(int number) {
    const int n = (number + 35) % 36 + 1;
    return (n < 10 ? "0" : "") + std::to_string(n);
}

// Alone and with each letter, then with the other end's name.
void signs_of(int number, const std::function<void(const std::string& name, const std::string& characters)>& make) {
    const std::string n = two_digits(number), r = two_digits(number + 18);
    for (const std::string letter : {"", "L", "C", "R"}) make(n + letter, n + letter);
    const struct {
        const char *here, *there;
    } ends[] = {{"", ""}, {"L", "R"}, {"C", "C"}, {"R", "L"}};
    for (const auto& end : ends)
        make(n + end.here + "_" + r + end.there + "_hold", n + end.here + "-" + r + end.there);
}

void for_each_taxi_sign(const std::function<void(const std::string& name, const std::string& characters)>& make) {
    for (int number = 1; number <= 36; ++number) signs_of(number, make);
}

// -- their texture

constexpr int side = 1024, sign_field = side / sign_fields;

void draw_character(canvas& c, const cell& at, char character, const rgba& ground, const rgba& ink) {
    char name[2] = {character, '\0'};
    cairo_t* const cr =
        c.open(std::string("sign ") + name + std::to_string(at.row),
               {static_cast<short>(at.column * sign_field), static_cast<short>(at.row * sign_field), sign_field, sign_field});
    set_colour(cr, ground);
    cairo_paint(cr);
    if (character != ' ') {
        cairo_set_font_face(cr, lettering_face());
        const cairo_matrix_t upright = {0.82 * sign_field, 0, 0, -0.98 * sign_field, 0, 0};
        cairo_set_font_matrix(cr, &upright);
        cairo_text_extents_t box;
        cairo_text_extents(cr, name, &box);
        cairo_move_to(cr, 0.5 * (sign_field - box.width) - box.x_bearing, 0.14 * sign_field);
        cairo_text_path(cr, name);
        set_colour(cr, ink);
        cairo_fill_preserve(cr);
        cairo_set_line_width(cr, 0.045 * sign_field);
        cairo_stroke(cr);
    }
    c.close();
}

// Lit from inside by night: dim grounds, bright characters.
void draw_sign_texture(const std::string& path, bool by_night) {
    canvas picture(side, side);
    const rgba red = by_night ? hex(0x8c1410) : hex(0xa81e18), white = by_night ? hex(0xfff6e2) : hex(0xeceae4);
    const rgba black = by_night ? hex(0x050505) : hex(0x17181a);
    const rgba metal = by_night ? hex(0x000000) : hex(0x7a7d80), back = by_night ? hex(0x000000) : hex(0x55585a);
    for (const char* c = red_characters; *c; ++c) draw_character(picture, red_character(*c), *c, red, white);
    draw_character(picture, red_blank, ' ', red, white);
    for (int digit = 1; digit <= 3; ++digit)
        draw_character(picture, black_digit(digit), static_cast<char>('0' + digit), black, white);
    draw_character(picture, sign_back, ' ', back, back);
    draw_character(picture, sign_rim, ' ', metal, metal);
    draw_character(picture, sign_leg, ' ', by_night ? hex(0x000000) : hex(0xd1762a), metal);
    picture.save(path, false);
}
}  // namespace

void draw_sign_pictures(const std::string& folder) {
    draw_sign_texture(folder + "airport_signs.png", false);
    draw_sign_texture(folder + "airport_signs_LIT.png", true);
}

void write_airport_objects(const std::string& folder) {
    const std::string landscape = folder + "landscape/", signs = folder + "taxi_signs/";
    for (const std::string& sub : {landscape, signs}) std::filesystem::create_directories(sub);
    beacon_tower(landscape, "beacon1", true);
    beacon_tower(landscape, "beacon2", false);
    beacon_head(landscape);
    buoy(landscape);
    powerline_tower(landscape);
    windsock_pole(landscape);
    windsock_sock(landscape);
    for (int thousands = 1; thousands <= 3; ++thousands)
        distance_sign(signs + "dis_remain_" + std::to_string(thousands) + ".obj", thousands);
    for_each_taxi_sign([&signs](const std::string& name, const std::string& characters) {
        taxi_sign(signs + name + ".obj", characters);
    });
}

std::vector<std::string> airport_object_names() {
    std::vector<std::string> all;
    for (const char* name : {"beacon1", "beacon2", "beacon3", "buoy", "powerline_tower", "windsock_pole", "windsock_sock"})
        all.push_back(std::string("landscape/") + name);
    for (int thousands = 1; thousands <= 3; ++thousands)
        all.push_back("taxi_signs/dis_remain_" + std::to_string(thousands));
    for_each_taxi_sign([&all](const std::string& name, const std::string&) { all.push_back("taxi_signs/" + name); });
    return all;
}
