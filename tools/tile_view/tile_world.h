// One tile of a scenery package as the simulator loads it.
#pragma once
#include <string>

struct eye_place {
    double lat = 0.0, lon = 0.0;        // degrees
    double height = 0.0;                // above the ground, m
    double heading = 0.0, pitch = 0.0;  // degrees, true; up is positive
};

// Lets the simulator see a package that lies anywhere as its only custom one, while it lives. After init_sim.
class package_seat {
public:
    explicit package_seat(const std::string& package);
    ~package_seat();
    package_seat(const package_seat&) = delete;
    package_seat& operator=(const package_seat&) = delete;

private:
    std::string folder_;
};

// Whether the package has the tile, and for which planet: 0 Earth, 1 Mars; -1 for none.
int planet_of_tile(const std::string& package, int lat, int lon);

// Loads the tile in the middle of a region around the eye; false when it is not sound. What was loaded before
// is forgotten.
bool load_tile(int planet, int lat, int lon, const eye_place& eye);
