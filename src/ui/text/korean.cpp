// Korean menu texts as pairs of bytes. Glyph g of a pair (b1, b2) stands in cell 127 * b1 + b2 - 128 of the
// image. Glyphs in order: the characters 32 to 126, then the 2350 syllables of the standard KS X 1001 in its
// order.
#include "ui/text/korean.h"

#include <iconv.h>

#include <array>
#include <cstdint>
#include <memory>

namespace {
// Bytes that mean something to those who draw and split texts: tab, line ends, blank, "-", "/", ":", "=",
// "[", "{", "|".
constexpr bool is_spared(int b) {
    for (const int taken : {9, 10, 13, 32, 45, 47, 58, 61, 91, 123, 124})
        if (b == taken) return true;
    return false;
}
constexpr int spared_count = 11, second_count = 127 - spared_count;
constexpr std::array<unsigned char, second_count> free_bytes = [] {
    std::array<unsigned char, second_count> bytes{};
    int n = 0;
    for (int b = 1; b <= 127; ++b)
        if (!is_spared(b)) bytes[n++] = static_cast<unsigned char>(b);
    return bytes;
}();

std::string pair_of(int glyph) {
    return {static_cast<char>(free_bytes[glyph / second_count]),
            static_cast<char>(free_bytes[glyph % second_count])};
}

constexpr int ascii_first = 32, ascii_count = 95;
constexpr int unknown_glyph = '?' - ascii_first;

struct closes {
    void operator()(void* converter) const { iconv_close(converter); }
};
using converter = std::unique_ptr<void, closes>;

// How many bytes the character takes by its first one; what is no such byte counts as one.
size_t utf8_length(unsigned char lead) { return lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1; }

// The glyph of the character at the position, which moves past it. EUC-KR is KS X 1001 with 0xA0 added to row
// and column; its syllables fill rows 0xB0 to 0xC8.
int next_glyph(iconv_t to_ks, const std::string& text, size_t& at) {
    constexpr int row_first = 0xB0, row_last = 0xC8, column_first = 0xA1, columns = 94;
    const unsigned char first = static_cast<unsigned char>(text[at]);
    if (first < 0x80) {
        ++at;
        return first >= ascii_first && first < ascii_first + ascii_count ? first - ascii_first
                                                                         : unknown_glyph;
    }
    std::string one = text.substr(at, utf8_length(first));
    unsigned char ks[2] = {0, 0};
    char *in = one.data(), *out = reinterpret_cast<char*>(ks);
    size_t in_left = one.size(), out_left = sizeof ks;
    iconv(to_ks, nullptr, nullptr, nullptr, nullptr);
    if (iconv(to_ks, &in, &in_left, &out, &out_left) == static_cast<size_t>(-1)) {
        ++at;
        while (at < text.size() && (text[at] & 0xC0) == 0x80) ++at;
        return unknown_glyph;
    }
    at += one.size();
    if (out_left || ks[0] < row_first || ks[0] > row_last) return unknown_glyph;
    return ascii_count + (ks[0] - row_first) * columns + ks[1] - column_first;
}
}  // namespace

std::string char_string_to_int_string(const std::string& text) {
    const iconv_t opened = iconv_open("EUC-KR", "UTF-8");
    if (reinterpret_cast<intptr_t>(opened) == -1) return text;  // a system without it shows the bytes
    const converter to_ks(opened);
    std::string pairs;
    size_t at = 0;
    // a separator's mark, and the bracket with the key behind it, stay what they are: keys are Latin
    if (!text.empty() && (text[0] == '-' || text[0] == '=')) pairs += text[at++];
    while (at < text.size()) {
        if (text[at] == '[') return pairs + text.substr(at);
        pairs += pair_of(next_glyph(to_ks.get(), text, at));
    }
    return pairs;
}
