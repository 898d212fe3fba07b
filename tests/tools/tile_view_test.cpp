// tile_view on a screen of its own: a small package whose colours must stand where the projection puts them.
#include <gtest/gtest.h>
#include <math.h>

#include <algorithm>
#include <filesystem>

#include "../draw/pictures.h"
#include "read_png.h"
#include "support.h"
#include "tile_mesh.h"
#include "xvfb.h"

namespace {
// Red land in the west, patterned green land in the east of the 120th of 255 grid lines; the eye stands over
// that line. The view is 60 degrees wide.
constexpr int cells = 255, edge_line = 120;
constexpr double eye_lat = 34.3, eye_lon = -118.0 + edge_line / 255.0, eye_height = 3000.0;
constexpr int overlay_west = 116, overlay_east = 119;
constexpr double ground = 200.0, metres_per_degree = 111319.0;
constexpr int middle_x = 512, middle_y = 384;
const double pixels_per_metre = middle_x / tan(M_PI / 6.0) / eye_height;

tile_point at(double east, double north) {
    return {eye_lon + east / (metres_per_degree * cos(eye_lat * M_PI / 180.0)),
            eye_lat + north / metres_per_degree, ground};
}

struct colour {
    int r, g, b;
};

class tile_view_test : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new test::temp_folder;
        make_package();
        const test::xvfb screen;
        char eyes[300];
        snprintf(eyes, sizeof eyes, " %.9f %.9f 3000 0 -90 %.9f %.9f 100 0 0 %.9f %.9f 100 180 0", eye_lat,
                 eye_lon, eye_lat, eye_lon, eye_lat, eye_lon);
        result =
            test::run("cd " + folder->path() +
                      " && LIBGL_ALWAYS_SOFTWARE=1 " TOOL_FOLDER "tile_view package 34 -118 view.png" + eyes);
        for (int i = 0; i < 3; ++i)
            views[i] = test::read_png(folder->path() + "view_" + std::to_string(i + 1) + ".png");
    }
    static void TearDownTestSuite() { delete folder; }
    void SetUp() override {
        ASSERT_EQ(result.status, 0) << result.output;
        for (const test::picture& view : views) ASSERT_EQ(view.dx, 2 * middle_x);
    }

    static void write(const std::string& name, const std::string& bytes) {
        const std::string path = "package/" + name;
        std::filesystem::create_directories(folder->path() + path.substr(0, path.rfind('/')));
        folder->write(path, bytes);
    }
    // From a function of s and t: red, green, blue.
    template <class function>
    static void write_picture(const std::string& name, function rgb_at) {
        constexpr int size = 256;
        test::bytes samples;
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x)
                for (const int part :
                     rgb_at(x / static_cast<double>(size), 1.0 - y / static_cast<double>(size)))
                    samples.push_back(static_cast<unsigned char>(part));
        write(name, test::png_bytes({size, size, PNG_COLOR_TYPE_RGB, samples}));
    }
    static void write_ground(const std::string& name, const std::string& border) {
        write("custom terrain textures/" + name + ".ter",
              "A\n800 \nTERRAIN\nBASE_TEX " + name + ".png\n" + border + "PROJECTED 800 800\nNO_ALPHA\n");
    }
    static void make_package() {
        using rgb = std::vector<int>;
        write_picture("custom terrain textures/red.png", [](double, double) { return rgb{250, 0, 0}; });
        write_picture("custom terrain textures/blue.png", [](double, double) { return rgb{0, 0, 250}; });
        write_picture("custom terrain textures/green.png", [](double s, double t) {
            return rgb{0, s < 0.5 ? 120 : t < 0.5 ? 200 : 250, 0};
        });
        write_picture("custom terrain textures/ramp.png", [](double s, double) {
            const int grey = static_cast<int>(255.0 * s);
            return rgb{grey, grey, grey};
        });
        write_ground("red", "");
        write_ground("green", "");
        write_ground("blue", "BORDER_TEX ramp.png\n");
        // a sheet of 100 m to the right of the object's place, seen from above: violet, then white
        write_picture("custom object textures/violet.png", [](double s, double) {
            return s < 0.5 ? rgb{250, 0, 250} : rgb{250, 250, 250};
        });
        write("custom objects/sheet.obj",
              "A\n700\nOBJ\n\nviolet\n\nquad\n0 2 -50 0 0\n100 2 -50 1 0\n100 2 50 1 1\n0 2 50 0 1\nend\n");
        write_tile();
    }
    static void write_tile() {
        tile_writer tile(34, -118, 0.0, 1000.0);
        mesh_source source;
        source.cells = cells;
        source.height = [](double, double) { return ground; };
        source.land_class = [](double, double lon) { return lon < eye_lon ? 1 : 2; };
        source.terrain = {"terrain_Water", "red.ter", "green.ter"};
        write_mesh(&tile, source);
        // three cells of the ground under the eye, the mask from a quarter to three quarters
        tile.begin_patch(tile.terrain("blue.ter"), tile_overlay, -1.0, -1.0, true);
        std::vector<tile_point> strip;
        for (int column = overlay_west; column <= overlay_east; ++column)
            for (const int line : {76, 77}) {
                strip.push_back({-118.0 + column / 255.0, 34.0 + line / 255.0, ground});
                strip.back().s = 0.25 + 0.5 * (column - overlay_west) / (overlay_east - overlay_west);
            }
        tile.strip(strip);
        const tile_point as_it_is = at(500, 600), turned = at(500, -600);
        tile.place(tile.object("sheet.obj"), as_it_is.lon, as_it_is.lat, 0.0);
        tile.place(tile.object("sheet.obj"), turned.lon, turned.lat, 90.0);
        const std::string name = folder->path() + "package/Earth nav data/+30-120/";
        std::filesystem::create_directories(name);
        std::string error;
        ASSERT_TRUE(tile.write(name + "+34-118.dsf", &error)) << error;
    }

    static colour pixel(int view, int x, int y) {
        const unsigned c = views[view].at(x, y);
        return {static_cast<int>(c >> 16), static_cast<int>(c >> 8 & 255), static_cast<int>(c & 255)};
    }
    // Of the view straight down, metres from the eye's foot.
    static colour below(double east, double north) {
        return pixel(0, middle_x + static_cast<int>(lround(east * pixels_per_metre)),
                     middle_y - static_cast<int>(lround(north * pixels_per_metre)));
    }
    static bool is_red(const colour& c) { return c.r > 100 && c.g < 20 && c.b < 20; }
    static bool is_green(const colour& c) { return c.g > 60 && c.r < 20 && c.b < 20; }
    static bool is_violet(const colour& c) { return c.r > 100 && c.b > 100 && c.g < 20; }
    static bool is_white(const colour& c) { return c.r > 100 && c.b > 100 && c.g > 100; }

    static test::temp_folder* folder;
    static test::run_result result;
    static test::picture views[3];
};
test::temp_folder* tile_view_test::folder = nullptr;
test::run_result tile_view_test::result;
test::picture tile_view_test::views[3];
}  // namespace

TEST_F(tile_view_test, shows_each_class_on_its_side_of_the_edge) {
    EXPECT_EQ(result.output.find("tile_view:"), std::string::npos) << result.output;
    for (int y = 10; y < 760; y += 150) {
        EXPECT_TRUE(is_red(pixel(0, middle_x - 5, y))) << y;
        EXPECT_TRUE(is_green(pixel(0, middle_x + 5, y))) << y;
    }
    // level: looking north the west is on the left, looking south on the right; above is sky
    EXPECT_TRUE(is_red(pixel(1, 300, 700)) && is_green(pixel(1, 724, 700)));
    EXPECT_TRUE(is_green(pixel(2, 300, 700)) && is_red(pixel(2, 724, 700)));
    for (const int view : {1, 2}) {
        const colour sky = pixel(view, 300, 100);
        EXPECT_GT(sky.b, sky.r + 20);
        EXPECT_GT(sky.r, 50);
    }
}

// 800 m a repeat. The western half of the picture is dark, of the eastern one the lower half is a little
// darker than the upper one. The region's centre is 34 N 117.5 W; from there, by the sphere of 6,378,145 m,
// the eye's foot is so many metres east and north.
TEST_F(tile_view_test, lays_pictures_on_the_ground_by_their_metres) {
    constexpr double foot_east = -2704.8, foot_north = 33397.0, half = 400.0, blurred = 20.0;
    const auto in_repeat = [](double metres) { return metres - 2.0 * half * floor(metres / (2.0 * half)); };
    const auto is_sharp = [](double metres) { return fabs(remainder(metres, half)) > blurred; };
    constexpr double row = -900.0, column = 904.8;  // without objects; the column in the eastern half
    int compared = 0, brightest = 0;
    for (double north = -1200.0; north < 1200.0; north += 10.0)
        brightest = std::max(brightest, below(column, north).g);
    for (double east = 20.0; east < 1700.0; east += 30.0, ++compared)
        if (is_sharp(foot_east + east)) {
            const bool expected = in_repeat(foot_east + east) > half;
            EXPECT_EQ(below(east, row).g > 0.65 * brightest, expected) << east;
        }
    for (double north = -1200.0; north < 1200.0; north += 30.0, ++compared)
        if (is_sharp(foot_north + north)) {
            const bool expected = in_repeat(foot_north + north) > half;
            EXPECT_EQ(below(column, north).g > 0.9 * brightest, expected) << north;
        }
    EXPECT_GT(compared, 100);
}

TEST_F(tile_view_test, blends_overlays_by_the_border_mask) {
    const double cell = metres_per_degree * cos(eye_lat * M_PI / 180.0) / cells;
    const double west = (overlay_west - edge_line) * cell, east = (overlay_east - edge_line) * cell;
    const int whole = below(-800.0, 500.0).r;  // bare red
    ASSERT_GT(whole, 100);
    double blue_before = 0.0;
    for (const double part : {0.3, 0.4, 0.5, 0.6, 0.7}) {
        const colour c = below(west + (part - 0.25) / 0.5 * (east - west), 0.0);
        EXPECT_NEAR(c.r / static_cast<double>(whole), 1.0 - part, 0.03) << part;
        EXPECT_GT(c.b, blue_before + 8.0);
        blue_before = c.b;
    }
    // half a row of cells to either side
    EXPECT_FALSE(is_red(below(-800.0, 208.0)) || is_red(below(-800.0, -208.0)));
    EXPECT_TRUE(is_red(below(-800.0, 228.0)) && is_red(below(-800.0, -228.0)));
    EXPECT_TRUE(is_red(below(east + 10.0, 0.0)) && is_red(below(west - 10.0, 0.0)));
}

// Its sheet lies east of the first object, and south of the second, which is turned by 90 degrees.
TEST_F(tile_view_test, places_and_turns_objects) {
    for (const double side : {-40.0, 40.0}) {
        EXPECT_TRUE(is_violet(below(510.0, 600.0 + side)) && is_white(below(590.0, 600.0 + side))) << side;
        EXPECT_TRUE(is_violet(below(500.0 + side, -610.0)) && is_white(below(500.0 + side, -690.0))) << side;
    }
    for (const double outside : {-12.0, 112.0}) EXPECT_TRUE(is_green(below(500.0 + outside, 600.0)));
    EXPECT_TRUE(is_green(below(550.0, 662.0)) && is_green(below(550.0, 538.0)));
    EXPECT_TRUE(is_green(below(500.0, -588.0)) && is_green(below(438.0, -650.0)));
}

TEST_F(tile_view_test, tells_what_cannot_be_shown) {
    const auto run = [](const std::string& words) {
        return test::run("cd " + folder->path() + " && " TOOL_FOLDER "tile_view " + words);
    };
    const test::run_result none = run("package 35 -118 none.png");
    EXPECT_EQ(none.status, 1);
    EXPECT_NE(none.output.find("has no tile 35, -118"), std::string::npos) << none.output;
    EXPECT_EQ(run("package 34 west none.png").status, 2);
}
