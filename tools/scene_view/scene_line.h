// A picture of the flying view as a line of text: its name and settings.
#pragma once
#include <string>

// What a line may set, for a tool's help.
extern const char* const scene_keys_help;

struct scene_struct {
    std::string name;
    std::string start;     // "runway" or "final" of the default airport instead of a place; empty for a place
    std::string aircraft;  // part of the path of one in the install folder; empty for the default one
    int planet = 0, cloud = 0, aurora = 0, night_vision = 0, day = 80, lamps = 0, orbits = 0;
    double lat = 34.0, lon = -117.5, height = 1000.0, heading = 0.0, pitch = 0.0, roll = 0.0, hour = 12.0,
           vis = 20.0;
    double base = 2000.0, top = 2500.0, fov = 60.0, rain = 0.0, snow = 0.0, ice = 0.0, speed = 50.0;
    double orbit_psi = 0.0, orbit_the = 0.0, orbit_dist = 50.0;  // of the eye around the aircraft: degrees, m
};

// An empty line, or one that is a remark, has no name. Throws wrong_use.
scene_struct read_scene(const std::string& line);
