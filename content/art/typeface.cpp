// Glyphs by FreeType. DejaVu carries instructions that fit its stems to the pixels; the interpreter that
// follows them in both directions gives the sharpest letters at this size.
#include "typeface.h"

#include <cairo-ft.h>
#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include <string.h>

#include <algorithm>
#include <map>
#include <stdexcept>
#include FT_FREETYPE_H
#include FT_MODULE_H

namespace {
constexpr int letter_size = 10;  // pixels an em

// The file of a family; another family in its place is an error that names the package.
std::string font_file(const std::string& family, const std::string& style, const char* package) {
    FcPattern* wanted = FcPatternCreate();
    FcPatternAddString(wanted, FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
    FcPatternAddString(wanted, FC_STYLE, reinterpret_cast<const FcChar8*>(style.c_str()));
    FcConfigSubstitute(nullptr, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result;
    FcPattern* match = FcFontMatch(nullptr, wanted, &result);
    FcChar8 *found = nullptr, *file = nullptr;
    std::string path;
    if (match && FcPatternGetString(match, FC_FAMILY, 0, &found) == FcResultMatch &&
        family == reinterpret_cast<char*>(found) &&
        FcPatternGetString(match, FC_FILE, 0, &file) == FcResultMatch)
        path = reinterpret_cast<char*>(file);
    if (match) FcPatternDestroy(match);
    FcPatternDestroy(wanted);
    FcFini();  // its tables would count as leaks where those are counted
    if (path.empty())
        throw std::runtime_error("typeface \"" + family + "\" is missing: install the package " + package);
    return path;
}

FT_Library library() {
    static FT_Library lib = [] {
        FT_Library l;
        if (FT_Init_FreeType(&l)) throw std::runtime_error("FreeType does not start");
        FT_UInt both_directions = 35;
        if (FT_Property_Set(l, "truetype", "interpreter-version", &both_directions))
            throw std::runtime_error("this FreeType is built without the full instruction interpreter");
        return l;
    }();
    return lib;
}

FT_Face face(const std::string& family, const std::string& style, const char* package) {
    static std::map<std::string, FT_Face> known;
    FT_Face& f = known[family + style];
    if (!f && FT_New_Face(library(), font_file(family, style, package).c_str(), 0, &f))
        throw std::runtime_error("typeface \"" + family + "\" cannot be read");
    return f;
}

[[noreturn]] void unfit(int code, const char* why) {
    throw std::runtime_error("glyph " + std::to_string(code) + " (" + static_cast<char>(code) + ") " + why);
}

// The columns that hold ink one can see: hinting leaves a breath of it beside some stems.
struct ink_columns {
    int from, to;
};
ink_columns visible_ink(const FT_Bitmap& bits) {
    constexpr int faintest = 24;
    ink_columns ink = {static_cast<int>(bits.width), 0};
    for (int c = 0; c < static_cast<int>(bits.width); ++c)
        for (int r = 0; r < static_cast<int>(bits.rows); ++r)
            if (bits.buffer[r * bits.pitch + c] >= faintest) {
                ink.from = std::min(ink.from, c);
                ink.to = c + 1;
            }
    return ink.to ? ink : ink_columns{0, 0};
}

// Rasterises one glyph narrow enough that ink_most columns hold its ink, and puts it into the first `cell`
// columns.
glyph_bitmap raster(FT_Face f, int code, int ink_most, int cell) {
    glyph_bitmap out = {};
    ink_columns ink;
    for (int across = letter_size;; --across) {
        if (across < 5) unfit(code, "is too wide");
        FT_Set_Pixel_Sizes(f, across, letter_size);
        if (FT_Load_Char(f, code, FT_LOAD_RENDER | FT_LOAD_TARGET_NORMAL)) unfit(code, "is missing");
        ink = visible_ink(f->glyph->bitmap);
        if (ink.to - ink.from <= ink_most) break;
    }
    const FT_Bitmap& bits = f->glyph->bitmap;
    const int dx = ink.to - ink.from, dy = static_cast<int>(bits.rows);
    int left = std::max(f->glyph->bitmap_left + ink.from, 0);
    if (left + dx > cell) left = cell - dx;
    // brackets and bars hang lower than the cell has room: they move up
    const int foot = std::max(f->glyph->bitmap_top - dy + glyph_base, 0);
    if (foot + dy > glyph_dy) unfit(code, "is too high");
    for (int r = 0; r < dy; ++r)
        for (int c = 0; c < dx; ++c)
            out.alpha[foot + dy - 1 - r][left + c] = bits.buffer[r * bits.pitch + ink.from + c];
    const int advance = static_cast<int>((f->glyph->advance.x + 32) >> 6);
    // this small, a single stem needs air on both sides, and a word space must be wider than the face has it
    const int least = dx == 0 ? 4 : dx == 1 || code == 'j' ? 3 : left + dx;
    out.width = std::min(std::max(advance, least), glyph_dx);
    return out;
}
}  // namespace

glyph_bitmap text_glyph(int code) {
    return raster(face("DejaVu Sans", "Book", "fonts-dejavu-core"), code, glyph_dx - 1, glyph_dx);
}

glyph_bitmap mono_glyph(int code) {
    // the zero of the mono-spaced face has a dot, which fills its eye at this size
    const bool digit = code >= '0' && code <= '9';
    glyph_bitmap g = raster(face(digit ? "DejaVu Sans" : "DejaVu Sans Mono", "Book", "fonts-dejavu-core"),
                            code, mono_width, mono_width);
    g.width = mono_width;
    return g;
}

korean_bitmap korean_glyph(unsigned code) {
    constexpr int size = 12, base = 2;  // pixels an em; rows of a cell below the base line
    FT_Face f = face("NanumGothic", "Regular", "fonts-nanum");
    FT_Set_Pixel_Sizes(f, size, size);
    if (FT_Load_Char(f, code, FT_LOAD_RENDER | FT_LOAD_TARGET_LIGHT) || FT_Get_Char_Index(f, code) == 0)
        throw std::runtime_error("character " + std::to_string(code) + " is missing in NanumGothic");
    const FT_Bitmap& bits = f->glyph->bitmap;
    const int dx = static_cast<int>(bits.width), dy = static_cast<int>(bits.rows);
    if (dx > korean_cell || dy > korean_cell)
        throw std::runtime_error("character " + std::to_string(code) + " is larger than its cell");
    const int left = (korean_cell - dx) / 2;
    const int foot = std::clamp(f->glyph->bitmap_top - dy + base, 0, korean_cell - dy);
    korean_bitmap out = {};
    for (int r = 0; r < dy; ++r)
        for (int c = 0; c < dx; ++c) out.alpha[foot + dy - 1 - r][left + c] = bits.buffer[r * bits.pitch + c];
    return out;
}

cairo_font_face_t* lettering_face() {
    static cairo_font_face_t* f =
        cairo_ft_font_face_create_for_ft_face(face("B612", "Regular", "fonts-b612"), 0);
    return f;
}
