// What the simulator would refuse or misread, found before anything is written.
#include "nav_check.h"

#include <cmath>
#include <set>

#include "nav_geo.h"
#include "nav_text.h"

namespace {
constexpr size_t runway_menu_max = 150, ramp_menu_max = 300;  // rows behind these reach no menu

struct checker {
    std::vector<std::string> faults;
    void want(bool good, const std::string& what, const char* text) {
        if (!good) faults.push_back(what + ": " + text);
    }
};

bool good_place(nav_place p) { return std::fabs(p.lat) <= 90 && std::fabs(p.lon) <= 180; }

bool good_word(const std::string& word, size_t longest) {
    return !word.empty() && word.size() <= longest && plain_text(word) == word &&
           word.find(' ') == std::string::npos;
}

// The simulator drops a beacon or windsock only when both differ; authors mean neither to.
bool near_runway(const nav_airport& a, nav_place p) {
    constexpr double limit = 0.2;  // degrees
    return std::fabs(p.lat - a.runways[0].at.lat) <= limit &&
           std::fabs(wrap_longitude(p.lon - a.runways[0].at.lon)) <= limit;
}

bool good_num(const std::string& num) {
    if (num == "xxx") return true;
    if (num.size() != 3 || !std::isdigit(static_cast<unsigned char>(num[1]))) return false;
    if (num[0] == 'H') return num[2] == 'x' || std::isdigit(static_cast<unsigned char>(num[2]));
    const int number = std::atoi(num.substr(0, 2).c_str());
    return std::isdigit(static_cast<unsigned char>(num[0])) && number >= 1 && number <= 36 &&
           std::string("LCRx").find(num[2]) != std::string::npos;
}

void check_runways(checker& c, const nav_airport& a) {
    std::set<std::string> names;
    for (const nav_runway& r : a.runways) {
        const std::string what = a.id + " runway " + r.num;
        c.want(good_place(r.at), what, "no such place");
        c.want(good_num(r.num), what, "not a runway's name");
        c.want(r.num == "xxx" || names.insert(r.num).second, what, "named twice");
        c.want(r.len >= 4 && r.width >= 4 && r.len < 99999, what, "length or width out of range");
        for (int end = 0; end < 2; ++end)
            c.want(r.disp[end] >= 0 && r.disp[end] <= 9999 && r.blast[end] >= 0 && r.blast[end] <= 9999, what,
                   "displaced threshold or blast pad out of range");
        c.want(r.disp[0] + r.disp[1] < r.len, what, "thresholds displaced past each other");
    }
    c.want(a.runways[0].num != "xxx", a.id, "the first row must be a runway");
    c.want(a.runways.size() <= runway_menu_max, a.id, "more rows than a menu holds");
}

void airport_rules(checker& c, const nav_airport& a) {
    c.want(good_word(a.id, 4) && a.id != "XXXX", "airport " + a.id,
           "identifiers have 1 to 4 plain characters");
    c.want(!a.name.empty() && plain_name(a.name) == a.name, "airport " + a.id, "name not plain, or too long");
    if (a.runways.empty()) return c.want(false, "airport " + a.id, "no runway");
    check_runways(c, a);
    c.want(a.ramps.size() <= ramp_menu_max, a.id, "more ramps than a menu holds");
    for (const nav_ramp& r : a.ramps)
        c.want(near_runway(a, r.at) && plain_name(r.name) == r.name && !r.name.empty(),
               a.id + " ramp " + r.name, "far from the runway, or its name not plain");
    for (const nav_windsock& s : a.windsocks)
        c.want(near_runway(a, s.at), a.id, "windsock far from the runway");
    if (a.beacon) c.want(near_runway(a, a.beacon_at), a.id, "beacon far from the runway");
    if (a.has_viewpoint) c.want(near_runway(a, a.viewpoint), a.id, "tower far from the runway");
    for (const nav_frequency& f : a.frequency)
        c.want(f.frq == 0 || (f.frq >= 10000 && f.frq < 65536), a.id, "frequency out of range");
}
}  // namespace

bool check_airport(const nav_airport& airport, std::vector<std::string>& faults) {
    checker c;
    airport_rules(c, airport);
    faults.insert(faults.end(), c.faults.begin(), c.faults.end());
    return c.faults.empty();
}

bool check_aid(const nav_aid& a, std::vector<std::string>& faults) {
    checker c;
    const std::string what = "navaid " + a.id + " " + a.name;
    c.want(good_word(a.id, 4), what, "identifiers have 1 to 4 plain characters");
    c.want(!a.name.empty() && plain_name(a.name) == a.name, what, "name not plain, or too long");
    c.want(good_place(a.at) && a.range > 0, what, "no such place, or no range");
    faults.insert(faults.end(), c.faults.begin(), c.faults.end());
    return c.faults.empty();
}

std::vector<std::string> check_world(const nav_world& world) {
    std::vector<std::string> faults;
    std::set<std::string> ids;
    for (const nav_airport& a : world.airports) {
        if (!ids.insert(a.id).second) faults.push_back("airport " + a.id + ": there twice");
        check_airport(a, faults);
    }
    for (const nav_aid& a : world.aids) check_aid(a, faults);
    for (const nav_fix& f : world.fixes)
        if (!good_word(f.name, 5) || !good_place(f.at))
            faults.push_back("fix " + f.name + ": not a name or place");
    return faults;
}
