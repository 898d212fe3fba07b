// Frequencies and identifiers that do not clash.
#include "nav_channels.h"

#include <cmath>

#include "nav_geo.h"
#include "nav_random.h"
#include "nav_text.h"

double reach_degrees(double range) {
    // the simulator keeps 1.5 times the square of a fortieth of the range
    return 1.2247448713915889 * range * 0.025;
}

double degrees_apart(nav_place a, nav_place b) {
    const double dlat = a.lat - b.lat, dlon = wrap_longitude(a.lon - b.lon);
    return sqrt(dlat * dlat + dlon * dlon);
}

void nav_channels::note(int frequency, nav_place at, double range) {
    for (size_t n = 0; n < frq.size(); ++n)
        if (frq[n] == frequency) users[n].push_back({at, reach_degrees(range)});
}

int nav_channels::take(nav_place at, double range, int start) {
    const double reach = reach_degrees(range);
    for (size_t n = 0; n < frq.size(); ++n) {
        const size_t channel = (static_cast<size_t>(start) + n) % frq.size();
        bool clear = true;
        for (const user& u : users[channel]) clear &= degrees_apart(u.at, at) > u.reach + reach;
        if (!clear) continue;
        users[channel].push_back({at, reach});
        return frq[channel];
    }
    return 0;
}

// Below 112 MHz the even tenths are the VORs', the odd ones the landing aids'.
nav_channels vor_channels() {
    std::vector<int> all;
    for (int f = 10820; f < 11200; f += 20) all.insert(all.end(), {f, f + 5});
    for (int f = 11200; f <= 11795; f += 5) all.push_back(f);
    return nav_channels(all);
}

nav_channels ils_channels() {
    std::vector<int> all;
    for (int f = 10810; f < 11200; f += 20) all.insert(all.end(), {f, f + 5});
    return nav_channels(all);
}

nav_channels ndb_channels() {
    std::vector<int> all;
    for (int f = 200; f <= 429; ++f) all.push_back(f);
    return nav_channels(all);
}

std::string nav_idents::take(const std::string& letters, size_t length, const std::string& before) {
    std::string pool;
    for (const char c : upper_case(plain_text(letters)))
        if (c >= 'A' && c <= 'Z') pool += c;
    if (pool.empty()) pool = "A";
    // the first letters, then letters of the text in its order, then any
    for (size_t skip = 0; skip + 1 < pool.size(); ++skip) {
        std::string ident = before + pool.substr(0, 1) + pool.substr(skip + 1, length - 1);
        if (ident.size() == before.size() + length && taken.insert(ident).second) return ident;
    }
    nav_random draw(letters, length);
    for (int tries = 0;; ++tries) {
        // the short ones may all be given
        const size_t letters_now = length + static_cast<size_t>(tries / 200);
        std::string ident = before + (tries % 2 ? "" : pool.substr(0, 1));
        while (ident.size() < before.size() + letters_now)
            ident += static_cast<char>('A' + draw.whole(0, 25));
        if (ident != "XXXX" && taken.insert(ident).second) return ident;
    }
}
