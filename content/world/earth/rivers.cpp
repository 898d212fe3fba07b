// Reader of the rivers.
#include "rivers.h"

#include <math.h>

#include <algorithm>
#include <stdexcept>

#include "data_file.h"

rivers::rivers(const std::string& path) {
    const std::vector<uint8_t> bytes = inflated(path);
    size_t at = 0;
    const auto word = [&] {
        if (at + 2 > bytes.size()) throw std::runtime_error(path + ": is damaged");
        at += 2;
        return static_cast<int>(static_cast<int16_t>(bytes[at - 2] | bytes[at - 1] << 8));
    };
    while (at < bytes.size()) {
        const int rank = word(), points = word();
        const double first_lon = word() / 180.0, first_lat = word() / 180.0;
        double lon = first_lon, lat = first_lat;
        for (int n = 1; n < points; ++n) {
            const double east = lon + word() / 1000.0, north = lat + word() / 1000.0;
            for (int row = static_cast<int>(floor(std::min(lat, north)));
                 row <= static_cast<int>(floor(std::max(lat, north))); ++row)
                for (int column = static_cast<int>(floor(std::min(lon, east)));
                     column <= static_cast<int>(floor(std::max(lon, east))); ++column)
                    degrees_[{row, column}].push_back({lat, lon, north, east, rank});
            lon = east;
            lat = north;
        }
    }
}

const std::vector<river_side>& rivers::in_degree(int lat, int lon) const {
    static const std::vector<river_side> none;
    const auto found = degrees_.find({lat, lon});
    return found == degrees_.end() ? none : found->second;
}
