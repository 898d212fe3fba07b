// Rows of navigation tables as text, and distances by a formula of the test's own.
#pragma once
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "support.h"

namespace test {

inline std::vector<std::string> lines_of(const std::string& path) {
    std::vector<std::string> lines;
    std::istringstream in(read_file(path));
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

inline std::vector<std::string> words_of(const std::string& line) {
    std::vector<std::string> words;
    std::istringstream in(line);
    for (std::string word; in >> word;) words.push_back(word);
    return words;
}

struct aid_row {
    int type, frq;
    double lat, lon, ele, range, psi;
    std::string id, name;
};

inline std::vector<aid_row> aid_rows(const std::string& path) {
    std::vector<aid_row> rows;
    const std::vector<std::string> lines = lines_of(path);
    for (size_t n = 2; n + 1 < lines.size(); ++n) {
        aid_row r;
        std::istringstream in(lines[n]);
        in >> r.type >> r.lat >> r.lon >> r.ele >> r.frq >> r.range >> r.psi >> r.id >> std::ws;
        std::getline(in, r.name);
        rows.push_back(r);
    }
    return rows;
}

// Metres north and east of a place; flat, good to a fifth of a percent within 30 km.
struct offset {
    double north, east;
};
inline offset offset_from(double lat0, double lon0, double lat, double lon, double radius = 6378145) {
    const double rad = 3.14159265358979 / 180;
    return {(lat - lat0) * rad * radius,
            std::remainder(lon - lon0, 360.0) * rad * radius * std::cos((lat + lat0) / 2 * rad)};
}
// The same along and right of a heading.
inline offset along_right(const offset& o, double heading) {
    const double psi = heading * 3.14159265358979 / 180;
    return {o.north * std::cos(psi) + o.east * std::sin(psi),
            o.east * std::cos(psi) - o.north * std::sin(psi)};
}
inline double miles_between(double lat1, double lon1, double lat2, double lon2) {
    const double rad = 3.14159265358979 / 180;
    const double c = std::sin(lat1 * rad) * std::sin(lat2 * rad) +
                     std::cos(lat1 * rad) * std::cos(lat2 * rad) * std::cos((lon2 - lon1) * rad);
    return 3440 * std::acos(std::fmax(-1.0, std::fmin(1.0, c)));
}

}  // namespace test
