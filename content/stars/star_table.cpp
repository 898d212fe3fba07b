// Reading, turning and writing of the stars.
#include "star_table.h"

#include <math.h>
#include <stdio.h>
#include <zlib.h>

#include <algorithm>
#include <stdexcept>

namespace {
constexpr double rad = M_PI / 180.0, hour = 15.0 * rad;

std::string unpacked(const std::string& path) {
    gzFile in = gzopen(path.c_str(), "rb");
    if (!in) throw std::runtime_error(path + ": cannot be read");
    std::string text;
    char block[1 << 16];
    int got;
    while ((got = gzread(in, block, sizeof block)) > 0) text.append(block, static_cast<size_t>(got));
    const bool whole = got == 0 && gzclose(in) == Z_OK;
    if (!whole || text.empty() || text.back() != '\n') throw std::runtime_error(path + ": is damaged");
    return text;
}

struct vector3 {
    double x, y, z;
};
double dot(const vector3& a, const vector3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
vector3 cross(const vector3& a, const vector3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
vector3 unit(const vector3& a) {
    const double length = sqrt(dot(a, a));
    return {a.x / length, a.y / length, a.z / length};
}
vector3 towards(double ra_rad, double dec_rad) {
    return {cos(dec_rad) * cos(ra_rad), cos(dec_rad) * sin(ra_rad), sin(dec_rad)};
}

// The northern pole of the orbit of Mars: inclination and ascending node on the ecliptic of J2000 (E. M.
// Standish, Keplerian elements for approximate positions of the major planets, JPL).
vector3 orbit_pole_of_mars() {
    constexpr double inclination = 1.8497 * rad, node = 49.5595 * rad, obliquity = 23.43928 * rad;
    const vector3 ecliptic = {sin(node) * sin(inclination), -cos(node) * sin(inclination), cos(inclination)};
    return {ecliptic.x, ecliptic.y * cos(obliquity) - ecliptic.z * sin(obliquity),
            ecliptic.y * sin(obliquity) + ecliptic.z * cos(obliquity)};
}
}  // namespace

std::vector<star_row> catalogue_stars(const std::string& csv_gz) {
    std::vector<star_row> stars;
    const std::string text = unpacked(csv_gz);
    int place = 0;  // 1/10000 hour
    for (size_t at = 0; at < text.size();) {
        const size_t end = text.find('\n', at);
        const std::string line = text.substr(at, end - at);
        at = end + 1;
        int step, dec, magnitude, number, name_at = 0;
        if (sscanf(line.c_str(), "%d,%d,%d,%d,%n", &step, &dec, &magnitude, &number, &name_at) != 4 ||
            !name_at)
            throw std::runtime_error(csv_gz + ": line \"" + line.substr(0, 40) + "\" is no star");
        place += step;
        std::string label = line.substr(static_cast<size_t>(name_at));
        if (label.empty()) label = number ? "HD " + std::to_string(number) : "-";
        stars.push_back({place / 1.0e4, dec / 1.0e3, magnitude / 1.0e2, label});
    }
    std::stable_sort(stars.begin(), stars.end(),
                     [](const star_row& a, const star_row& b) { return a.magnitude < b.magnitude; });
    return stars;
}

// Right ascensions of Mars count from where the sun stands at its northern spring, as the Earth's do.
void turn_to_mars(std::vector<star_row>* stars) {
    // mean pole of J2000: Archinal et al., Report of the IAU Working Group on Cartographic Coordinates, 2009
    const vector3 pole = towards(317.68143 * rad, 52.88650 * rad);
    const vector3 spring = unit(cross(pole, orbit_pole_of_mars())), side = cross(pole, spring);
    for (star_row& s : *stars) {
        const vector3 v = towards(s.ra * hour, s.dec * rad);
        const double ra = atan2(dot(v, side), dot(v, spring)) / hour;
        s.ra = ra < 0.0 ? ra + 24.0 : ra;
        s.dec = asin(std::clamp(dot(v, pole), -1.0, 1.0)) / rad;
    }
}

std::string star_table_text(const std::vector<star_row>& stars) {
    std::string text = "I\n740 Places, magnitudes and names of stars\n";
    for (const star_row& s : stars) {
        char line[160];
        // what rounds to a whole turn is none
        const double ra = s.ra >= 23.99995 ? 0.0 : s.ra;
        snprintf(line, sizeof line, "%.4f %.3f %.2f %s\n", ra, s.dec, s.magnitude, s.label.c_str());
        text += line;
    }
    return text + "99.0 0 0 end\n";
}
