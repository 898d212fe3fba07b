// Places of known height or kind.
#include "known_places.h"

#include <math.h>
#include <stdio.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "data_file.h"
#include "node_window.h"

namespace {
constexpr double radians = 0.017453292519943295, foot = 0.3048;

int degree_of(double at) { return static_cast<int>(floor(at)); }
int wrapped(int lon) { return ((lon + 180) % 360 + 360) % 360 - 180; }

void turn(double* lon, double by) { *lon += by; }
void turn_east(known_airport& a, double by) {
    turn(&a.lon, by);
    for (ground_strip& s : a.strips) turn(&s.lon[0], by), turn(&s.lon[1], by);
}
void turn_east(known_point& p, double by) { turn(&p.lon, by); }
void turn_east(known_town& t, double by) { turn(&t.lon, by); }

ground_strip strip_of(double lat, double lon, double heading, double length, double width,
                      double degree_metres) {
    const double north = 0.5 * length * cos(heading * radians) / degree_metres;
    const double east =
        0.5 * length * sin(heading * radians) / (degree_metres * std::max(cos(lat * radians), 0.01));
    return {{lat - north, lat + north}, {lon - east, lon + east}, 0.5 * width};
}

void read_points(const std::string& path, by_degree<known_point>* points) {
    for (const std::vector<std::string>& row : csv_rows(path, 3))
        points->add({atof(row[0].c_str()), atof(row[1].c_str()), atof(row[2].c_str()),
                     row.size() > 4 ? atof(row[3].c_str()) : 0.0});
}
}  // namespace

template <class thing>
void by_degree<thing>::add(const thing& t) {
    cells_[{degree_of(t.lat), wrapped(degree_of(t.lon))}].push_back(t);
}

template <class thing>
std::vector<thing> by_degree<thing>::near(double lat, double lon, double reach) const {
    std::vector<thing> found;
    const double wide = std::min(reach / std::max(cos(lat * radians), 0.02), 30.0);
    for (int row = degree_of(lat - reach); row <= degree_of(lat + reach); ++row)
        for (int column = degree_of(lon - wide); column <= degree_of(lon + wide); ++column) {
            const auto cell = cells_.find({row, wrapped(column)});
            if (cell == cells_.end()) continue;
            for (thing t : cell->second) {
                turn_east(t, column - wrapped(column));
                if (fabs(t.lat - lat) <= reach && fabs(t.lon - lon) <= wide) found.push_back(t);
            }
        }
    return found;
}

template class by_degree<known_airport>;
template class by_degree<known_point>;
template class by_degree<known_town>;

// Rows of airports and of their pavement.
void read_airports(const std::string& path, double degree_metres, by_degree<known_airport>* airports) {
    std::ifstream in(path);
    if (!in) throw std::runtime_error(path + ": cannot be read; the target content makes it");
    constexpr int land = 1, water = 16, pad = 17, runway = 10;  // codes of rows
    known_airport airport;
    const auto finish = [&] {
        if (!airport.strips.empty()) airports->add(airport);
        airport = {};
    };
    bool dry = false;
    for (std::string line; std::getline(in, line);) {
        int code = 0, used = 0, feet = 0;
        char id[8] = "";
        if (sscanf(line.c_str(), "%d%n", &code, &used) != 1) continue;
        if (code == land || code == pad || code == water) {
            finish();
            dry = code != water && sscanf(line.c_str() + used, "%d %*d %*d %7s", &feet, id) == 2;
            airport.id = id;
            airport.ele = feet * foot;
        }
        double lat, lon, heading, length, width;
        if (code != runway || !dry ||
            sscanf(line.c_str() + used, "%lf %lf %*s %lf %lf %*s %*s %lf", &lat, &lon, &heading, &length,
                   &width) != 5)
            continue;
        if (airport.strips.empty()) airport.lat = lat, airport.lon = lon;
        airport.strips.push_back(strip_of(lat, lon, heading, length * foot, width * foot, degree_metres));
    }
    finish();
}

known_places::known_places(const std::string& apt_path, const std::string& data) {
    read_airports(apt_path, earth_degree_metres, &airports);
    read_points(data + "summits.csv", &summits);
    read_points(data + "closed_basins.csv", &basins);
    read_points(data + "lakes.csv", &lakes);
    read_points(data + "salt_lakes.csv", &salt_lakes);
    for (const char* list : {"places.csv", "towns.csv"})
        for (const std::vector<std::string>& row : csv_rows(data + list, 4))
            towns.add({atof(row[0].c_str()), atof(row[1].c_str()), atoi(row[2].c_str())});
}

double metres_between(double lat0, double lon0, double lat1, double lon1) {
    const double east = (lon1 - lon0) * cos(0.5 * (lat0 + lat1) * radians);
    return earth_degree_metres * sqrt(east * east + (lat1 - lat0) * (lat1 - lat0));
}

double metres_from(const known_airport& airport, double lat, double lon) {
    const double across = earth_degree_metres * cos(airport.lat * radians);
    double nearest = 1.0e9;
    for (const ground_strip& s : airport.strips) {
        const double x0 = (s.lon[0] - lon) * across, y0 = (s.lat[0] - lat) * earth_degree_metres;
        const double x1 = (s.lon[1] - lon) * across, y1 = (s.lat[1] - lat) * earth_degree_metres;
        const double dx = x1 - x0, dy = y1 - y0, square = dx * dx + dy * dy;
        const double t = square > 0.0 ? std::clamp(-(x0 * dx + y0 * dy) / square, 0.0, 1.0) : 0.0;
        const double px = x0 + t * dx, py = y0 + t * dy;
        nearest = std::min(nearest, std::max(sqrt(px * px + py * py) - s.half_width, 0.0));
    }
    return nearest;
}
