// Places of known height or kind: airports, summits, towns, closed basins.
// Role: what the land is pulled to and covered by. Degrees and metres.
#pragma once
#include <map>
#include <string>
#include <utility>
#include <vector>

struct ground_strip {
    double lat[2], lon[2], half_width;  // ends of a runway or another piece of pavement
};
struct known_airport {
    std::string id;
    double lat = 0, lon = 0, ele = 0;
    std::vector<ground_strip> strips;
};
struct known_point {
    double lat = 0, lon = 0, ele = 0;
    double reach = 0;  // metres, of what has a size
};
struct known_town {
    double lat = 0, lon = 0;
    int people = 0;
};

// Things by the degree that they lie in.
template <class thing>
class by_degree {
public:
    void add(const thing& t);
    // All within `reach` degrees of latitude, and as far east and west on the ground. Longitudes are turned
    // by whole circles to lie beside the asked one.
    std::vector<thing> near(double lat, double lon, double reach) const;

private:
    std::map<std::pair<int, int>, std::vector<thing>> cells_;
};

struct known_places {
    by_degree<known_airport> airports;
    by_degree<known_point> summits, basins, lakes, salt_lakes;
    by_degree<known_town> towns;

    // apt_path is the table of airports as the simulator reads it; data the folder of the committed data.
    known_places(const std::string& apt_path, const std::string& data);
};

// The airports of a table as the simulator reads it; a planet's degree in metres gives strips their length.
void read_airports(const std::string& apt_path, double degree_metres, by_degree<known_airport>* airports);

// Metres of the Earth between places some degrees apart at most.
double metres_between(double lat0, double lon0, double lat1, double lon1);
// Metres of the Earth from the nearest edge of an airport's pavement, 0 on it.
double metres_from(const known_airport& airport, double lat, double lon);
