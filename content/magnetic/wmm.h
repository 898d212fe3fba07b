// The World Magnetic Model: the Earth's main field from the coefficients of a .cof file.
// Role: for magvar_make and the tests; knows nothing of the simulator.
#pragma once
#include <string>

constexpr int wmm_degree = 12;
constexpr int wmm_terms = (wmm_degree + 1) * (wmm_degree + 2) / 2;
constexpr int wmm_term(int n, int m) { return n * (n + 1) / 2 + m; }

struct wmm_struct {
    double epoch = 0.0;  // decimal year
    // Gauss coefficients, nT, and their change, nT a year, by wmm_term
    double g[wmm_terms] = {}, h[wmm_terms] = {}, g_year[wmm_terms] = {}, h_year[wmm_terms] = {};
};

struct wmm_field {
    double north, east, down;  // nT, on the WGS84 ellipsoid's local level
    double declination;        // degrees, east positive
    double inclination;        // degrees, down positive
    double horizontal, total;  // nT
};

// Throws std::runtime_error for a file that is missing, breaks off or lacks a term.
wmm_struct read_wmm(const std::string& cof_path);

// At a geodetic place: degrees, kilometres above the ellipsoid; year is decimal. Not at a pole itself, where
// no direction is north.
wmm_field wmm_at(const wmm_struct& model, double lat, double lon, double height_km, double year);
