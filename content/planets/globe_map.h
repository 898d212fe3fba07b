// A whole globe as a map: 360 degrees of longitude by 180 of latitude, north in the first row.
// Role: what the planets' programs draw on; it cuts itself into the two halves that the orbital view shows.
#pragma once
#include <string>
#include <vector>

struct rgb {
    double r, g, b;  // 0 to 1
};
inline rgb operator+(const rgb& a, const rgb& b) { return {a.r + b.r, a.g + b.g, a.b + b.b}; }
inline rgb operator*(const rgb& a, double f) { return {a.r * f, a.g * f, a.b * f}; }
inline rgb mix(const rgb& a, const rgb& b, double part_of_b) { return a * (1.0 - part_of_b) + b * part_of_b; }

constexpr int globe_dx = 2048, globe_dy = 1024;

struct globe_map {
    std::vector<rgb> texels = std::vector<rgb>(globe_dx * globe_dy);
    rgb& at(int column, int row) { return texels[static_cast<size_t>(row) * globe_dx + column]; }
};
// Of a texel's middle, degrees; longitude from -180 at the left edge.
constexpr double column_lon(int column) { return (column + 0.5) * 360.0 / globe_dx - 180.0; }
constexpr double row_lat(int row) { return 90.0 - (row + 0.5) * 180.0 / globe_dy; }

// FOLDER/NAME1.png is longitudes 0 to 180 east, NAME2.png 180 to 360. Throws std::runtime_error.
void save_halves(globe_map& map, const std::string& folder, const std::string& name);

// From a photograph of the whole globe in the map's size. Throws std::runtime_error.
void photograph_earth(globe_map& map, const std::string& jpeg_path);
// From its large features and seeded noise.
void draw_mars(globe_map& map);
