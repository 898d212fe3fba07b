// Korean glyphs: only those that the menus use, so that the picture stays small, and all of ASCII.
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>

#include "pictures.h"
#include "typeface.h"
#include "ui/text/korean.h"

namespace {
// Name of the language in the chooser, which no menu holds.
const char* const own_name = "한국어";
constexpr int columns = 40;

unsigned code_of(const std::string& utf8) {
    const unsigned char lead = static_cast<unsigned char>(utf8[0]);
    unsigned code = lead < 0x80 ? lead : lead < 0xE0 ? lead & 31u : lead < 0xF0 ? lead & 15u : lead & 7u;
    for (size_t i = 1; i < utf8.size(); ++i) code = code << 6 | (static_cast<unsigned char>(utf8[i]) & 63u);
    return code;
}

std::set<std::string> characters_of(const std::string& text) {
    std::set<std::string> all;
    for (size_t at = 0; at < text.size();) {
        size_t end = at + 1;
        while (end < text.size() && (text[end] & 0xC0) == 0x80) ++end;
        all.insert(text.substr(at, end - at));
        at = end;
    }
    return all;
}

// The cell that the program shows for a character; -1 for what stays Latin.
int cell_of(const std::string& character) {
    const std::string pairs = char_string_to_int_string("x" + character);  // alone a "-" would be a separator
    if (pairs.size() != 4 || character == "[") return -1;
    return 127 * static_cast<unsigned char>(pairs[2]) + static_cast<unsigned char>(pairs[3]) - 128;
}
}  // namespace

void draw_korean(canvas& c, const std::string& menu_file) {
    std::ifstream in(menu_file, std::ios::binary);
    if (!in) throw std::runtime_error(menu_file + " cannot be read");
    std::string text{std::istreambuf_iterator<char>(in), {}};
    text += own_name;
    for (char ascii = ' '; ascii <= '~'; ++ascii) text += ascii;
    const int unknown = cell_of("?");
    for (const std::string& character : characters_of(text)) {
        const unsigned code = code_of(character);
        const int cell = code < ' ' ? -1 : cell_of(character);
        if (cell < 0) continue;
        if (cell == unknown && code != '?')
            throw std::runtime_error(menu_file + " has a character without a glyph: " + character);
        const korean_bitmap glyph = korean_glyph(code);
        const piece at = {static_cast<short>(cell % columns * korean_cell),
                          static_cast<short>(cell / columns * korean_cell), korean_cell, korean_cell};
        c.open("glyph of " + character, at);
        for (int t = 0; t < korean_cell; ++t)
            for (int s = 0; s < korean_cell; ++s) c.white_pixel(s, t, glyph.alpha[t][s]);
        c.close();
    }
}
