// The stars of a planet's sky as the table that the simulator reads.
// Role: from the committed catalogue; knows nothing of how stars are drawn.
#pragma once
#include <string>
#include <vector>

struct star_row {
    double ra, dec;  // hours and degrees on the planet's equator, north positive
    double magnitude;
    std::string label;
};

// On the Earth's equator, brightest first. Throws std::runtime_error when the file is not whole.
std::vector<star_row> catalogue_stars(const std::string& csv_gz);
// From the Earth's equator and equinox to those of Mars.
void turn_to_mars(std::vector<star_row>* stars);
std::string star_table_text(const std::vector<star_row>& stars);
