// Names of fixes: consonant, vowel, consonant, vowel, consonant, or with two consonants that go together in
// the middle.
#include <algorithm>
#include <string>

#include "nav_airways.h"

namespace {
const std::string consonants = "BDFGHJKLMNPRSTVWZ", vowels = "AEIOU";
constexpr const char* pairs[] = {"LD", "LT", "LM", "LK", "MP", "MB", "ND", "NT", "NK", "RD", "RK", "RL",
                                 "RM", "RN", "RT", "SK", "SP", "ST", "NS", "LS", "RS", "PS", "KS", "FT"};
constexpr const char* rude[] = {"ANAL", "ANUS",  "BUGGE", "COC",   "COK",   "CUM",  "DIK",  "FAG",  "FAK",
                                "FUK",  "GAY",   "HOMO",  "HORE",  "KAK",   "KIL",  "KOK",  "KUNT", "LESB",
                                "NAZI", "NEGR",  "NIG",   "PENIS", "PIS",   "PORN", "PUS",  "RAP",  "RAPE",
                                "SEK",  "SEX",   "SLUT",  "SUK",   "TIT",   "TURD", "VAGI", "WANK", "WOG",
                                "HITL", "SATAN", "BOM",   "DED",   "MAYDA", "FIR",  "GUN",  "PIM",  "FOK",
                                "JAP",  "KUK",   "PUTA",  "PUTO",  "MERD"};
constexpr int pair_DIM = 24;
constexpr int singles = 17 * 5 * 17 * 5 * 17, doubles = 17 * 5 * pair_DIM * 5;
// a prime step walks through all names, and neighbours in the walk share few letters
constexpr long step = 104729, offset = 31337;
}  // namespace

const int fix_names = singles + doubles;

std::string fix_name(int number) {
    long n = (number * step + offset) % fix_names;
    const bool pair = n >= singles;
    if (pair) n -= singles;
    const auto digit = [&n](long base) {
        const long d = n % base;
        n /= base;
        return static_cast<size_t>(d);
    };
    const size_t v1 = digit(5), first = digit(17), v2 = digit(5);
    const std::string head = {consonants[first], vowels[v1]};
    if (pair) return head + pairs[digit(pair_DIM)] + vowels[v2];
    const size_t middle = digit(17), last = digit(17);
    return head + consonants[middle] + vowels[v2] + consonants[last];
}

bool is_rude(const std::string& name) {
    return std::any_of(std::begin(rude), std::end(rude),
                       [&](const char* word) { return name.find(word) != std::string::npos; });
}
