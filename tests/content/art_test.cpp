// The drawn pictures as files: fonts and readable colours.
#include <cmath>
#include <set>

#include "draw/font_table.h"
#include "draw/images/interface_layout.h"
#include "read_png.h"
#include "support.h"
#include "ui/text/korean.h"

namespace {
const std::string bitmaps = INSTALL_FOLDER "Resources/bitmaps/";

const test::picture& image() {
    static const test::picture p = test::read_png(bitmaps + "interface.png");
    return p;
}
// t from the bottom
const unsigned char* texel(const test::picture& p, int s, int t) { return p.texel(s, p.dy - 1 - t); }
int ink_at(int s, int t) { return texel(image(), s, t)[3]; }

TEST(art, every_glyph_of_the_korean_menus_has_ink_and_no_two_are_alike) {
    const test::picture glyphs = test::read_png(INSTALL_FOLDER "Resources/menus/Korean/menu_text.png");
    ASSERT_EQ(glyphs.dx, 1024);
    std::set<std::string> cells, seen;
    const std::string menus = test::read_file(INSTALL_FOLDER "Resources/menus/korean/Tarvane.txt");
    for (size_t at = 0; at < menus.size(); at += (menus[at] & 0xF0) == 0xE0 ? 3 : 1)
        if ((menus[at] & 0xF0) == 0xE0) cells.insert(char_string_to_int_string(menus.substr(at, 3)));
    EXPECT_GT(cells.size(), 100u);
    for (const std::string& pair : cells) {
        const int cell = 127 * pair[0] + pair[1] - 128, s = cell % 40 * 13, t = cell / 40 * 13;
        std::string ink;
        for (int y = 0; y < 13; ++y)
            for (int x = 0; x < 13; ++x) ink += static_cast<char>(texel(glyphs, s + x, t + y)[3]);
        EXPECT_GT(std::count_if(ink.begin(), ink.end(), [](unsigned char c) { return c > 100; }), 8) << cell;
        EXPECT_TRUE(seen.insert(ink).second) << cell;
    }
}

TEST(art, pictures_have_their_sizes_and_gamma_and_come_out_the_same_again) {
    ASSERT_EQ(image().dx, interface_size);
    ASSERT_EQ(image().dy, interface_size);
    const std::string again = ::testing::TempDir();
    ASSERT_EQ(test::run(TOOL_FOLDER "../content/art_make " + again).status, 0);
    for (const char* name : {"interface.png", "intro.png"}) {
        const std::string bytes = test::read_file(bitmaps + name);
        EXPECT_TRUE(test::read_file(again + "/" + name) == bytes) << name;
        EXPECT_NE(bytes.find(std::string("gAMA\0\0\xb1\x8f", 8)), std::string::npos) << "45455: 1 / 2.2";
    }
    EXPECT_NE(test::run(TOOL_FOLDER "../content/art_make /nowhere/at/all").status, 0);
}

TEST(art, every_glyph_has_white_ink_within_its_width) {
    for (const int font_s : {0, mono_font_s})
        for (int code = first_glyph_code; code <= last_glyph_code; ++code) {
            SCOPED_TRACE(static_cast<char>(code));
            const int s = font_s + glyph_cell(code) % glyph_columns * glyph_dx;
            const int t = glyph_cell(code) / glyph_columns * glyph_dy;
            const int width = font_s ? mono_width : chr_width[code];
            ASSERT_TRUE(width > 0 && width <= glyph_dx);
            int ink = 0;
            for (int y = 0; y < glyph_dy; ++y)
                for (int x = 0; x < glyph_dx; ++x) {
                    const unsigned char* c = texel(image(), s + x, t + y);
                    if (c[3] == 0) continue;
                    EXPECT_EQ(c[0] & c[1] & c[2], 255);
                    EXPECT_LT(x, width);
                    ink += c[3];
                }
            EXPECT_EQ(ink > 150, code != ' ');
        }
    // stems fit the pixels: an "l" is one column of full ink
    const int l = glyph_cell('l');
    int columns = 0;
    for (int x = 0; x < glyph_dx; ++x)
        columns += ink_at(l % glyph_columns * glyph_dx + x, l / glyph_columns * glyph_dy + 5) > 0;
    EXPECT_EQ(columns, 1);
}

// Relative luminance and contrast of WCAG 2.1.
double luminance(double r, double g, double b) {
    const auto linear = [](double v) {
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(r) + 0.7152 * linear(g) + 0.0722 * linear(b);
}

double row_luminance(int row) {
    for (const palette_texel& p : palette_texels)
        if (p.row == row) {
            const unsigned char* c = texel(image(), p.s, p.t);
            return luminance(c[0] / 255.0, c[1] / 255.0, c[2] / 255.0);
        }
    return 0.0;
}

TEST(art, text_colours_are_readable_on_what_they_stand_on) {
    const auto box = [](int kind) { return frame2_pieces[kind - box_window].at; };
    const auto strip = [](int kind) { return frame1_pieces[kind].at; };
    const struct {
        int row;
        piece on;
        int from, to;  // heights of the text in the piece
    } texts[] = {
        {32, strip(0), 10, 22}, {32, box(17), 15, 38}, {34, box(11), 79, 92}, {34, strip(1), 10, 22},
        {37, strip(2), 6, 20},  {37, box(12), 20, 90}, {37, box(18), 12, 36}, {38, strip(9), 6, 20},
        {39, box(15), 20, 90},  {40, box(14), 20, 90}, {40, box(15), 20, 90}, {41, box(12), 20, 90},
    };
    for (const auto& [row, on, from, to] : texts) {
        double lightest = 0.0;
        for (int t = from; t < to; ++t) {
            const unsigned char* c = texel(image(), on.s + on.dx / 2, on.t + t);
            // what shines through is taken as the brightest sky
            const double own = c[3] / 255.0, sky = 1.0 - own;
            lightest = std::max(lightest, luminance(c[0] / 255.0 * own + sky, c[1] / 255.0 * own + sky,
                                                    c[2] / 255.0 * own + sky));
        }
        EXPECT_GE((row_luminance(row) + 0.05) / (lightest + 0.05), 4.5)
            << row << " at " << on.s << ", " << on.t;
    }
}

}  // namespace
