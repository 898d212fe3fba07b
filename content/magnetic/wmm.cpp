// The World Magnetic Model. Formulas: NOAA/NCEI and BGS, "The US/UK World Magnetic Model for 2025-2030:
// Technical Report", section 1.2.
#include "wmm.h"

#include <math.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {
constexpr double rad = M_PI / 180.0;
constexpr double geomagnetic_radius = 6371.2;                               // km
constexpr double ellipsoid_a = 6378.137, flattening = 1.0 / 298.257223563;  // WGS84, km
constexpr double eccentricity_sqr = flattening * (2.0 - flattening);

struct geocentric {
    double lat;     // radians
    double radius;  // km
};

geocentric geocentric_of(double lat, double height_km) {
    const double sin_lat = sin(lat), cos_lat = cos(lat);
    const double curve = ellipsoid_a / sqrt(1.0 - eccentricity_sqr * sin_lat * sin_lat);
    const double from_axis = (curve + height_km) * cos_lat;
    const double from_equator = (curve * (1.0 - eccentricity_sqr) + height_km) * sin_lat;
    return {atan2(from_equator, from_axis), hypot(from_axis, from_equator)};
}

// Associated Legendre functions of the sine of the latitude, in Schmidt's half normalisation, and their
// derivatives by the latitude, by wmm_term.
struct legendre {
    double p[wmm_terms], dp[wmm_terms];
};

legendre legendre_at(double lat) {
    const double s = sin(lat), c = cos(lat);
    legendre l;
    l.p[0] = 1.0, l.dp[0] = 0.0;
    for (int n = 1; n <= wmm_degree; ++n)
        for (int m = 0; m <= n; ++m) {
            const int term = wmm_term(n, m);
            if (m == n) {  // along the diagonal
                const int from = wmm_term(n - 1, n - 1);
                const double k = n == 1 ? 1.0 : sqrt((2.0 * n - 1.0) / (2.0 * n));
                l.p[term] = k * c * l.p[from];
                l.dp[term] = k * (c * l.dp[from] - s * l.p[from]);
                continue;
            }
            const double k = 1.0 / sqrt(static_cast<double>(n * n - m * m));
            const int one = wmm_term(n - 1, m);
            l.p[term] = k * (2.0 * n - 1.0) * s * l.p[one];
            l.dp[term] = k * (2.0 * n - 1.0) * (s * l.dp[one] + c * l.p[one]);
            if (m > n - 2) continue;
            const int two = wmm_term(n - 2, m);
            const double k_two = k * sqrt(static_cast<double>((n - 1) * (n - 1) - m * m));
            l.p[term] -= k_two * l.p[two];
            l.dp[term] -= k_two * l.dp[two];
        }
    return l;
}
}  // namespace

wmm_struct read_wmm(const std::string& cof_path) {
    std::ifstream in(cof_path);
    if (!in) throw std::runtime_error(cof_path + ": cannot be read");
    wmm_struct model;
    std::string line;
    std::getline(in, line);
    if (!(std::istringstream(line) >> model.epoch)) throw std::runtime_error(cof_path + ": no epoch");
    for (int n = 1; n <= wmm_degree; ++n)
        for (int m = 0; m <= n; ++m) {
            const int term = wmm_term(n, m);
            int n_file = 0, m_file = 0;
            in >> n_file >> m_file >> model.g[term] >> model.h[term] >> model.g_year[term] >>
                model.h_year[term];
            if (!in || n_file != n || m_file != m)
                throw std::runtime_error(cof_path + ": no row of degree " + std::to_string(n) + ", order " +
                                         std::to_string(m));
        }
    return model;
}

wmm_field wmm_at(const wmm_struct& model, double lat, double lon, double height_km, double year) {
    const geocentric place = geocentric_of(lat * rad, height_km);
    const legendre l = legendre_at(place.lat);
    const double ratio = geomagnetic_radius / place.radius, years = year - model.epoch;
    double north = 0.0, east = 0.0, down = 0.0, power = ratio * ratio;
    for (int n = 1; n <= wmm_degree; ++n) {
        power *= ratio;  // (a / r) ^ (n + 2)
        for (int m = 0; m <= n; ++m) {
            const int term = wmm_term(n, m);
            const double g = model.g[term] + years * model.g_year[term];
            const double h = model.h[term] + years * model.h_year[term];
            const double cos_m = cos(m * lon * rad), sin_m = sin(m * lon * rad);
            north -= power * (g * cos_m + h * sin_m) * l.dp[term];
            east += power * m * (g * sin_m - h * cos_m) * l.p[term];
            down -= power * (n + 1) * (g * cos_m + h * sin_m) * l.p[term];
        }
    }
    east /= cos(place.lat);
    // from the sphere's local level to the ellipsoid's
    const double tilt = place.lat - lat * rad;
    wmm_field field;
    field.north = north * cos(tilt) - down * sin(tilt);
    field.east = east;
    field.down = north * sin(tilt) + down * cos(tilt);
    field.horizontal = hypot(field.north, field.east);
    field.total = hypot(field.horizontal, field.down);
    field.declination = atan2(field.east, field.north) / rad;
    field.inclination = atan2(field.down, field.horizontal) / rad;
    return field;
}
