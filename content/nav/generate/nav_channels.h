// Frequencies and identifiers that do not clash.
#pragma once
#include <set>
#include <string>
#include <vector>

#include "nav_world.h"

// Reach of a station in degrees of latitude and longitude alike, as the receivers measure it.
double reach_degrees(double range);
double degrees_apart(nav_place a, nav_place b);

// Which stations use the channels of a kind of radio.
struct nav_channels {
    struct user {
        nav_place at;
        double reach;
    };
    std::vector<int> frq;  // of each channel
    std::vector<std::vector<user>> users;
    explicit nav_channels(std::vector<int> all) : frq(std::move(all)), users(frq.size()) {}

    void note(int frequency, nav_place at, double range);
    // The channel, from a start of chance on, whose users' reaches keep clear of this one's; 0 if there is
    // none.
    int take(nav_place at, double range, int start);
};
nav_channels vor_channels();
nav_channels ils_channels();
nav_channels ndb_channels();

// Identifiers made from a text's letters; each is given once.
struct nav_idents {
    std::set<std::string> taken;
    std::string take(const std::string& letters, size_t length, const std::string& before = "");
};
