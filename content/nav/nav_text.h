// Words of the tables: plain letters, lengths, and named lights and surfaces.
#pragma once
#include <string>
#include <string_view>

// UTF-8 to what the simulator's files and fonts hold: ASCII 32 to 124, runs of blanks made one. Latin letters
// lose their accents, other letters and bad bytes are left out.
std::string plain_text(std::string_view utf8);
// Plain and no longer than a name may be, cut behind a whole word where one ends near enough.
std::string plain_name(std::string_view utf8);
// The same for an airport, whose name needs no "Airport" and shortens its usual words.
std::string airport_name(std::string_view utf8);
std::string lower_case(std::string_view text);
std::string upper_case(std::string_view text);

// Light words of one end, such as "papi edge threshold ALSF-2", to its three digits; 0 and the word that is
// not known otherwise.
int lights_with_words(const std::string& words, std::string* unknown);
// A surface's name as authors write it ("concrete", "pad grass") to its code, or 0.
int surface_with_word(const std::string& word);
// A surface as free data describe it ("ASPH-G", "TURF/DIRT", "grass and gravel") to its code; unknown hard.
int surface_with_free_text(const std::string& text);
