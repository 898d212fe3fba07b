// The interface image as a whole: fonts, palette, and the order of its pieces.
#include <stdio.h>

#include <stdexcept>

#include "pictures.h"
#include "theme.h"
#include "typeface.h"

namespace {
void draw_glyph(canvas& c, const std::string& font, int font_s, int code, const glyph_bitmap& g) {
    const int cell = glyph_cell(code);
    const piece at = {static_cast<short>(font_s + cell % glyph_columns * glyph_dx),
                      static_cast<short>(cell / glyph_columns * glyph_dy), glyph_dx, glyph_dy};
    c.open(font + " glyph " + std::to_string(code), at);
    for (int t = 0; t < glyph_dy; ++t)
        for (int s = 0; s < glyph_dx; ++s) c.white_pixel(s, t, g.alpha[t][s]);
    c.close();
}

// The table as it must stand in font_table.cpp.
void print_widths(const int (&width)[128]) {
    for (int code = 0; code < 128; ++code)
        fprintf(stderr, "%d,%s", width[code], code % 32 == 31 ? "\n" : " ");
}

void draw_palette(canvas& c) {
    for (const palette_texel& texel : palette_texels)
        for (const theme::row_colour& r : theme::rows)
            if (r.row == texel.row) {
                cairo_t* cr =
                    c.open("palette row " + std::to_string(r.row),
                           {static_cast<short>(texel.s - 1), static_cast<short>(texel.t - 1), 3, 3});
                set_colour(cr, r.colour);
                cairo_paint(cr);
                c.close();
            }
}
}  // namespace

void draw_fonts(canvas& c) {
    int width[128] = {};
    for (int code = first_glyph_code; code <= last_glyph_code; ++code) {
        const glyph_bitmap text = text_glyph(code);
        width[code] = text.width;
        draw_glyph(c, "text", 0, code, text);
        draw_glyph(c, "mono", mono_font_s, code, mono_glyph(code));
    }
    for (int code = 0; code < 128; ++code)
        if (width[code] != chr_width[code]) {
            print_widths(width);
            throw std::runtime_error("the typeface has these widths, and draw/font_table.cpp others");
        }
}

void draw_interface(canvas& c) {
    draw_fonts(c);
    draw_palette(c);
    draw_frames(c);
    draw_controls(c);
    draw_list_icons(c);
    draw_cursors(c);
    draw_map_icons(c);
}
