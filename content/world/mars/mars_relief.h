// Heights of Mars, from the published places and sizes of its great features.
// Role: a function of the place alone, so that tiles meet whoever makes them.
#pragma once
#include <string>

#include "known_places.h"

class mars_relief {
public:
    // The planet's table of airports, whose ground is level.
    explicit mars_relief(const std::string& apt_path);

    double height(double lat, double lon) const;  // metres above the datum

    // How much of it is what, 0 to 1.
    double dark(double lat, double lon) const;  // sand of canyon floors and of the old dark plains
    double cliff(double lat, double lon) const;
    double ice(double lat, double lon) const;
    double plain(double lat, double lon) const;  // stony, against dust

private:
    double natural(double lat, double lon) const;
    by_degree<known_airport> airports_;
};
