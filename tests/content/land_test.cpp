// The pictures of the ground as files: edges that meet, nothing that catches the eye again and again, night
// twins, a sea that goes round.
#include <cmath>
#include <cstdlib>

#include "../../content/land/land_classes.h"
#include "read_png.h"
#include "support.h"

namespace {
const std::string terrain = INSTALL_FOLDER "Resources/bitmaps/terrain/";

int grey(const test::picture& p, int x, int y) {
    const unsigned char* c = p.texel(x, y);
    return c[0] + c[1] + c[2];
}

// Mean step from one column (row) to the next.
double step_between(const test::picture& p, int a, int b, bool columns) {
    double sum = 0.0;
    for (int k = 0; k < p.dx; ++k)
        sum += columns ? std::abs(grey(p, a, k) - grey(p, b, k)) : std::abs(grey(p, k, a) - grey(p, k, b));
    return sum / p.dx;
}

// Across the edge no more than the largest step inside.
void expect_seamless(const test::picture& p, const std::string& name) {
    for (const bool columns : {true, false}) {
        double inside = 0.0;
        for (int at = 1; at < p.dx; ++at) inside = std::max(inside, step_between(p, at - 1, at, columns));
        EXPECT_LE(step_between(p, p.dx - 1, 0, columns), 1.05 * inside) << name;
    }
}

// Largest deviation of a quarter's mean brightness from the picture's, in levels of 255.
double unevenness(const test::picture& p) {
    double sums[4][4] = {}, mean = 0.0, most = 0.0;
    const int side = p.dx / 4;
    for (int y = 0; y < p.dy; ++y)
        for (int x = 0; x < p.dx; ++x) sums[y / side][x / side] += grey(p, x, y) / (3.0 * side * side);
    for (const auto& line : sums)
        for (const double v : line) mean += v / 16.0;
    for (const auto& line : sums)
        for (const double v : line) most = std::max(most, std::abs(v - mean));
    return most;
}
}  // namespace

TEST(land, grounds_repeat_without_a_seam_or_a_mark_and_towns_have_lights) {
    for (int i = 0; i < land_classes_DIM; ++i) {
        const land_class_row& row = land_class_of(static_cast<land_class>(i));
        const test::picture day = test::read_png(terrain + row.name + ".png");
        ASSERT_EQ(day.dx, 1024) << row.name;
        expect_seamless(day, row.name);
        const bool is_farmed = i >= land_farm_green && i <= land_orchard;
        EXPECT_LT(unevenness(day), is_farmed ? 32.0 : row.has_night ? 10.0 : 4.0) << row.name;
        const test::picture night = test::read_png(terrain + row.name + "_LIT.png");
        EXPECT_EQ(night.dx == 1024, row.has_night) << row.name;
        if (!row.has_night) continue;
        expect_seamless(night, row.name);
        int dark = 0, bright = 0;
        for (int y = 0; y < night.dy; ++y)
            for (int x = 0; x < night.dx; ++x) dark += grey(night, x, y)<30, bright += grey(night, x, y)> 380;
        EXPECT_GT(dark, night.dx * night.dy / 3) << row.name;
        EXPECT_GT(bright, 200) << row.name;
    }
}

TEST(land, the_sea_goes_on_from_its_last_frame_to_its_first) {
    for (const char* state : {"1 Calm", "7 High"}) {
        std::vector<test::picture> frames;
        for (int n = 1; n <= 16; ++n) {
            char name[16];
            snprintf(name, sizeof name, "sea%02d.png", n);
            frames.push_back(test::read_png(terrain + "water/" + state + "/" + name));
            ASSERT_EQ(frames.back().dx, 256) << state << n;
        }
        const auto change = [&](size_t a, size_t b) {
            double sum = 0.0;
            for (int k = 0; k < 256 * 256; ++k)
                sum += std::abs(grey(frames[a], k % 256, k / 256) - grey(frames[b], k % 256, k / 256));
            return sum;
        };
        EXPECT_LT(change(15, 0), 1.3 * change(0, 1)) << state;
        EXPECT_GT(change(0, 8), 1.5 * change(0, 1)) << state;
        expect_seamless(frames[0], state);
    }
}
