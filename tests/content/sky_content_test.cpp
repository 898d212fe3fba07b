// The sky as the simulator's readers see it: its colours, stars, moons, lights, auroras and squares from
// orbit.
#include <array>
#include <cmath>
#include <filesystem>
#include <map>

#include "core/disk/files.h"
#include "draw/images/image_place.h"
#include "draw/images/image_png.h"
#include "read_png.h"
#include "scenery/nav/nav_file.h"
#include "support.h"

namespace {
const std::string bitmaps = INSTALL_FOLDER "Resources/bitmaps/";
constexpr double rad = M_PI / 180.0;

struct star {
    double ra, dec, magnitude;
};

// By name; the file's order is checked on the way.
std::map<std::string, star> stars_of(const char* planet, size_t* count) {
    std::map<std::string, star> named;
    nav_file file(INSTALL_FOLDER "Resources/" + std::string(planet) + " nav data/astro.dat", ftype_nav,
                  "740");
    EXPECT_TRUE(file.ok());
    double faintest = -9.0;
    for (*count = 0; file.more(); ++*count) {
        const float ra = file.value(), dec = file.value(), magnitude = file.value();
        std::string label;
        file.rest(&label);
        if (ra * 15.0 * rad > 2.0 * M_PI) {
            EXPECT_EQ(ra, 99.0f);
            break;
        }
        EXPECT_TRUE(ra >= 0.0f && ra < 24.0f && std::fabs(dec) <= 90.0f) << label;
        EXPECT_GE(magnitude, faintest) << label;
        faintest = magnitude;
        named[label] = {ra, dec, magnitude};
    }
    EXPECT_LE(faintest, 6.5);
    EXPECT_FALSE(file.more());
    return named;
}

std::array<double, 3> towards(const star& s) {
    const double ra = s.ra * 15.0 * rad, dec = s.dec * rad;
    return {cos(dec) * cos(ra), cos(dec) * sin(ra), sin(dec)};
}
double cosine(const std::array<double, 3>& a, const std::array<double, 3>& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
double volume(const std::array<double, 3>& a, const std::array<double, 3>& b,
              const std::array<double, 3>& c) {
    return a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
           a[2] * (b[0] * c[1] - b[1] * c[0]);
}

test::picture picture(const std::string& name, int dx, int dy) {
    test::picture p = test::read_png(bitmaps + name);
    EXPECT_EQ(p.dx, dx) << name;
    EXPECT_EQ(p.dy, dy) << name;
    image_struct image{};
    image.load_type = load_scratch, image.bytes = 3, image.depth_change_ok = 1;
    EXPECT_EQ(load_png_into_scratch(bitmaps + name, &image), 1) << name;
    return p;
}
int alpha(const test::picture& p, int x, int y) { return p.texel(x, y)[3]; }

std::string moon_name(int phase) {
    return std::string("world/moon/moon") + (phase < 10 ? "0" : "") + std::to_string(phase) + ".png";
}

TEST(sky_content, stars_stand_where_the_catalogues_have_them) {
    size_t count;
    std::map<std::string, star> named = stars_of("Earth", &count);
    EXPECT_TRUE(count > 7800 && count < 9200) << count;
    // J2000, published: Sirius, Polaris, Vega, alpha Centauri, Canopus
    const std::map<std::string, star> known = {{"Sirius", {6.75248, -16.7161, -1.45}},
                                               {"Polaris", {2.53030, 89.2641, 2.0}},
                                               {"Vega", {18.61565, 38.7837, 0.03}},
                                               {"Rigel Kentaurus", {14.66014, -60.8340, -0.01}},
                                               {"Canopus", {6.39920, -52.6957, -0.7}}};
    for (const auto& [name, s] : known) {
        ASSERT_TRUE(named.count(name)) << name;
        EXPECT_GT(cosine(towards(named[name]), towards(s)), cos(0.003 * rad)) << name;
        EXPECT_NEAR(named[name].magnitude, s.magnitude, 0.1) << name;
    }
}

TEST(sky_content, mars_sees_the_same_sky_turned_to_its_pole) {
    size_t count, count_mars;
    std::map<std::string, star> earth = stars_of("Earth", &count), mars = stars_of("Mars", &count_mars);
    EXPECT_EQ(count, count_mars);
    const star pole = {317.68 / 15.0, 52.89, 0.0};
    for (const char* name : {"Sirius", "Vega", "Canopus", "Deneb"})
        EXPECT_NEAR(mars[name].dec, asin(cosine(towards(earth[name]), towards(pole))) / rad, 0.02) << name;
    // turned, neither stretched nor mirrored
    EXPECT_NEAR(cosine(towards(earth["Sirius"]), towards(earth["Vega"])),
                cosine(towards(mars["Sirius"]), towards(mars["Vega"])), 1e-4);
    EXPECT_NEAR(volume(towards(earth["Sirius"]), towards(earth["Vega"]), towards(earth["Spica"])),
                volume(towards(mars["Sirius"]), towards(mars["Vega"]), towards(mars["Spica"])), 1e-4);
    // At northern spring the sun stands 180 degrees from where Mars is then: at heliocentric longitude 85.1
    // (within a degree, for its orbit is inclined).
    const double sun = (85.1 + 180.0) * rad, obliquity = 23.44 * rad;
    const std::array<double, 3> spring = {cos(sun), sin(sun) * cos(obliquity), sin(sun) * sin(obliquity)};
    for (const char* name : {"Sirius", "Vega", "Canopus"})
        EXPECT_NEAR(cosine(towards(earth[name]), spring), cosine(towards(mars[name]), {1.0, 0.0, 0.0}), 0.02)
            << name;
}

TEST(sky_content, moons_wax_on_the_right_and_wane_on_the_left) {
    constexpr int size = 256, middle = size / 2;
    for (int phase = 1; phase <= 23; ++phase) {
        SCOPED_TRACE(phase);
        const test::picture p = picture(moon_name(phase), size, size);
        int lit[2] = {}, on_disc = 0;
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x) {
                on_disc += alpha(p, x, y) > 0;
                lit[x >= middle] += alpha(p, x, y) > 44;
            }
        const double elongation = (phase - 1) * 360.0 / 22.0;
        EXPECT_NEAR(static_cast<double>(lit[0] + lit[1]) / on_disc, 0.5 * (1.0 - cos(elongation * rad)),
                    0.08);
        if (phase > 1 && phase < 12) {
            EXPECT_GT(lit[1], lit[0]);
        }
        if (phase > 12 && phase < 23) {
            EXPECT_GT(lit[0], lit[1]);
        }
        EXPECT_GT(on_disc, 0.85 * M_PI * middle * middle);
        for (const int edge : {0, size - 1})
            for (int n = 0; n < size; ++n) EXPECT_TRUE(alpha(p, edge, n) == 0 && alpha(p, n, edge) == 0);
    }
    // seas and the rays' crater where they are on the full moon, by longitude and latitude
    const test::picture full = picture(moon_name(12), size, size);
    const auto bright = [&](double lat, double lon) {
        const int x = static_cast<int>(middle * (1.0 + 0.965 * cos(lat * rad) * sin(lon * rad)));
        const int y = static_cast<int>(middle * (1.0 - 0.965 * sin(lat * rad)));
        return full.texel(x, y)[0] * alpha(full, x, y);
    };
    const int highland = bright(-40, 10);
    for (const auto& [lat, lon] :
         {std::pair(17.0, 59.0), {28.0, 18.0}, {35.0, -18.0}, {-24.0, -38.5}, {20.0, -57.0}})
        EXPECT_LT(bright(lat, lon), 0.75 * highland) << lat << " " << lon;
    EXPECT_GT(bright(23.7, -47.4), 1.2 * bright(20.0, -57.0));
}

TEST(sky_content, lights_fill_their_cells_and_leave_their_borders_empty) {
    constexpr int cell = 256;
    const test::picture p = picture("world/lites/lights.png", 4 * cell, 2 * cell);
    struct box {
        int x, y, size;
    };
    for (const box& b :
         {box{0, 0, cell}, {cell, 0, cell}, {0, cell, cell}, {cell, cell, cell}, {2 * cell, 0, 2 * cell}}) {
        EXPECT_GT(alpha(p, b.x + b.size / 2, b.y + b.size / 2), 120);
        for (int n = 0; n < b.size; ++n)
            for (const int edge : {0, b.size - 1})
                EXPECT_TRUE(alpha(p, b.x + n, b.y + edge) == 0 && alpha(p, b.x + edge, b.y + n) == 0);
    }
    // the sun, in the upper row, is a disc and no point
    EXPECT_EQ(alpha(p, cell / 2 + 40, cell / 2), 255);
    EXPECT_LT(alpha(p, cell / 2 + 40, cell + cell / 2), 255);
    constexpr int glow = 512;
    const test::picture g = picture("world/lites/sun_glow.png", glow, glow);
    for (int n = 0; n < glow; ++n) EXPECT_TRUE(alpha(g, n, 0) == 0 && alpha(g, 0, n) == 0);
    for (int n = glow / 2 + 16; n < glow - 16; n += 16)
        EXPECT_GE(alpha(g, n - 16, glow / 2) + 1, alpha(g, n, glow / 2)) << "falls outwards";
}

TEST(sky_content, auroras_are_green_below_and_red_above_and_end_within_their_pictures) {
    constexpr int dx = 1024, dy = 512;
    for (int n = 1; n <= 4; ++n) {
        const test::picture p = picture("world/overlays/aurora_" + std::to_string(n) + ".png", dx, dy);
        double green[2] = {}, red[2] = {};  // lower and upper half
        for (int y = 0; y < dy; ++y)
            for (int x = 0; x < dx; ++x) {
                red[y < dy / 2] += p.texel(x, y)[0] * alpha(p, x, y);
                green[y < dy / 2] += p.texel(x, y)[1] * alpha(p, x, y);
            }
        EXPECT_GT(green[0], 1.5 * red[0]) << n;
        EXPECT_GT(red[1], green[1]) << n;
        for (int x = 0; x < dx; ++x) EXPECT_TRUE(alpha(p, x, 0) < 2 && alpha(p, x, dy - 1) < 2);
        for (int y = 0; y < dy; ++y) EXPECT_TRUE(alpha(p, 0, y) < 2 && alpha(p, dx - 1, y) < 2);
    }
}

// -- colours of sky and light, rows from the bottom

constexpr int sky_dx = 64, sky_frame = 16, sky_dy = 256, light_dy = 512;
const char* const sky_sets[] = {"Earth/%s_earth_clean.png", "Earth/%s_earth_misty.png",
                                "Earth/%s_earth_foggy.png", "Earth/%s_earth_hialt.png",
                                "Earth/%s_earth_ocast.png", "Mars/%s_mars_clean.png",
                                "Mars/%s_mars_hialt.png"};

test::picture sky_table(const char* set, const char* kind, int dy) {
    char name[64];
    snprintf(name, sizeof name, set, kind);
    return picture("skycolors/" + std::string(name), sky_dx, dy);
}
const unsigned char* sky_texel(const test::picture& p, int frame, int height, int column) {
    return p.texel(column, sky_dy - 1 - (frame * sky_frame + height));
}
const unsigned char* light_texel(const test::picture& p, int row, int column) {
    return p.texel(column, light_dy - 1 - row);
}

TEST(sky_content, skies_meet_the_fog_and_suns_outshine_them) {
    enum { sun_disc = 13, moon_light = 38, beside_sun = 31 };
    for (const char* set : sky_sets) {
        SCOPED_TRACE(set);
        const test::picture sky = sky_table(set, "sky_colors", sky_dy),
                            light = sky_table(set, "light_colors", light_dy);
        for (int frame = 0; frame < 16; ++frame)
            for (int column = 0; column < sky_dx; ++column)
                for (int c = 0; c < 3; ++c) {
                    const int fog = sky_texel(sky, frame, 0, column)[c];
                    EXPECT_NEAR(fog, sky_texel(sky, frame, 1, column)[c], 25) << frame << " " << column;
                    EXPECT_NEAR(fog, sky_texel(sky, frame, 0, (column + 1) % sky_dx)[c], 22)
                        << frame << " " << column;
                    EXPECT_EQ(fog, sky_texel(sky, 15 - frame, 0, sky_dx - 1 - column)[c])
                        << frame << " " << column;
                }
        for (int row = 0; row < light_dy; ++row) {
            const unsigned char *disc = light_texel(light, row, sun_disc),
                                *moon = light_texel(light, row, moon_light);
            EXPECT_GE(std::max({disc[0], disc[1], disc[2]}), 242) << row;
            // full moon: bluish, and so dim that stars and northern lights show
            EXPECT_TRUE(moon[0] > 20 && moon[0] + moon[1] + moon[2] < 120 && moon[2] > moon[0]) << row;
        }
        for (int frame = 0; frame < 8; ++frame) {
            const unsigned char* disc = light_texel(light, frame * 255 / 8, sun_disc);
            for (int height = 0; height < 4; ++height) {
                const unsigned char* air = sky_texel(sky, frame, height, beside_sun);
                EXPECT_GT(disc[0] + disc[1] + disc[2] + 30, air[0] + air[1] + air[2])
                    << frame << " " << height;
            }
        }
    }
}

TEST(sky_content, skies_have_their_planets_colours) {
    enum { dusk = 5, noon = 7, low = 4, high = 15, to_sun = 31, aside = 48 };
    const test::picture earth = sky_table(sky_sets[0], "sky_colors", sky_dy),
                        mars = sky_table(sky_sets[5], "sky_colors", sky_dy);
    const auto bluer = [](const unsigned char* c) { return c[2] - c[0]; };
    EXPECT_GT(bluer(sky_texel(earth, noon, high, aside)), 60);
    EXPECT_LT(bluer(sky_texel(earth, dusk, 0, to_sun)), -60);
    EXPECT_LT(bluer(sky_texel(mars, noon, low, aside)), -60);
    EXPECT_GT(bluer(sky_texel(mars, dusk, low, to_sun)), 5);  // the dust's blue glow about a low sun
    EXPECT_LT(bluer(sky_texel(mars, dusk, low, aside)), -40);
    // all of the sky darkens from day to night
    for (const test::picture* p : {&earth, &mars})
        for (int frame = 0; frame < noon; ++frame)
            EXPECT_LT(sky_texel(*p, frame, 10, 0)[1], sky_texel(*p, frame + 1, 10, 0)[1] + 12) << frame;
    EXPECT_LT(sky_texel(earth, 0, high, 0)[1], 30);
}

// Mean of a part of a picture, channels from 0 to 255; x and y in parts of it.
std::array<double, 3> mean(const test::picture& p, double x1, double y1, double x2, double y2) {
    std::array<double, 3> sum{};
    const int left = static_cast<int>(x1 * p.dx), top = static_cast<int>(y1 * p.dy);
    const int right = std::max(left + 1, static_cast<int>(x2 * p.dx)),
              low = std::max(top + 1, static_cast<int>(y2 * p.dy));
    for (int y = top; y < low; ++y)
        for (int x = left; x < right; ++x)
            for (size_t c = 0; c < 3; ++c) sum[c] += p.texel(x, y)[c];
    for (double& channel : sum) channel /= (right - left) * (low - top);
    return sum;
}

// Quarter by quarter, so that neither a turned nor a mirrored square passes.
TEST(sky_content, squares_from_orbit_have_the_colours_of_the_whole_planet) {
    const test::picture halves[] = {picture("earth1.png", 1024, 1024), picture("earth2.png", 1024, 1024)};
    const test::picture ocean = picture("earth orbit textures/ocean.png", 64, 64);
    int own = 0, far_off = 0;
    for (int south = -90; south < 90; south += 10)
        for (int west = -180; west < 180; west += 10) {
            char name[64];
            snprintf(name, sizeof name, "earth orbit textures/%+03d%+04d.png", south, west);
            test::picture square = ocean;
            if (std::filesystem::exists(bitmaps + name)) {
                ++own;
                square = test::read_png(bitmaps + name);
                EXPECT_EQ(square.dx & (square.dx - 1), 0) << name;
                ASSERT_TRUE(square.dx >= 32 && square.dx <= 512 && square.dy <= 512) << name;
            }
            for (int quarter = 0; quarter < 4; ++quarter) {
                const double x = 0.5 * (quarter % 2), y = 0.5 * (quarter / 2);
                const double from_west = (west < 0 ? west + 180.0 : west) / 180.0 + x / 18.0;
                const double from_north = (80.0 - south) / 180.0 + y / 18.0;
                const auto far = mean(halves[west < 0], from_west, from_north, from_west + 0.5 / 18.0,
                                      from_north + 0.5 / 18.0);
                const auto near = mean(square, x, y, x + 0.5, y + 0.5);
                double difference = 0.0;
                for (size_t c = 0; c < 3; ++c) difference = std::max(difference, std::fabs(far[c] - near[c]));
                EXPECT_LT(difference, 34.0) << name << " quarter " << quarter;
                far_off += difference > 12.0;
            }
        }
    EXPECT_GT(own, 400);
    EXPECT_LT(far_off, 4 * 648 / 25);
}

TEST(sky_content, shores_from_orbit_are_finer_than_the_photograph) {
    const test::picture p = picture("earth orbit textures/+30-010.png", 512, 512);
    const auto is_sea = [&](double lat, double lon) {
        const unsigned char* c =
            p.texel(static_cast<int>(51.2 * (lon + 10.0)), static_cast<int>(51.2 * (40.0 - lat)));
        return c[2] > c[0] + 10;
    };
    // the strait of Gibraltar is 14 km wide, less than a texel of the photograph
    EXPECT_TRUE(is_sea(35.95, -5.60));
    EXPECT_FALSE(is_sea(36.20, -5.60));
    EXPECT_FALSE(is_sea(35.70, -5.60));
    EXPECT_TRUE(is_sea(36.0, -9.0));
}
}  // namespace
