// Repeatable draws from a text and a number: the same on every machine and in any order of the airports.
#pragma once
#include <cstdint>
#include <string_view>

struct nav_random {
    std::uint64_t state;
    explicit nav_random(std::string_view seed, std::uint64_t more = 0)
        : state(14695981039346656037ull + more) {
        for (const char c : seed) state = (state ^ static_cast<unsigned char>(c)) * 1099511628211ull;
    }
    // Mixes as SplitMix64 does.
    std::uint64_t next() {
        std::uint64_t z = state += 0x9E3779B97F4A7C15ull;
        z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ z >> 27) * 0x94D049BB133111EBull;
        return z ^ z >> 31;
    }
    int whole(int from, int to) {  // both ends possible
        return from + static_cast<int>(next() % static_cast<std::uint64_t>(to - from + 1));
    }
    double part() { return static_cast<double>(next() >> 11) / 9007199254740992.0; }  // 0 to below 1
    bool chance(double share) { return part() < share; }
};
