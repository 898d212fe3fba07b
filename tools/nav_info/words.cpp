// Codes of the tables in words.
#include "words.h"

#include <math.h>
#include <stdio.h>

#include "place.h"

namespace {
struct word_row {
    int code;
    const char* words;
};

template <size_t count>
std::string find_words(const word_row (&rows)[count], int code, const char* otherwise) {
    for (const word_row& row : rows)
        if (row.code == code) return row.words;
    return otherwise;
}

constexpr word_row surfaces[] = {
    {1, "asphalt"},
    {2, "concrete"},
    {3, "grass"},
    {4, "dirt"},
    {5, "gravel"},
    {6, "asphalt pad"},
    {7, "concrete pad"},
    {8, "grass pad"},
    {9, "dirt pad"},
    {10, "asphalt turn-off"},
    {11, "concrete turn-off"},
    {12, "dry lake"},
    {13, "water"},
};
constexpr word_row aids[] = {
    {nav_ndb, "NDB"},
    {nav_vor, "VOR"},
    {nav_ils, "ILS localizer"},
    {nav_loc, "localizer"},
    {nav_gls, "glide slope"},
    {nav_outer, "outer marker"},
    {nav_middle, "middle marker"},
    {nav_inner, "inner marker"},
    {nav_dme, "DME"},
};
constexpr word_row airports[] = {
    {apt_land, "land airport"}, {apt_sea, "seaplane base"}, {apt_helipad, "heliport"}, {apt_carrier, "ship"}};
constexpr word_row beacons[] = {{1, "white and green"},
                                {2, "white and yellow"},
                                {3, "white, yellow and green"},
                                {4, "white, white and green"},
                                {5, "white flashes"}};

constexpr const char* glide_words[] = {"", "two-bar slope lights", "four-light slope lights",
                                       "six-light steep slope lights"};
constexpr const char* runway_words[] = {"",
                                        "edge lights",
                                        "edge lights and threshold rows",
                                        "edge, threshold and centre lights",
                                        "edge, threshold, centre and touchdown lights",
                                        "blue edge lights"};
constexpr const char* approach_words[] = {"",
                                          "short approach lights with flashes",
                                          "short approach lights with flashes",
                                          "long approach lights with flashes",
                                          "long approach lights with red side rows and flashes",
                                          "lead-in flashes",
                                          "five-bar approach lights with flashes",
                                          "five-bar approach lights with red side rows and flashes"};

template <size_t count>
void add_words(std::string* to, const char* const (&words)[count], int digit) {
    const int value = digit ? digit - 1 : 1;  // the digit is 1 more; none counts as 1
    if (value <= 0 || value >= static_cast<int>(count)) return;
    *to += std::string(to->empty() ? "" : ", ") + words[value];
}
}  // namespace

std::string surface_words(int surf_tex) {
    return find_words(surfaces, code_with_tex(surf_tex), "unknown surface");
}
std::string aid_words(int type) { return find_words(aids, type, "unknown aid"); }
std::string airport_words(int apt_type) {
    return find_words(airports, apt_type, "airport of an unknown kind");
}
std::string beacon_words(int bcn_typ) { return find_words(beacons, bcn_typ, "white and green"); }

std::string lights_words(int i_code, int end) {
    const int code = end == 0 ? i_code / 1000 : i_code % 1000;
    std::string words;
    add_words(&words, runway_words, code / 10 % 10);
    add_words(&words, glide_words, code / 100 % 10);
    add_words(&words, approach_words, code % 10);
    return words.empty() ? "no lights" : words;
}

std::string number_text(double value, int decimals) {
    char text[64];
    snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

std::string frequency_text(int frq) { return number_text(frq / 100.0, 2); }

std::string aid_frequency_text(const vec_nav_struct& aid) {
    if (aid.type == nav_ndb) return std::to_string(aid.frq) + " kHz";
    if (aid.frq == marker_frq) return "75 MHz";
    return frequency_text(aid.frq) + " MHz";
}

std::string length_text(double metres) {
    return number_text(metres, 0) + " m (" + number_text(metres * feet_per_metre, 0) + " ft)";
}

// The table keeps 1.5 (0.025 range) ^ 2.
double range_miles(const vec_nav_struct& aid) { return sqrt(fmax(aid.sqr_range_deg, 0.0f) / 1.5) / 0.025; }

double slope_of(const vec_nav_struct& aid) { return floor(aid.psi_true / 1000.0) / 100.0; }
double slope_course(const vec_nav_struct& aid) {
    return aid.psi_true - 1000.0 * floor(aid.psi_true / 1000.0);
}
