// Courses of rivers.
#pragma once
#include <map>
#include <string>
#include <utility>
#include <vector>

struct river_side {
    double lat0, lon0, lat1, lon1;
    int rank;  // 0 the greatest, 12 the least
};

class rivers {
public:
    explicit rivers(const std::string& path);
    // Sides that touch a degree.
    const std::vector<river_side>& in_degree(int lat, int lon) const;

private:
    std::map<std::pair<int, int>, std::vector<river_side>> degrees_;
};
