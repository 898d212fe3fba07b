// Korean: syllables to pictures of glyphs.
#pragma once
#include <string>

// UTF-8 to pairs of bytes, each naming a glyph of the Korean image; see ui/text/korean.cpp.
std::string char_string_to_int_string(const std::string& text);
