// Words of the tables: plain letters, lengths, and named lights and surfaces.
#include "nav_text.h"

#include <algorithm>
#include <cctype>
#include <sstream>

#include "nav_world.h"

namespace {
// Base letters of U+00C0 to U+017F; "?" where there is none, digits stand for two letters.
constexpr const char* latin =
    "AAAAAA1CEEEEIIII"
    "DNOOOOO?OUUUUY23"
    "aaaaaa4ceeeeiiii"
    "dnooooo?ouuuuy5y"
    "AaAaAaCcCcCcCcDd"
    "DdEeEeEeEeEeGgGg"
    "GgGgHhHhIiIiIiIi"
    "Ii67JjKkkLlLlLlL"
    "lLlNnNnNnnNnOoOo"
    "Oo89RrRrRrSsSsSs"
    "SsTtTtTtUuUuUuUu"
    "UuUuWwYyYZzZzZzs";
constexpr const char* pairs[] = {"", "AE", "Th", "ss", "ae", "th", "IJ", "ij", "OE", "oe"};

struct letter_row {
    unsigned code;
    const char* plain;
};
constexpr letter_row others[] = {{0xA0, " "},   {0xB0, ""},    {0xB4, "'"},   {0x218, "S"},   {0x219, "s"},
                                 {0x21A, "T"},  {0x21B, "t"},  {0x2010, "-"}, {0x2011, "-"},  {0x2013, "-"},
                                 {0x2014, "-"}, {0x2018, "'"}, {0x2019, "'"}, {0x201C, "\""}, {0x201D, "\""},
                                 {0x2BB, "'"},  {0x2BC, "'"},  {0x259, "e"},  {0x18F, "E"}};

// The code point at a byte, which moves behind it; 0 for bytes that are no letter.
unsigned next_code(std::string_view text, size_t* at) {
    const auto first = static_cast<unsigned char>(text[(*at)++]);
    if (first < 0x80) return first;
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
    if (!more) return 0;
    unsigned code = first & (0x3Fu >> more);
    for (int n = 0; n < more; ++n) {
        if (*at >= text.size() || (static_cast<unsigned char>(text[*at]) & 0xC0) != 0x80) return 0;
        code = code << 6 | (static_cast<unsigned char>(text[(*at)++]) & 0x3Fu);
    }
    return code;
}

std::string plain_letter(unsigned code) {
    if (code == '\t' || code == '\n' || code == '\r') return " ";
    if (code >= 32 && code <= 124) return std::string(1, static_cast<char>(code));
    if (code >= 0xC0 && code <= 0x17F) {
        const char letter = latin[code - 0xC0];
        if (letter == '?') return "";
        return letter >= '0' && letter <= '9' ? pairs[letter - '0'] : std::string(1, letter);
    }
    for (const letter_row& row : others)
        if (row.code == code) return row.plain;
    return "";
}

struct word_row {
    const char* word;
    int value;
};
constexpr word_row glide_words[] = {{"vasi", 1}, {"papi", 2}, {"steep", 3}};
constexpr word_row runway_words[] = {{"edge", 1},   {"threshold", 2}, {"centre", 3},
                                     {"center", 3}, {"touchdown", 4}, {"taxi", 5}};
constexpr word_row approach_words[] = {{"ssals", 1},  {"malsr", 1}, {"salsf", 2},   {"alsf-1", 3},
                                       {"alsf-2", 4}, {"odals", 5}, {"calvert", 6}, {"calvert-2", 7}};
constexpr word_row surface_words[] = {{"asphalt", surface_asphalt},
                                      {"concrete", surface_concrete},
                                      {"grass", surface_grass},
                                      {"dirt", surface_dirt},
                                      {"gravel", surface_gravel},
                                      {"pad asphalt", surface_pad_asphalt},
                                      {"pad concrete", surface_pad_concrete},
                                      {"pad grass", surface_pad_grass},
                                      {"pad dirt", surface_pad_dirt},
                                      {"lakebed", surface_lakebed},
                                      {"water", surface_water}};

template <int count>
int value_of(const word_row (&rows)[count], const std::string& word) {
    for (const word_row& row : rows)
        if (word == row.word) return row.value;
    return 0;
}

// Free text is read from its first word that tells; the order within a row set decides nothing else.
constexpr word_row free_words[] = {
    {"asph", surface_asphalt},    {"bit", surface_asphalt},  {"tar", surface_asphalt},
    {"mac", surface_asphalt},     {"pem", surface_asphalt},  {"paved", surface_asphalt},
    {"asp", surface_asphalt},     {"seal", surface_asphalt}, {"con", surface_concrete},
    {"pcc", surface_concrete},    {"com", surface_asphalt},  {"turf", surface_grass},
    {"gras", surface_grass},      {"grs", surface_grass},    {"gre", surface_gravel},
    {"gvl", surface_gravel},      {"grv", surface_gravel},   {"grav", surface_gravel},
    {"gra", surface_gravel},      {"sod", surface_grass},    {"crush", surface_gravel},
    {"cor", surface_gravel},      {"cop", surface_asphalt},  {"oil", surface_gravel},
    {"dirt", surface_dirt},       {"earth", surface_dirt},   {"cla", surface_dirt},
    {"san", surface_dirt},        {"lat", surface_dirt},     {"soil", surface_dirt},
    {"unpav", surface_dirt},      {"treat", surface_dirt},   {"ter", surface_dirt},
    {"wat", surface_water},       {"lake", surface_lakebed}, {"salt", surface_lakebed},
    {"pan", surface_lakebed},     {"sno", surface_lakebed},  {"ice", surface_lakebed},
    {"per", surface_asphalt},     {"psp", surface_asphalt},  {"brick", surface_concrete},
    {"hard", surface_asphalt},    {"grade", surface_dirt},   {"mud", surface_dirt},
    {"silt", surface_dirt},       {"rock", surface_gravel},  {"stone", surface_gravel},
    {"ston", surface_gravel},     {"meta", surface_asphalt}, {"loam", surface_dirt},
    {"vegetation", surface_grass}};
}  // namespace

std::string plain_text(std::string_view utf8) {
    std::string out;
    for (size_t at = 0; at < utf8.size();)
        for (const char c : plain_letter(next_code(utf8, &at)))
            if (c != ' ' || (!out.empty() && out.back() != ' ')) out += c;
    while (!out.empty() && out.back() == ' ') out.pop_back();
    return out;
}

std::string plain_name(std::string_view utf8) {
    constexpr size_t shortest = 28;  // a whole word is dropped only when this much stays
    std::string name = plain_text(utf8);
    if (name.size() <= name_max) return name;
    const size_t blank = name.rfind(' ', name_max);
    name.resize(blank != std::string::npos && blank >= shortest ? blank : name_max);
    while (!name.empty() && (name.back() == ' ' || name.back() == '-' || name.back() == '/')) name.pop_back();
    return name;
}

std::string airport_name(std::string_view utf8) {
    struct swap_row {
        const char *word, *by;
    };
    constexpr swap_row swaps[] = {{"International", "Intl"}, {"Municipal", "Muni"}, {"Regional", "Rgnl"},
                                  {"Airport", ""},           {"Airfield", "Afld"},  {"Aerodrome", ""},
                                  {"Air Force Base", "AFB"}, {"Aeropuerto", ""},    {"Air Base", "AB"}};
    std::string name = plain_text(utf8);
    for (const swap_row& swap : swaps) {
        const size_t at = name.find(swap.word);
        const size_t end = at == std::string::npos ? at : at + std::char_traits<char>::length(swap.word);
        // a name that is nothing but the word keeps it
        if (at == std::string::npos || name.size() == end - at) continue;
        const bool whole = (at == 0 || name[at - 1] == ' ') && (end == name.size() || name[end] == ' ');
        if (whole) name.replace(at, end - at, swap.by);
    }
    name = plain_name(name);
    const size_t first = name.find_first_not_of(" -/,");
    return first == std::string::npos ? plain_name(utf8) : name.substr(first);
}

std::string lower_case(std::string_view text) {
    std::string out(text);
    for (char& c : out) c = static_cast<char>(tolower(static_cast<unsigned char>(c)));
    return out;
}

std::string upper_case(std::string_view text) {
    std::string out(text);
    for (char& c : out) c = static_cast<char>(toupper(static_cast<unsigned char>(c)));
    return out;
}

int lights_with_words(const std::string& words, std::string* unknown) {
    int glide = 0, runway = 0, approach = 0;
    std::istringstream in(lower_case(words));
    for (std::string word; in >> word;) {
        const int g = value_of(glide_words, word), r = value_of(runway_words, word);
        const int a = value_of(approach_words, word);
        if (!g && !r && !a && word != "none") {
            *unknown = word;
            return 0;
        }
        if (g) glide = g;
        runway = std::max(runway, r);
        if (a) approach = a;
    }
    return 100 * (glide + 1) + 10 * (runway + 1) + approach + 1;
}

int surface_with_word(const std::string& word) { return value_of(surface_words, lower_case(word)); }

int surface_with_free_text(const std::string& text) {
    const std::string all = lower_case(text);
    for (size_t at = 0; at < all.size();) {
        size_t end = at;
        while (end < all.size() && isalpha(static_cast<unsigned char>(all[end]))) ++end;
        const std::string word = all.substr(at, end - at);
        for (const word_row& row : free_words)
            if (word.rfind(row.word, 0) == 0) return row.value;
        if (word == "g" && at == 0) return surface_grass;
        if (word == "s" && at == 0) return surface_dirt;
        at = end + (end == at || end < all.size());
    }
    return surface_asphalt;
}
