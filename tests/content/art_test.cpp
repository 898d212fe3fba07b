// The drawn pictures as files: fonts, seams, states, readable colours.
#include <png.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "draw/font_table.h"
#include "draw/images/interface_layout.h"
#include "support.h"
#include "ui/text/korean.h"

namespace {

struct texel {
    unsigned char r, g, b, a;
    bool operator==(const texel&) const = default;
};

struct picture {
    int dx = 0, dy = 0;
    png_fixed_point gamma = 0;
    std::vector<texel> texels;
    const texel& at(int s, int t) const {
        return texels[static_cast<size_t>(dy - 1 - t) * dx + s];
    }  // t from the bottom
};

picture read_picture(const std::string& name) {
    picture p;
    FILE* in = fopen((std::string(INSTALL_FOLDER "Resources/bitmaps/") + name).c_str(), "rb");
    if (!in) return p;
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_init_io(png, in);
    png_read_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr);
    p.dx = static_cast<int>(png_get_image_width(png, info));
    p.dy = static_cast<int>(png_get_image_height(png, info));
    png_get_gAMA_fixed(png, info, &p.gamma);
    const int bytes = png_get_channels(png, info);
    for (int y = 0; y < p.dy; ++y)
        for (int x = 0; x < p.dx; ++x) {
            const unsigned char* c = png_get_rows(png, info)[y] + x * bytes;
            p.texels.push_back({c[0], c[1], c[2], bytes == 4 ? c[3] : static_cast<unsigned char>(255)});
        }
    png_destroy_read_struct(&png, &info, nullptr);
    fclose(in);
    return p;
}

const picture& image() {
    static const picture p = read_picture("interface.png");
    return p;
}

std::string bytes_of(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

TEST(art, every_glyph_of_the_korean_menus_has_ink_and_no_two_are_alike) {
    const picture glyphs = read_picture("../menus/Korean/menu_text.png");
    ASSERT_EQ(glyphs.dx, 1024);
    std::set<std::string> cells, seen;
    const std::string menus = bytes_of(INSTALL_FOLDER "Resources/menus/korean/Tarvane.txt");
    for (size_t at = 0; at < menus.size(); at += (menus[at] & 0xF0) == 0xE0 ? 3 : 1)
        if ((menus[at] & 0xF0) == 0xE0) cells.insert(char_string_to_int_string(menus.substr(at, 3)));
    EXPECT_GT(cells.size(), 100u);
    for (const std::string& pair : cells) {
        const int cell = 127 * pair[0] + pair[1] - 128, s = cell % 40 * 13, t = cell / 40 * 13;
        std::string ink;
        int dark = 0;
        for (int y = 0; y < 13; ++y)
            for (int x = 0; x < 13; ++x) {
                ink += static_cast<char>(glyphs.at(s + x, t + y).a);
                dark += glyphs.at(s + x, t + y).a > 100;
            }
        EXPECT_GT(dark, 8) << cell;
        EXPECT_TRUE(seen.insert(ink).second) << cell;
    }
}

TEST(art, pictures_have_their_sizes_and_gamma_and_come_out_the_same_again) {
    ASSERT_EQ(image().dx, interface_size);
    ASSERT_EQ(image().dy, interface_size);
    const picture intro = read_picture("intro.png"), blank = read_picture("blank.png");
    EXPECT_EQ(intro.dx, 1024);
    EXPECT_EQ(intro.dy, 768);
    for (const picture* p : {&image(), &intro, &blank}) EXPECT_EQ(p->gamma, 45455);
    for (const texel& c : blank.texels) ASSERT_EQ(c, (texel{255, 255, 255, 255}));
    const std::string again = ::testing::TempDir();
    ASSERT_EQ(std::system((TOOL_FOLDER "../content/art_make " + again).c_str()), 0);
    for (const char* name : {"interface.png", "intro.png"})
        EXPECT_TRUE(bytes_of(again + "/" + name) ==
                    bytes_of(std::string(INSTALL_FOLDER "Resources/bitmaps/") + name))
            << name;
    EXPECT_NE(std::system(TOOL_FOLDER "../content/art_make /nowhere/at/all 2>/dev/null"), 0);
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
                    const texel& c = image().at(s + x, t + y);
                    if (c.a == 0) continue;
                    EXPECT_EQ((texel{c.r, c.g, c.b, 255}), (texel{255, 255, 255, 255}));
                    EXPECT_LT(x, width);
                    ink += c.a;
                }
            EXPECT_EQ(ink > 150, code != ' ');
        }
    // stems fit the pixels: an "l" is one column of full ink, and capitals stand on the base line
    const int l = glyph_cell('l'), e = glyph_cell('E');
    int columns = 0;
    for (int x = 0; x < glyph_dx; ++x)
        columns += image().at(l % glyph_columns * glyph_dx + x, l / glyph_columns * glyph_dy + 5).a > 0;
    EXPECT_EQ(columns, 1);
    int lowest = 0;
    const auto row_ink = [&](int y) {
        int sum = 0;
        for (int x = 0; x < glyph_dx; ++x)
            sum += image().at(e % glyph_columns * glyph_dx + x, e / glyph_columns * glyph_dy + y).a;
        return sum;
    };
    while (lowest < glyph_dy && row_ink(lowest) == 0) ++lowest;
    EXPECT_EQ(lowest, glyph_base);
    for (int code = 0; code < 128; ++code)
        EXPECT_EQ(chr_width[code] > 0, code >= first_glyph_code && code <= last_glyph_code);
}

// Between the borders every column (or row) is the same, else the repeats of a stretched piece show.
void expect_no_seam(const piece& p, int from, int to, bool across) {
    for (int i = from + 1; i < to; ++i)
        for (int k = 0; k < (across ? p.dy : p.dx); ++k) {
            const texel first = across ? image().at(p.s + from, p.t + k) : image().at(p.s + k, p.t + from);
            const texel here = across ? image().at(p.s + i, p.t + k) : image().at(p.s + k, p.t + i);
            ASSERT_EQ(first, here) << "at " << i << ", " << k;
        }
}

TEST(art, stretched_pieces_repeat_without_a_seam_and_shadows_fade_out) {
    for (int kind = 0; kind < strip_kinds; ++kind) {
        if (kind == strip_upright) continue;
        SCOPED_TRACE(kind);
        const frame_piece& f = frame1_pieces[kind];
        expect_no_seam(f.at, f.border, f.at.dx - f.border, true);
    }
    expect_no_seam(frame0_piece.at, frame0_piece.border, frame0_piece.at.dy - frame0_piece.border, false);
    for (int kind = box_window; kind <= box_last; ++kind) {
        SCOPED_TRACE(kind);
        const piece& p = frame2_pieces[kind - box_window].at;
        const int from = p.dx * 2 / 5, to = (p.dx * 3 + 4) / 5;
        expect_no_seam(p, from, to, true);
        expect_no_seam(p, from, to, false);
        EXPECT_GE(image().at(p.s + p.dx / 2, p.t + p.dy / 2).a, 200);
        if (frame2_pieces[kind - box_window].sides < 6) continue;
        int before = 0;  // from the outer edge to the plate it only gets darker
        for (int i = 0; i < frame2_pieces[kind - box_window].bottom; ++i) {
            const int dark = image().at(p.s + p.dx / 2, p.t + i).a;
            EXPECT_GE(dark, before);
            EXPECT_LE(dark, i == 0 ? 16 : 255);
            before = dark;
        }
    }
}

TEST(art, pieces_are_drawn_where_the_layout_says_and_nowhere_else) {
    std::vector<char> owned(interface_size * interface_size, 0);
    const auto own = [&](const piece& p) {
        int ink = 0;
        for (int t = p.t; t < p.t + p.dy; ++t)
            for (int s = p.s; s < p.s + p.dx; ++s) {
                owned[static_cast<size_t>(t) * interface_size + s] = 1;
                ink += image().at(s, t).a > 0;
            }
        return ink;
    };
    for (const named_piece& n : interface_pieces) EXPECT_GT(own(n.at), n.at.dx) << n.name;
    for (const frame_piece& f : frame1_pieces) EXPECT_EQ(own(f.at) > 0, f.at.dx > 0);
    for (const box_piece& b : frame2_pieces) EXPECT_GT(own(b.at), 1000);
    own(frame0_piece.at);
    for (const palette_texel& c : palette_texels)
        own({static_cast<short>(c.s - 1), static_cast<short>(c.t - 1), 3, 3});
    for (int column = 0; column < 6; ++column)
        for (int row = 0; row < 2; ++row)
            EXPECT_GT(own(cursor_tile(column, row)), 80) << column << " " << row;
    constexpr int used_cells[][2] = {{0, 0}, {0, 1}, {0, 2}, {0, 3}, {1, 1},
                                     {1, 2}, {2, 2}, {4, 1}, {4, 2}, {4, 3}};
    for (const auto& c : used_cells) EXPECT_GT(own(map_icon_cell(c[0], c[1])), 25) << c[0] << " " << c[1];
    own({0, 0, glyph_columns * glyph_dx, glyph_rows * glyph_dy});
    own({mono_font_s, 0, glyph_columns * glyph_dx, glyph_rows * glyph_dy});
    for (int t = 0; t < interface_size; ++t)
        for (int s = 0; s < interface_size; ++s)
            ASSERT_LE(image().at(s, t).a, owned[static_cast<size_t>(t) * interface_size + s] ? 255 : 0)
                << s << " " << t;
}

TEST(art, pressed_held_and_set_states_can_be_told_apart) {
    const piece pairs[][2] = {{piece_check_off, piece_check_on},
                              {piece_radio_off, piece_radio_on},
                              {piece_close, piece_close_pressed},
                              {piece_arrow_up, piece_arrow_up_pressed},
                              {piece_arrow_down, piece_arrow_down_pressed},
                              {piece_thumb, piece_thumb_held},
                              {piece_knob, piece_knob_held},
                              {piece_pan_disc, piece_pan_disc_held},
                              {piece_zoom_in, piece_zoom_in_pressed},
                              {piece_zoom_out, piece_zoom_out_pressed},
                              {piece_select_file, piece_select_file_pressed},
                              {piece_digit_upper, piece_digit_upper_hover},
                              {piece_digit_lower, piece_digit_lower_hover},
                              {piece_tab, piece_tab_on},
                              {frame1_pieces[strip_button].at, frame1_pieces[strip_button_pressed].at},
                              {cursor_tile(4, 1), cursor_tile(5, 1)},
                              {cursor_tile(4, 0), cursor_tile(5, 0)}};
    for (const auto& [a, b] : pairs) {
        int differ = 0;
        for (int t = 0; t < a.dy; ++t)
            for (int s = 0; s < a.dx; ++s) {
                const texel &p = image().at(a.s + s, a.t + t), &q = image().at(b.s + s, b.t + t);
                differ +=
                    std::abs(p.r - q.r) + std::abs(p.g - q.g) + std::abs(p.b - q.b) + std::abs(p.a - q.a) >
                    60;
            }
        EXPECT_GT(differ, a.dx * a.dy / 8) << a.s << " " << a.t;
    }
}

// Relative luminance and contrast of WCAG 2.1.
double luminance(double r, double g, double b) {
    const auto linear = [](double v) {
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(r) + 0.7152 * linear(g) + 0.0722 * linear(b);
}

double row_luminance(int row) {
    if (row == 33) {  // the mean of rows 32 and 29
        const texel &a = image().at(319, 123), &b = image().at(319, 147);
        return luminance((a.r + b.r) / 510.0, (a.g + b.g) / 510.0, (a.b + b.b) / 510.0);
    }
    for (const palette_texel& p : palette_texels)
        if (p.row == row) {
            const texel& c = image().at(p.s, p.t);
            for (int i = 0; i < 9; ++i) EXPECT_EQ(image().at(p.s - 1 + i % 3, p.t - 1 + i / 3), c) << row;
            return luminance(c.r / 255.0, c.g / 255.0, c.b / 255.0);
        }
    return 0.0;
}

TEST(art, text_colours_are_readable_on_what_they_stand_on) {
    struct ground {
        int row;
        piece under;  // where text stands; its lightest texel counts
    };
    const auto box = [](int kind, short from, short to) {
        const piece& p = frame2_pieces[kind - box_window].at;
        return piece{static_cast<short>(p.s + p.dx * 2 / 5), static_cast<short>(p.t + from), 4,
                     static_cast<short>(to - from)};
    };
    const auto strip = [](int kind, short from, short to) {
        const frame_piece& f = frame1_pieces[kind];
        return piece{static_cast<short>(f.at.s + f.border), static_cast<short>(f.at.t + from), 2,
                     static_cast<short>(to - from)};
    };
    const ground grounds[] = {
        {32, strip(0, 10, 22)},
        {32, box(17, 15, 38)},
        {33, box(17, 15, 38)},
        {34, box(11, 79, 92)},
        {34, strip(1, 10, 22)},
        {35, {400 + 40, 60 + 3, 4, 16}},
        {36, {400 + 40, 88 + 3, 4, 16}},
        {37, strip(2, 6, 20)},
        {37, strip(3, 6, 20)},
        {37, strip(10, 6, 20)},
        {37, box(12, 20, 90)},
        {37, box(13, 20, 90)},
        {37, box(16, 5, 60)},
        {37, box(18, 12, 36)},
        {38, strip(9, 6, 20)},
        {38, {325, 75, 4, 5}},
        {39, {318, 154, 3, 3}},
        {39, box(15, 20, 90)},
        {40, box(14, 20, 90)},
        {40, box(15, 20, 90)},
        {40, strip(11, 10, 50)},
        {41, box(12, 20, 90)},
    };
    for (const ground& g : grounds) {
        double lightest = 0.0;
        for (int t = 0; t < g.under.dy; ++t)
            for (int s = 0; s < g.under.dx; ++s) {
                const texel& c = image().at(g.under.s + s, g.under.t + t);
                // what shines through is taken as the brightest sky
                const double through = 1.0 - c.a / 255.0, own = c.a / 255.0 / 255.0;
                lightest = std::max(lightest,
                                    luminance(c.r * own + through, c.g * own + through, c.b * own + through));
            }
        EXPECT_GE((row_luminance(g.row) + 0.05) / (lightest + 0.05), 4.5)
            << "row " << g.row << " at " << g.under.s << ", " << g.under.t;
    }
}

}  // namespace
